# What Windows reads from a program's file: its icon, its version and, in the manifest, what it asks of the system.
enable_language(RC)
file(STRINGS ${PROJECT_SOURCE_DIR}/LICENSE copyright REGEX "^Copyright")
configure_file(windows/Vantor.rc.in windows/Vantor.rc @ONLY)
add_library(vantor_resources OBJECT ${CMAKE_CURRENT_BINARY_DIR}/windows/Vantor.rc)
set_source_files_properties(
  ${CMAKE_CURRENT_BINARY_DIR}/windows/Vantor.rc
  PROPERTIES OBJECT_DEPENDS
             "${CMAKE_CURRENT_SOURCE_DIR}/windows/Vantor.manifest;${PROJECT_SOURCE_DIR}/packaging/vantor.ico")
