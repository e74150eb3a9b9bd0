// Clearing the history of visited pages.
#pragma once

#include "platform/RuntimeError.h"
#include "platform/UrlHistory.h"

// The class of the history object.
platform::Guid UrlHistoryClsid();
// Its interface that can clear the history.
platform::Guid UrlHistoryIid();

// Creates the history object, calls ClearHistory, whose result is ignored, and releases the object. Fails with the
// system's code when the object cannot be created. CoCreateInstance, DispCallFunc.
platform::Result<void> ClearUrlHistory();
