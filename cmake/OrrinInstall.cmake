# SPDX-License-Identifier: GPL-3.0-or-later
# What `cmake --install` puts where. Included behind all targets.
#
#   lib/                       the SDK's libraries and the module's
#   lib/qt6/qml/orrinsdkqml/   the QML module: qmldir, types, plugin, components
#   lib/cmake/                 packages orrincontract, orrinsdk, orrinsdkqml
#   include/orrinsdkqml/       headers of the module and of the contract
#   share/orrinsdkqml/shaders/ shaders, as sources and compiled
#   bin/                       orrin-viewer, orrin-demo-server
#
# Components: runtime, development, viewer, demo-server. The tree may be moved: nothing in it names its place or the build folder.

include(CMakePackageConfigHelpers)

set(orrin_include_dir "${CMAKE_INSTALL_INCLUDEDIR}/orrinsdkqml")
set(orrin_cmake_dir "${CMAKE_INSTALL_LIBDIR}/cmake")
set(orrin_qml_dir "${CMAKE_INSTALL_LIBDIR}/qt6/qml")
set(orrin_data_dir "${CMAKE_INSTALL_DATADIR}/orrinsdkqml")

# orrin_set_search_path(<target> <its folder> <folder searched> …): where the installed target finds libraries, by its own place.
function(orrin_set_search_path target folder)
  set(paths)
  foreach(searched IN LISTS ARGN)
    file(RELATIVE_PATH relative "/prefix/${folder}" "/prefix/${searched}")
    if(relative STREQUAL "")
      list(APPEND paths "$ORIGIN")
    else()
      list(APPEND paths "$ORIGIN/${relative}")
    endif()
  endforeach()
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "${paths}" INSTALL_RPATH_USE_LINK_PATH OFF)
endfunction()

# Libraries and packages
set(orrin_sdk_libraries)
if(ORRIN_SDK STREQUAL "bundled")
  set(orrin_sdk_libraries orrinsdk-util orrinsdk-codecs orrinsdk-core orrinsdk-gui)
endif()
foreach(target IN LISTS orrin_sdk_libraries ITEMS orrinsdkqml)
  orrin_set_search_path(${target} "${CMAKE_INSTALL_LIBDIR}" "${CMAKE_INSTALL_LIBDIR}")
endforeach()
orrin_set_search_path(orrinsdkqmlplugin "${orrin_qml_dir}/orrinsdkqml" "${CMAKE_INSTALL_LIBDIR}")

install(TARGETS orrin_contract EXPORT orrincontract)
if(orrin_sdk_libraries)
  install(TARGETS ${orrin_sdk_libraries} EXPORT orrinsdk
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development)
endif()
install(TARGETS orrinsdkqml EXPORT orrinsdkqml
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development)

set(orrin_packages orrincontract orrinsdkqml)
if(orrin_sdk_libraries)
  list(APPEND orrin_packages orrinsdk)
endif()
foreach(package IN LISTS orrin_packages)
  install(EXPORT ${package} NAMESPACE orrin:: FILE ${package}-targets.cmake
    DESTINATION "${orrin_cmake_dir}/${package}" COMPONENT development)
  set(orrin_path_variables)
  if(package STREQUAL "orrinsdkqml")
    set(orrin_path_variables PATH_VARS orrin_qml_dir orrin_data_dir)
  endif()
  configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/${package}-config.cmake.in"
    "${PROJECT_BINARY_DIR}/package/${package}-config.cmake"
    INSTALL_DESTINATION "${orrin_cmake_dir}/${package}" ${orrin_path_variables})
  write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/${package}-config-version.cmake"
    COMPATIBILITY SameMinorVersion)
  install(FILES
    "${PROJECT_BINARY_DIR}/package/${package}-config.cmake"
    "${PROJECT_BINARY_DIR}/package/${package}-config-version.cmake"
    DESTINATION "${orrin_cmake_dir}/${package}" COMPONENT development)
endforeach()

# Headers: what a host may include. Private headers and those that need Qt's private ones stay at home.
foreach(folder IN ITEMS module resources video support)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/${folder}" DESTINATION "${orrin_include_dir}" COMPONENT development
    FILES_MATCHING PATTERN "*.h"
    PATTERN "*_p.h" EXCLUDE
    PATTERN "contract" EXCLUDE
    PATTERN "logsetup.h" EXCLUDE
    PATTERN "qmlvideodisplayrenderer.h" EXCLUDE)
