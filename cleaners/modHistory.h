// Clearing the history of visited pages.
#pragma once

#include "platform/RuntimeError.h"
#include "platform/UrlHistory.h"

// The class of the history object.
platform::Guid UrlHistoryClsid();
// The interface of it that can clear the history.
platform::Guid UrlHistoryIid();

// Creates the history object, has it clear the history, whatever it answers, and releases it. Fails with the system's
// code when the object cannot be created. CoCreateInstance, DispCallFunc.
platform::Result<void> ClearUrlHistory();
