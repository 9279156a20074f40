# SPDX-License-Identifier: GPL-3.0-or-later
# Options of the build, and the target orrin::options with what every target of the project is compiled with.

set(ORRIN_SDK "bundled" CACHE STRING "\"bundled\", or the path of another implementation's package")
option(ORRIN_BUILD_DEMO_SERVER "Build the demo server" ON)
option(ORRIN_BUILD_VIEWER "Build the viewer" ON)
option(ORRIN_BUILD_TESTS "Build the tests" ON)
option(ORRIN_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(ORRIN_BUILD_FUZZERS "Build the fuzz targets (clang)" OFF)
option(ORRIN_WERROR "Treat warnings as errors" OFF)
option(ORRIN_QUICK_LINK "Link with mold where it is installed" OFF)
set(ORRIN_SANITIZE "" CACHE STRING "Sanitizers, e.g. address,undefined or thread")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # Paths below the checkout count as relative, so that all build folders and clones share what was compiled.
  get_filename_component(orrin_top "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
  set(orrin_launcher "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${orrin_top}" CCACHE_NOHASHDIR=1
    CCACHE_SLOPPINESS=include_file_mtime,include_file_ctime,time_macros "${CCACHE_PROGRAM}")
  set(CMAKE_C_COMPILER_LAUNCHER "${orrin_launcher}")
  set(CMAKE_CXX_COMPILER_LAUNCHER "${orrin_launcher}")
endif()

if(ORRIN_QUICK_LINK)
  find_program(MOLD_PROGRAM mold)
  if(MOLD_PROGRAM)
    set(CMAKE_LINKER_TYPE MOLD)
  endif()
endif()

add_library(orrin_options INTERFACE)
add_library(orrin::options ALIAS orrin_options)
target_compile_definitions(orrin_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_FOREACH QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_CONTEXTLESS_CONNECT
  QT_DISABLE_DEPRECATED_UP_TO=0x060800)
target_compile_options(orrin_options INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual)
if(ORRIN_WERROR)
  target_compile_options(orrin_options INTERFACE -Werror)
endif()
if(ORRIN_SANITIZE)
  add_compile_options(-fsanitize=${ORRIN_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ORRIN_SANITIZE})
  add_library(orrin_sanitizer_defaults OBJECT "${CMAKE_CURRENT_LIST_DIR}/sanitizers/defaults.cpp")
  link_libraries("$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:$<TARGET_OBJECTS:orrin_sanitizer_defaults>>")
endif()
