# scrubhaven.exe, and the program folder as it is installed.

file(GLOB resource_script CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/resources/scrubhaven.rc")
file(GLOB resource_parts CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/resources/*")
file(GLOB main_source CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/console/main.cpp")
if(NOT main_source)
  message(STATUS "console/main.cpp is not there yet: no program to build")
  return()
endif()

add_executable(scrubhaven WIN32 ${main_source} ${resource_script})
target_link_libraries(scrubhaven PRIVATE win32_machine)
target_link_options(scrubhaven PRIVATE -s)
if(resource_script)
  # windres names no dependencies, so every file beside the script counts as one.
  set_source_files_properties(${resource_script} PROPERTIES OBJECT_DEPENDS "${resource_parts}"
    INCLUDE_DIRECTORIES "${CMAKE_SOURCE_DIR};${CMAKE_SOURCE_DIR}/resources")
endif()

file(GLOB sounds CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/resources/*.wav")
file(GLOB help_files CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/help/*.chm")
install(TARGETS scrubhaven RUNTIME DESTINATION .)
install(FILES ${sounds} DESTINATION resources)
install(FILES ${help_files} DESTINATION .)
# Scripts that the program has the system run at the next start.
file(GLOB companions CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/companions/*.cmd")
install(FILES ${companions} DESTINATION .)

# Laid out afresh at every build, so that nothing stays behind from an earlier one.
add_custom_target(app ALL
  COMMAND "${CMAKE_COMMAND}" -E rm -rf "${SCRUBHAVEN_APP_DIR}"
  COMMAND "${CMAKE_COMMAND}" -DCMAKE_INSTALL_PREFIX=${SCRUBHAVEN_APP_DIR} -DCMAKE_INSTALL_MESSAGE=NEVER
          -P "${CMAKE_BINARY_DIR}/cmake_install.cmake"
  DEPENDS scrubhaven
  COMMENT "Laying out the program folder"
  VERBATIM)

enable_testing()
add_test(NAME program_loads_on_windows_95
  COMMAND "${CMAKE_SOURCE_DIR}/scripts/check_program.sh" "$<TARGET_FILE:scrubhaven>")
