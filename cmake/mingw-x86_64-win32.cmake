# The program: the threads model that needs nothing beyond the Windows API.
include("${CMAKE_CURRENT_LIST_DIR}/mingw-x86_64.cmake")
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-win32)
