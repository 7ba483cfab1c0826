# Makes the Debian packages, looks at what they say and hold, and unpacks them into BUILD_DIR/root.
cmake_minimum_required(VERSION 3.19)

file(REMOVE_RECURSE ${BUILD_DIR})
execute_process(
    COMMAND ${CPACK} -G DEB -C "${CONFIG}" -B ${BUILD_DIR} -D CPACK_PACKAGING_INSTALL_PREFIX=/usr
    WORKING_DIRECTORY ${PROJECT_DIR} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

# Unpacks the one package of that name, and sets <result> to "./path;./path;..." of what is in it.
function(unpack name result)
    file(GLOB package ${BUILD_DIR}/${name}_${VERSION}_*.deb)
    list(LENGTH package count)
    if(NOT count EQUAL 1)
        message(FATAL_ERROR "Packages of the name ${name}: ${package}")
    endif()
    execute_process(COMMAND ${DPKG_DEB} -x ${package} ${BUILD_DIR}/root COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND ${DPKG_DEB} --fsys-tarfile ${package}
        COMMAND ${CMAKE_COMMAND} -E tar t /dev/stdin OUTPUT_VARIABLE files COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "\n" ";" files "${files}")
    set(${result} "${files}" PARENT_SCOPE)
endfunction()

# check_depends(<package> <regular expression>...)
function(check_depends name)
    file(GLOB package ${BUILD_DIR}/${name}_${VERSION}_*.deb)
    execute_process(COMMAND ${DPKG_DEB} -f ${package} Depends OUTPUT_VARIABLE depends COMMAND_ERROR_IS_FATAL ANY)
    foreach(expected IN LISTS ARGN)
        if(NOT ", ${depends}" MATCHES ", ${expected}")
            message(FATAL_ERROR "${name} does not depend on ${expected}, but on ${depends}")
        endif()
    endforeach()
    if(depends MATCHES "designer|uitools|xml")
        message(FATAL_ERROR "${name} depends on ${depends}")
    endif()
endfunction()

# check_files(<list> <regular expression>...): each must be there, and nothing else but folders may.
function(check_files files)
    foreach(expected IN LISTS ARGN)
        set(found ${files})
        list(FILTER found INCLUDE REGEX "^\\./usr/${expected}$")
        if(NOT found)
            message(FATAL_ERROR "${expected} is missing among ${files}")
        endif()
        list(FILTER files EXCLUDE REGEX "^\\./usr/${expected}$")
    endforeach()
    list(FILTER files EXCLUDE REGEX "/$")
    list(FILTER files EXCLUDE REGEX "^$")
    if(files)
        message(FATAL_ERROR "In the package, too: ${files}")
    endif()
endfunction()

set(lib "lib(/[^/]*-linux-[^/]*)?")
set(runtime libzrqtplotwidgets${SOVERSION})
string(REPLACE "." "\\." version ${VERSION})
unpack(${runtime} files)
check_files("${files}" "${lib}/libZrQtPlotWidgets\\.so\\.${SOVERSION}" "${lib}/libZrQtPlotWidgets\\.so\\.${version}"
    "${lib}/qt5/plugins/designer/libZrQtPlotWidgets\\.so")
check_depends(${runtime} "libqt5core5a \\(>= 5\\.15" libqt5gui5 libqt5widgets5 libstdc\\+\\+6 libc6)

# Programs that are packaged against the library find there what to depend on.
file(GLOB package ${BUILD_DIR}/${runtime}_${VERSION}_*.deb)
execute_process(COMMAND ${DPKG_DEB} -I ${package} shlibs OUTPUT_VARIABLE shlibs COMMAND_ERROR_IS_FATAL ANY)
if(NOT shlibs MATCHES "libZrQtPlotWidgets ${SOVERSION} ${runtime} \\(>= ${version}\\)")
    message(FATAL_ERROR "The package says of its library: ${shlibs}")
endif()

unpack(libzrqtplotwidgets-dev files)
check_files("${files}" "include/ZrQtPlotWidgets/[A-Za-z_]+(\\.h)?" "${lib}/cmake/ZrQtPlotWidgets/[A-Za-z-]+\\.cmake"
    "${lib}/libZrQtPlotWidgets\\.so" "${lib}/pkgconfig/ZrQtPlotWidgets\\.pc"
    "${lib}/qt5/mkspecs/features/zrqtplotwidgets\\.prf")
check_depends(libzrqtplotwidgets-dev "${runtime} \\(= ${version}\\)" "qtbase5-dev \\(>= 5\\.15\\)")

if(VIEWER)
    unpack(zrqtplot-viewer files)
    check_files("${files}" "bin/zrqtplot-viewer")
    check_depends(zrqtplot-viewer "${runtime} \\(= ${version}\\)" libcsv3)
endif()

set(plugins qt5/plugins/designer/libZrQtPlotWidgets.so)
file(GLOB plugin ${BUILD_DIR}/root/usr/lib/${plugins} ${BUILD_DIR}/root/usr/lib/*/${plugins})
if(NOT EXISTS "${plugin}")
    message(FATAL_ERROR "The link in Designer's folder leads nowhere: ${plugin}")
endif()
