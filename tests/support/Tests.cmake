# One line per test program.
#
#   rule_test(Name source...)      plain C++ against the rules of the plug-in
#   panel_test(Name source...)     Objective-C++ in a process that loads the built bundle,
#                                  under a virtual display
#
# Both look for <Name>.cpp / the given sources in the calling folder.

set(WITH_DISPLAY ${CMAKE_SOURCE_DIR}/tests/support/with-display)

function(rule_test name)
  add_executable(${name} ${ARGN})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE page_settings_rules House::Flags GTest::gtest_main)
  gtest_discover_tests(${name} PROPERTIES LABELS rules TIMEOUT 300)
endfunction()

# Compiled once for all panel tests.
add_library(panel_test_support OBJECT EXCLUDE_FROM_ALL
  ${CMAKE_SOURCE_DIR}/tests/support/PanelTest.mm
  ${CMAKE_SOURCE_DIR}/tests/support/PanelTestMain.mm
  ${CMAKE_SOURCE_DIR}/tests/support/PanelTestPrinting.mm
  ${CMAKE_SOURCE_DIR}/tests/support/PPDText.cpp)
target_include_directories(panel_test_support PUBLIC ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/tests)
target_link_libraries(panel_test_support PUBLIC printing_platform Toolkit::GUI Toolkit::CUPS
  House::Flags GTest::gtest ${CMAKE_DL_LIBS})
target_compile_definitions(panel_test_support PUBLIC
  PLUGIN_PATH="${CMAKE_BINARY_DIR}/PageSettings.plugin" SOURCE_FOLDER="${CMAKE_SOURCE_DIR}")

function(panel_test name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE panel_test_support page_settings_rules)
  # Lets a test put its own version of a printing call in front of the library's.
  set_target_properties(${name} PROPERTIES ENABLE_EXPORTS ON)
  add_dependencies(${name} PageSettings)
  # One process for the whole program: loading the bundle and a display for each single test would
  # cost more than the tests.
  add_test(NAME ${name} COMMAND ${WITH_DISPLAY} $<TARGET_FILE:${name}>)
  set_tests_properties(${name} PROPERTIES LABELS display TIMEOUT 600)
endfunction()
