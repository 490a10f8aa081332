target_sources(vantor_ui_tests PRIVATE ${CMAKE_CURRENT_LIST_DIR}/utilities_panel_test.cpp)
