# Debian packages, by tools/deb.sh or by "cpack" in a build folder whose prefix is /usr (the preset "deb"): the library,
# what programs are built with, and the viewer.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "ZrQtPlotWidgets developers")
set(CPACK_PACKAGE_CONTACT "ZrQtPlotWidgets developers <zrqtplotwidgets@localhost>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL Runtime Development)
if(ZRQTPLOTWIDGETS_BUILD_VIEWER)
    list(APPEND CPACK_COMPONENTS_ALL Viewer)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/ZrQtPlotWidgets)
# Programs that are packaged against the library depend on its version or a newer one.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(runtime libzrqtplotwidgets${PROJECT_VERSION_MAJOR})
set(same_version "${runtime} (= ${PROJECT_VERSION})")

# The Designer plug-in is in here, since programs that load forms at run time need it, too.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "Plots with axes, channels that the user can edit, and an overview slider, as
widgets for programs on Qt 5 and for Qt Designer.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzrqtplotwidgets-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${same_version}, qtbase5-dev (>= 5.15)")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "qttools5-dev-tools")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "Development files: headers, and what CMake, pkg-config
and qmake need to find the library.")

set(CPACK_DEBIAN_VIEWER_PACKAGE_NAME zrqtplot-viewer)
set(CPACK_DEBIAN_VIEWER_PACKAGE_SECTION science)
set(CPACK_DEBIAN_VIEWER_PACKAGE_DEPENDS "${same_version}")
set(CPACK_DEBIAN_VIEWER_DESCRIPTION "A viewer that plots the columns of CSV files; pans, zooms
and reads values off the plot.")

include(CPack)
