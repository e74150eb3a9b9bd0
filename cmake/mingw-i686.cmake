# Common part of the two Windows toolchains: 32-bit, everything linked in, loadable by Windows 95 (subsystem 4.0).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)

set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT
  "-static -static-libgcc -static-libstdc++ -Wl,--major-subsystem-version,4,--minor-subsystem-version,0 -Wl,--major-os-version,4,--minor-os-version,0")

set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
