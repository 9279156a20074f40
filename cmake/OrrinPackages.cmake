# SPDX-License-Identifier: GPL-3.0-or-later
# Debian packages, by `cpack` in the build folder; scripts/check-packages builds and tries them.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orrinsdkqml)
set(CPACK_PACKAGE_VENDOR "Orrinworks")
set(CPACK_PACKAGE_CONTACT "Orrinworks <packages@orrinworks.example>")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development)
foreach(component IN ITEMS viewer demo-server)
  if(TARGET orrin-${component})
    list(APPEND CPACK_COMPONENTS_ALL ${component})
  endif()
endforeach()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
# Libraries lie on the system's own search path there.
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/debian/prepare.cmake")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CPACK_PACKAGE_CONTACT}")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/lib")
set(orrin_same_version "(= ${PROJECT_VERSION})")

# What the QML files import; no library tells it.
set(orrin_qml_modules qml6-module-qtcore qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript qml6-module-qtquick
  qml6-module-qtquick-controls qml6-module-qtquick-dialogs qml6-module-qtquick-effects qml6-module-qtquick-layouts
  qml6-module-qtquick-shapes qml6-module-qtquick-templates qml6-module-qtquick-window
  qml6-module-qt5compat-graphicaleffects qml6-module-qtcharts)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME orrinsdkqml)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS ON)
list(JOIN orrin_qml_modules ", " CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "QML module of a client for video surveillance servers
The QML module orrinsdkqml and the libraries behind it: logins to recorders,
cameras, live and recorded video, events, in objects and components for
Qt Quick. Speaks ONVIF over TLS and RTSP.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME orrinsdkqml-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "orrinsdkqml ${orrin_same_version}, qt6-base-dev (>= 6.8), qt6-declarative-dev (>= 6.8)")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "QML module of a client for video surveillance servers (development)
Headers, CMake packages and pages for hosts of the QML module orrinsdkqml,
and the contract that another SDK behind it would implement.")

set(CPACK_DEBIAN_VIEWER_PACKAGE_NAME orrin-viewer)
set(CPACK_DEBIAN_VIEWER_PACKAGE_SECTION video)
set(CPACK_DEBIAN_VIEWER_PACKAGE_DEPENDS "orrinsdkqml ${orrin_same_version}, qt6-svg-plugins, fonts-dejavu-core")
# The texts of Qt's own dialogs in other languages.
set(CPACK_DEBIAN_VIEWER_PACKAGE_RECOMMENDS qt6-translations-l10n)
set(CPACK_COMPONENT_VIEWER_DESCRIPTION "viewer for video surveillance servers
Logs in to one recorder or a whole site and shows its cameras, live and
recorded, in a grid of tiles.")

set(CPACK_DEBIAN_DEMO-SERVER_PACKAGE_NAME orrin-demo-server)
set(CPACK_DEBIAN_DEMO-SERVER_PACKAGE_SECTION net)
set(CPACK_DEBIAN_DEMO-SERVER_PACKAGE_DEPENDS "gstreamer1.0-plugins-base, gstreamer1.0-plugins-good, gstreamer1.0-plugins-bad, glib-networking")
set(CPACK_COMPONENT_DEMO-SERVER_DESCRIPTION "recorder with painted cameras, to try a viewer with
A site of two recorders with a dozen cameras whose pictures are computed,
over ONVIF and RTSP. Listens on the loopback address unless told otherwise.")

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER "${component}" upper)
  install(FILES "${PROJECT_SOURCE_DIR}/cmake/debian/copyright"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}" COMPONENT ${component})
endforeach()

include(CPack)
