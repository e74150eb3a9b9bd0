#include "console/product.h"

const char* const kProductVersion = SCRUBHAVEN_VERSION;
