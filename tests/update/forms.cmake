target_sources(vantor_ui_tests PRIVATE ${CMAKE_CURRENT_LIST_DIR}/proxy_form_test.cpp
                                       ${CMAKE_CURRENT_LIST_DIR}/updater_form_test.cpp)
