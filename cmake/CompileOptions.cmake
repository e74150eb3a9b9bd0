# Flags of the whole build, and `scrubhaven_options` with those that hold for our own sources only.

if(SCRUBHAVEN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

add_library(scrubhaven_options INTERFACE)
target_include_directories(scrubhaven_options INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_options(scrubhaven_options INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wnon-virtual-dtor;-Woverloaded-virtual;-Werror>)

if(WIN32)
  # The oldest processor of the 32-bit program is a Pentium II; the compilers' own libraries ask for as much.
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL i686)
    target_compile_options(scrubhaven_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-march=i686;-mtune=generic>)
  endif()
  # The oldest system is Windows 95, with the common controls of its browser update; text is ANSI.
  target_compile_definitions(scrubhaven_options INTERFACE
    _WIN32_WINNT=0x0400 WINVER=0x0400 _WIN32_IE=0x0400 WIN32_LEAN_AND_MEAN NOMINMAX)
  # Functions that an old Windows may lack are bound at run time, which casts FARPROC to their own type.
  target_compile_options(scrubhaven_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-cast-function-type>)
endif()
