target_sources(vantor_ui_tests PRIVATE ${CMAKE_CURRENT_LIST_DIR}/printing_test.cpp
                                       ${CMAKE_CURRENT_LIST_DIR}/view_windows_test.cpp)
