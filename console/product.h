// The product's version, from the build.
#pragma once

// "1.32".
extern const char* const kProductVersion;
