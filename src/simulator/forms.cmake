target_sources(vantor_ui PRIVATE ${CMAKE_CURRENT_LIST_DIR}/frmAircraftSub.cpp)
