target_sources(
  vantor_ui_tests
  PRIVATE ${CMAKE_CURRENT_LIST_DIR}/find_form_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/schedule_buttons_form_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/schedule_editor_form_test.cpp)
