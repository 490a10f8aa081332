target_sources(vantor_ui_tests PRIVATE ${CMAKE_CURRENT_LIST_DIR}/proxy_form_test.cpp
                                       ${CMAKE_CURRENT_LIST_DIR}/updater_form_test.cpp)
if(UNIX)
  target_sources(vantor_ui_tests PRIVATE ${CMAKE_CURRENT_LIST_DIR}/updater_servers_test.cpp)
  set_source_files_properties(
    ${CMAKE_CURRENT_LIST_DIR}/updater_servers_test.cpp TARGET_DIRECTORY vantor_ui_tests
    PROPERTIES COMPILE_DEFINITIONS
               "VANTOR_TEST_PYTHON=\"${VANTOR_TEST_PYTHON}\";VANTOR_TEST_SERVERS=\"${CMAKE_CURRENT_LIST_DIR}/servers.py\"")
endif()
