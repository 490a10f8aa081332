target_sources(
  vantor_ui_tests
  PRIVATE ${CMAKE_CURRENT_LIST_DIR}/combo_box_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/dialogs_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/list_box_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/picture_box_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/qt_host_test.cpp)
