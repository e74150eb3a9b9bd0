# GoogleTest is built from Debian's sources with this build's own compiler and flags: the library package is neither
# instrumented by the sanitizers nor made for Windows.
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(GOOGLETEST_DIR "/usr/src/googletest" CACHE PATH "GoogleTest sources")
add_subdirectory("${GOOGLETEST_DIR}" "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
