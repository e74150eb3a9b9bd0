# The Windows tests: GoogleTest needs the standard threads, which only this model has. Its build asks for C as well.
include("${CMAKE_CURRENT_LIST_DIR}/mingw-i686.cmake")
set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
