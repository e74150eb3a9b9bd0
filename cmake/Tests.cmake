# Natively: unit and contract tests against the machine in memory, and the lint checks.
# On Windows: contract tests against the real machine and desktop tests, each run in its own sealed Wine prefix.

set(scripts "${CMAKE_SOURCE_DIR}/scripts")

# sealed_wine_test(NAME SECONDS): one ctest entry for a whole Windows test program; starting Wine for each case would
# cost more than the cases.
function(sealed_wine_test name seconds)
  if(TARGET ${name})
    add_test(NAME wine.${name} COMMAND "${scripts}/wine_test.sh" ${seconds} ${name} "$<TARGET_FILE:${name}>")
    # The script ends everything itself when its time is up; this is for the script.
    math(EXPR seconds_with_cleanup "${seconds} + 60")
    set_tests_properties(wine.${name} PROPERTIES TIMEOUT ${seconds_with_cleanup} LABELS wine)
  endif()
endfunction()

if(NOT WIN32)
  room_executable(unit_tests LINK memory_machine gmock_main SOURCES tests/unit tests/support
    EXCLUDE "_win32\\.cpp$")
  room_executable(contract_tests LINK memory_machine gmock_main SOURCES tests/contract tests/support
    EXCLUDE "_win32\\.cpp$")
  foreach(program unit_tests contract_tests)
    if(TARGET ${program})
      gtest_discover_tests(${program} TEST_PREFIX "${program}." PROPERTIES TIMEOUT 60 DISCOVERY_TIMEOUT 60)
    endif()
  endforeach()

  add_test(NAME lint.format COMMAND "${scripts}/format.sh" --check)
  add_test(NAME lint.seal COMMAND "${CMAKE_SOURCE_DIR}/tests/scripts/seal_test.sh")
  set_tests_properties(lint.format lint.seal PROPERTIES TIMEOUT 120)
  add_test(NAME wine.companions COMMAND "${CMAKE_SOURCE_DIR}/tests/scripts/companions_test.sh")
  set_tests_properties(wine.companions PROPERTIES TIMEOUT 180 LABELS wine)
else()
  room_executable(contract_tests LINK win32_machine gmock_main wininet SOURCES tests/contract tests/support
    EXCLUDE "_memory\\.cpp$")
  room_executable(desktop_tests LINK gmock_main user32 gdi32 comctl32 shell32 advapi32 wininet SOURCES tests/desktop
    EXCLUDE "/demo_main\\.cpp$")
  room_executable(demo LINK user32 gdi32 comctl32 shell32 advapi32 SOURCES tests/desktop
    EXCLUDE "_test\\.cpp$")
  sealed_wine_test(contract_tests 120)
  sealed_wine_test(desktop_tests 240)
  if(TARGET desktop_tests)
    # A window grows no larger than its screen, and one of these must.
    set_tests_properties(wine.desktop_tests PROPERTIES ENVIRONMENT SCRUBHAVEN_SCREEN=1600x1200)
  endif()
  # The older family deletes keys with their subkeys, stores texts in its own way, and has narrow calls only.
  if(TARGET contract_tests)
    add_test(NAME wine.windows_98 COMMAND "${scripts}/wine_test.sh" 60 windows_98
      "$<TARGET_FILE:contract_tests>" "--gtest_filter=RegistryContract.*:ScriptContract.*:Enumeration.*:ForeignNames.*")
    set_tests_properties(wine.windows_98 PROPERTIES TIMEOUT 120 LABELS wine
      ENVIRONMENT SCRUBHAVEN_VERSION=win98)
  endif()
endif()
