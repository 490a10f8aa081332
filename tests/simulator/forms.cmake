target_sources(vantor_ui_tests PRIVATE ${CMAKE_CURRENT_LIST_DIR}/aircraft_commands_test.cpp
                                       ${CMAKE_CURRENT_LIST_DIR}/frmAircraftSub_test.cpp)
