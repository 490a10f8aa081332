# The forms of this room, for vantor_ui.
target_sources(vantor_ui PRIVATE ${CMAKE_CURRENT_LIST_DIR}/frmChart.cpp ${CMAKE_CURRENT_LIST_DIR}/frmMap.cpp
                                 ${CMAKE_CURRENT_LIST_DIR}/frmSchedulePrint.cpp)
