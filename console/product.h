// The product's version, from the build, and its maker.
#pragma once

// "1.32".
extern const char* const kProductVersion;

inline constexpr const char* kMaker = "Velmatrix";
inline constexpr const char* kMakersAddress = "http://www.velmatrix.example/";
