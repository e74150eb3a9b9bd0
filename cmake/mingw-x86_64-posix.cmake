# The Windows tests: GoogleTest needs the standard threads, which only this model has. Its build asks for C as well.
include("${CMAKE_CURRENT_LIST_DIR}/mingw-x86_64.cmake")
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