endforeach()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/module/contract" DESTINATION "${orrin_include_dir}" COMPONENT development
  FILES_MATCHING PATTERN "*.h")

# The QML module. The engine takes the components from the library; the files are for tools and people.
get_target_property(orrin_qml_output orrinsdkqml QT_QML_MODULE_OUTPUT_DIRECTORY)
install(TARGETS orrinsdkqmlplugin
  LIBRARY DESTINATION "${orrin_qml_dir}/orrinsdkqml" COMPONENT runtime
  RUNTIME DESTINATION "${orrin_qml_dir}/orrinsdkqml" COMPONENT runtime)
install(FILES "${orrin_qml_output}/qmldir" "${orrin_qml_output}/orrinsdkqml.qmltypes"
  DESTINATION "${orrin_qml_dir}/orrinsdkqml" COMPONENT runtime)
get_target_property(orrin_qml_files orrinsdkqml QT_QML_MODULE_QML_FILES)
set(orrin_qml_folders)
foreach(file IN LISTS orrin_qml_files)
  file(RELATIVE_PATH path "${PROJECT_SOURCE_DIR}/qml" "${file}")
  get_filename_component(folder "${path}" DIRECTORY)
  install(FILES "${file}" DESTINATION "${orrin_qml_dir}/orrinsdkqml/${folder}" COMPONENT runtime)
  list(APPEND orrin_qml_folders "${folder}")
endforeach()
list(REMOVE_DUPLICATES orrin_qml_folders)
foreach(folder IN LISTS orrin_qml_folders)
  install(FILES "${orrin_qml_output}/${folder}/qmldir"
    DESTINATION "${orrin_qml_dir}/orrinsdkqml/${folder}" COMPONENT runtime)
endforeach()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/qml/resources" DESTINATION "${orrin_qml_dir}/orrinsdkqml" COMPONENT runtime
  FILES_MATCHING PATTERN "*.svg" PATTERN "*.png")

# Shaders
get_target_property(orrin_module_build orrinsdkqml BINARY_DIR)
install(FILES
  "${PROJECT_SOURCE_DIR}/shaders/yuv.vert" "${PROJECT_SOURCE_DIR}/shaders/yuv.frag"
  "${orrin_module_build}/.qsb/yuv.vert.qsb" "${orrin_module_build}/.qsb/yuv.frag.qsb"
  DESTINATION "${orrin_data_dir}/shaders" COMPONENT development)

# Programs; their own folders install the executables.
if(TARGET orrin-viewer)
  orrin_set_search_path(orrin-viewer "${CMAKE_INSTALL_BINDIR}"
    "${CMAKE_INSTALL_LIBDIR}/orrin-viewer" "${CMAKE_INSTALL_LIBDIR}")
  foreach(target IN ITEMS orrin-viewer-ui orrin-viewer-host)
    if(TARGET ${target})
      orrin_set_search_path(${target} "${CMAKE_INSTALL_LIBDIR}/orrin-viewer"
        "${CMAKE_INSTALL_LIBDIR}/orrin-viewer" "${CMAKE_INSTALL_LIBDIR}")
    endif()
  endforeach()
  set(orrin_viewer_id org.orrinworks.Viewer)
  set(orrin_viewer_package "${PROJECT_SOURCE_DIR}/apps/viewer/package")
  install(FILES "${orrin_viewer_package}/${orrin_viewer_id}.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT viewer)
  install(FILES "${orrin_viewer_package}/${orrin_viewer_id}.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT viewer)
  install(FILES "${orrin_viewer_package}/${orrin_viewer_id}.svg"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" COMPONENT viewer)
endif()
if(TARGET orrin-demo-server)
  orrin_set_search_path(orrin-demo-server "${CMAKE_INSTALL_BINDIR}" "${CMAKE_INSTALL_LIBDIR}")
endif()

# Licence and pages
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/orrinsdkqml" COMPONENT runtime)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs/" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/orrinsdkqml-dev"
  COMPONENT development FILES_MATCHING PATTERN "*.md" PATTERN "*.svg")
