# The forms of this room, for vantor_ui.
target_sources(vantor_ui PRIVATE ${CMAKE_CURRENT_LIST_DIR}/fSHAREDProxy.cpp ${CMAKE_CURRENT_LIST_DIR}/fSHAREDUpdater.cpp)
target_link_libraries(vantor_ui PUBLIC vantor_update)
