# The traffic tool's stand-in as a Windows program: where the tests run on Windows it is the one they start, elsewhere it
# runs through a real Wine when that and the compiler for Windows are there.
set(stand_in_source ${CMAKE_CURRENT_SOURCE_DIR}/support/stand_in_tool.cpp)
if(WIN32)
  add_executable(stand_in_tool ${stand_in_source})
  target_link_libraries(stand_in_tool PRIVATE vantor_options)
  add_dependencies(vantor_logic_tests stand_in_tool)
  set(stand_in_file ${CMAKE_CURRENT_BINARY_DIR}/stand_in_tool.exe)
  if(CMAKE_CROSSCOMPILING)
    string(PREPEND stand_in_file "Z:") # as Wine shows it
  endif()
  target_compile_definitions(vantor_test_support PUBLIC VANTOR_STAND_IN_TOOL="${stand_in_file}")
  return()
endif()

find_program(WINDOWS_CXX x86_64-w64-mingw32-g++-posix)
find_program(WINE wine)
if(NOT WINDOWS_CXX OR NOT WINE)
  message(STATUS "No tests with a real Wine: it or the compiler for Windows is missing")
  return()
endif()
set(stand_in_file ${CMAKE_CURRENT_BINARY_DIR}/stand_in_tool.exe)
add_custom_command(
  OUTPUT ${stand_in_file}
  COMMAND ${WINDOWS_CXX} -std=c++20 -O1 -static -s -o ${stand_in_file} ${stand_in_source}
  DEPENDS ${stand_in_source}
  VERBATIM)
add_executable(vantor_wine_tests simulator/tool_under_wine_test.cpp ${stand_in_file})
target_compile_definitions(vantor_wine_tests PRIVATE VANTOR_STAND_IN_TOOL="${stand_in_file}")
target_link_libraries(vantor_wine_tests PRIVATE vantor_test_support)
# The prefix is this script's.
set_target_properties(vantor_wine_tests PROPERTIES CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/scripts/with-wine)
gtest_discover_tests(vantor_wine_tests DISCOVERY_TIMEOUT 120 PROPERTIES LABELS wine)
