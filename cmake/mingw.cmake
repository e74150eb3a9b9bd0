# Common part of the four Windows toolchains. MINGW_PROCESSOR (i686 or x86_64) and OLDEST_WINDOWS (the version in the
# program's header, such as 4.0) are set before. Everything is linked in.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${MINGW_PROCESSOR})

set(CMAKE_RC_COMPILER ${MINGW_PROCESSOR}-w64-mingw32-windres)
string(REPLACE "." ";" oldest ${OLDEST_WINDOWS})
list(GET oldest 0 major)
list(GET oldest 1 minor)
set(CMAKE_EXE_LINKER_FLAGS_INIT
  "-static -static-libgcc -static-libstdc++ -Wl,--major-subsystem-version,${major},--minor-subsystem-version,${minor} -Wl,--major-os-version,${major},--minor-os-version,${minor}")

set(CMAKE_FIND_ROOT_PATH /usr/${MINGW_PROCESSOR}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
