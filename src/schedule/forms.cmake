# The forms of this room. They belong to the window's library, which is made after the rooms of the logic.
target_sources(
  vantor_ui
  PRIVATE ${CMAKE_CURRENT_LIST_DIR}/frmFind.cpp
          ${CMAKE_CURRENT_LIST_DIR}/frmFind.h
          ${CMAKE_CURRENT_LIST_DIR}/frmFind.ui
          ${CMAKE_CURRENT_LIST_DIR}/frmSchedEdit.cpp
          ${CMAKE_CURRENT_LIST_DIR}/frmSchedEdit.h
          ${CMAKE_CURRENT_LIST_DIR}/frmSchedEdit.ui)
