# A room is a folder of sources. Rooms are globbed, so that a new file needs no edit here; a room that is still empty
# gives a library without sources.

# room_sources(OUT SOURCES folder... [EXCLUDE regex...]): the .cpp files directly in those folders.
function(room_sources out)
  cmake_parse_arguments(PARSE_ARGV 1 room "" "" "SOURCES;EXCLUDE")
  set(files)
  foreach(folder IN LISTS room_SOURCES)
    file(GLOB found CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/${folder}/*.cpp")
    list(APPEND files ${found})
  endforeach()
  foreach(pattern IN LISTS room_EXCLUDE)
    list(FILTER files EXCLUDE REGEX "${pattern}")
  endforeach()
  set(${out} ${files} PARENT_SCOPE)
endfunction()

# room_library(NAME SOURCES folder... [EXCLUDE regex...]): also sets room_scope_NAME, the scope for its links.
function(room_library name)
  room_sources(files ${ARGN})
  if(files)
    add_library(${name} STATIC ${files})
    set(scope PUBLIC)
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_link_libraries(${name} ${scope} scrubhaven_options)
  set(room_scope_${name} ${scope} PARENT_SCOPE)
endfunction()

# room_executable(NAME LINK library... SOURCES folder... [EXCLUDE regex...]): no sources, no target.
function(room_executable name)
  cmake_parse_arguments(PARSE_ARGV 1 exe "" "" "LINK;SOURCES;EXCLUDE")
  room_sources(files SOURCES ${exe_SOURCES} EXCLUDE ${exe_EXCLUDE})
  if(files)
    add_executable(${name} ${files})
    target_link_libraries(${name} PRIVATE ${exe_LINK} scrubhaven_options)
  endif()
endfunction()
