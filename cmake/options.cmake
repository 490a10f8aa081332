# What every target is built with: the language level, the warnings, the sanitizers and the Qt definitions.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

add_library(vantor_options INTERFACE)
target_compile_features(vantor_options INTERFACE cxx_std_20)
set(CMAKE_CXX_EXTENSIONS OFF)
target_compile_options(vantor_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
                                                -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies in every optimised `literal + std::string` (its bug 105329).
  target_compile_options(vantor_options INTERFACE -Wno-restrict)
endif()
if(VANTOR_WERROR)
  target_compile_options(vantor_options INTERFACE -Werror)
endif()
if(VANTOR_FUZZ)
  target_compile_options(vantor_options INTERFACE -fsanitize-coverage-ignorelist=${PROJECT_SOURCE_DIR}/fuzz/unwatched.txt)
endif()
if(VANTOR_SANITIZE)
  target_compile_options(vantor_options INTERFACE -fsanitize=${VANTOR_SANITIZE} -fno-omit-frame-pointer
                                                  -fno-sanitize-recover=all)
  target_link_options(vantor_options INTERFACE -fsanitize=${VANTOR_SANITIZE})
endif()
target_compile_definitions(
  vantor_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CONTEXTLESS_CONNECT QT_USE_QSTRINGBUILDER
                           QT_NO_KEYWORDS)
