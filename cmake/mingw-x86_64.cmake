# 64-bit, loadable by the first 64-bit Windows: XP x64 and Server 2003 x64.
set(MINGW_PROCESSOR x86_64)
set(OLDEST_WINDOWS 5.2)
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")
