target_sources(
  vantor_ui_tests PRIVATE ${CMAKE_CURRENT_LIST_DIR}/chart_form_test.cpp ${CMAKE_CURRENT_LIST_DIR}/map_form_test.cpp
                          ${CMAKE_CURRENT_LIST_DIR}/printing_test.cpp)
