# Natively: unit and contract tests on the machine in memory, and the lint checks.
# On Windows: contract tests on the real machine and desktop tests, each in a sealed Wine prefix of its own.
# Each test program is one ctest entry: a start of Wine costs more than most cases, and natively a start of the
# sanitizers does. The costs order the first run (the longest entries start first); later runs are ordered by what ctest
# has measured.

# GoogleTest is built from Debian's sources with this build's own compiler and flags: the library package is neither
# instrumented by the sanitizers nor made for Windows.
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(GOOGLETEST_DIR "/usr/src/googletest" CACHE PATH "GoogleTest sources")
add_subdirectory("${GOOGLETEST_DIR}" "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)

set(scripts "${CMAKE_SOURCE_DIR}/scripts")
set(test_scripts "${CMAKE_SOURCE_DIR}/tests/scripts")

# sealed_wine_test(ENTRY PROGRAM SECONDS [ARGUMENT...]): adds the ctest entry wine.ENTRY. 64-bit programs run on a 64-bit
# Windows.
function(sealed_wine_test entry program seconds)
  math(EXPR bits "${CMAKE_SIZEOF_VOID_P} * 8")
  add_test(NAME wine.${entry}
    COMMAND "${scripts}/wine_test.sh" ${seconds} ${entry} "$<TARGET_FILE:${program}>" ${ARGN})
  # The script ends everything itself when its time is up; this limit is for the script.
  math(EXPR seconds_with_cleanup "${seconds} + 60")
  set_tests_properties(wine.${entry} PROPERTIES TIMEOUT ${seconds_with_cleanup} LABELS wine
    ENVIRONMENT_MODIFICATION SCRUBHAVEN_BITS=set:${bits})
endfunction()

file(GLOB contract CONFIGURE_DEPENDS tests/contract/*.cpp)
if(WIN32)
  list(FILTER contract EXCLUDE REGEX "_memory\\.cpp$")
  add_executable(contract_tests ${contract})
  target_link_libraries(contract_tests PRIVATE machine gmock_main wininet)

  file(GLOB desktop CONFIGURE_DEPENDS tests/desktop/*.cpp)
  set(driver driver/Driver.cpp)
  add_executable(desktop_tests ${desktop} ${driver})
  target_link_libraries(desktop_tests PRIVATE scrubhaven_options gmock_main
    user32 gdi32 comctl32 shell32 advapi32 wininet)

  # This file asks for a newer Windows than the others.
  set_source_files_properties(tests/contract/test_machine_win32.cpp PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  compile_by_folder(contract_tests)
  compile_by_folder(desktop_tests)

  # A window cannot be larger than its screen, and a layout test needs a large one.
  set(screen SCRUBHAVEN_SCREEN=1600x1200)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    sealed_wine_test(contract_tests_64 contract_tests 120)
    # A few of the desktop tests are enough for every day. `./test all` runs what has the label `whole` too.
    sealed_wine_test(desktop_core_64 desktop_tests 120
      "--gtest_filter=SettingsTest.*:ShredderTest.*:ConsoleTest.JunkIsFound*:ConsoleTest.TheSystemFolder*")
    sealed_wine_test(desktop_tests_64 desktop_tests 240)
    set_tests_properties(wine.desktop_tests_64 PROPERTIES COST 40 ENVIRONMENT ${screen} LABELS "wine;whole")
    return()
  endif()

  add_executable(demo demo/main.cpp ${driver})
  add_executable(screenshots EXCLUDE_FROM_ALL demo/screenshots.cpp ${driver})
  foreach(program demo screenshots)
    target_link_libraries(${program} PRIVATE scrubhaven_options user32 gdi32 comctl32 shell32 advapi32 wininet)
  endforeach()

  sealed_wine_test(desktop_tests desktop_tests 240)
  set_tests_properties(wine.desktop_tests PROPERTIES COST 40 ENVIRONMENT ${screen})
  sealed_wine_test(contract_tests contract_tests 120)
  # The Windows 98 family deletes keys with their subkeys, stores texts in its own way, and has narrow calls only.
  sealed_wine_test(windows_98 contract_tests 60
    "--gtest_filter=RegistryContract.*:ScriptContract.*:Enumeration.*:ForeignNames.*")
  set_tests_properties(wine.windows_98 PROPERTIES ENVIRONMENT SCRUBHAVEN_VERSION=win98)
  # Second bytes of the Japanese code page's characters have meanings in paths.
  sealed_wine_test(code_page_932 contract_tests 60 "--gtest_filter=ForeignNames.*")
  set_tests_properties(wine.code_page_932 PROPERTIES ENVIRONMENT SCRUBHAVEN_LOCALE=ja_JP)
else()
  list(FILTER contract EXCLUDE REGEX "_win32\\.cpp$")
  add_executable(contract_tests ${contract})
  file(GLOB unit CONFIGURE_DEPENDS tests/unit/*.cpp)
  add_executable(unit_tests ${unit})
  target_compile_definitions(unit_tests PRIVATE SCRUBHAVEN_RESOURCES="${CMAKE_SOURCE_DIR}/resources")
  foreach(program unit_tests contract_tests)
    target_link_libraries(${program} PRIVATE machine gmock_main)
    # What is tested is checked for undefined behaviour; in the tests' own code the checks double the time of the build.
    target_compile_options(${program} PRIVATE -fno-sanitize=undefined)
    target_precompile_headers(${program} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
    add_test(NAME native.${program} COMMAND ${program} --gtest_brief=1)
    set_tests_properties(native.${program} PROPERTIES TIMEOUT 120)
  endforeach()
  set_tests_properties(native.unit_tests PROPERTIES COST 20)
  add_test(NAME native.windows_98
    COMMAND contract_tests --gtest_brief=1 "--gtest_filter=RegistryContract.*:ScriptContract.*")
  set_tests_properties(native.windows_98 PROPERTIES ENVIRONMENT SCRUBHAVEN_VERSION=win98 TIMEOUT 120)

  add_test(NAME lint.format COMMAND "${scripts}/format.sh" --check)
  add_test(NAME lint.layers COMMAND "${test_scripts}/layers_test.sh")
  add_test(NAME lint.help COMMAND "${test_scripts}/help_test.sh")
  add_test(NAME lint.seal COMMAND "${test_scripts}/seal_test.sh")
  add_test(NAME wine.companions COMMAND "${test_scripts}/companions_test.sh")
  set_tests_properties(lint.format lint.layers lint.help lint.seal wine.companions PROPERTIES TIMEOUT 180)
  set_tests_properties(wine.companions PROPERTIES COST 10 LABELS wine)
  # Lays out the program folders anew, from which other tests copy.
  add_test(NAME wine.package COMMAND "${test_scripts}/package_test.sh")
  set_tests_properties(wine.package PROPERTIES TIMEOUT 900 LABELS "wine;whole" RUN_SERIAL TRUE)
endif()
