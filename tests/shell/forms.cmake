target_sources(
  vantor_ui_tests
  PRIVATE ${CMAKE_CURRENT_LIST_DIR}/application_settings_test.cpp ${CMAKE_CURRENT_LIST_DIR}/fSHAREDErrorRpt_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/tool_buttons_test.cpp ${CMAKE_CURRENT_LIST_DIR}/splash_about_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/frmSettings_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/frmMain_load_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/frmMain_lists_test.cpp ${CMAKE_CURRENT_LIST_DIR}/frmMain_window_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/update_commands_test.cpp)
if(NOT WIN32) # a program there is started by its own file
  target_sources(vantor_ui_tests PRIVATE ${CMAKE_CURRENT_LIST_DIR}/program_path_test.cpp)
endif()
set_source_files_properties(
  ${CMAKE_CURRENT_LIST_DIR}/update_commands_test.cpp TARGET_DIRECTORY vantor_ui_tests
  PROPERTIES COMPILE_DEFINITIONS "VANTOR_UPDATE_SERVER=\"${VANTOR_UPDATE_SERVER}\"")
