# The program: the threads model that needs nothing beyond the Windows API.
include("${CMAKE_CURRENT_LIST_DIR}/mingw-i686.cmake")
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-win32)
