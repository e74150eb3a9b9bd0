# 32-bit, loadable by Windows 95.
set(MINGW_PROCESSOR i686)
set(OLDEST_WINDOWS 4.0)
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")
