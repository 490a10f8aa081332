target_sources(
  vantor_ui_tests
  PRIVATE ${CMAKE_CURRENT_LIST_DIR}/random_walk_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/reentry_test.cpp)
set_source_files_properties(
  ${CMAKE_CURRENT_LIST_DIR}/random_walk_test.cpp
  TARGET_DIRECTORY vantor_ui_tests PROPERTIES COMPILE_DEFINITIONS "VANTOR_UPDATE_SERVER=\"${VANTOR_UPDATE_SERVER}\"")
