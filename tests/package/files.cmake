# Every public header is installed, with a forwarding header for each class in it, and no private one is.
set(include_dir ${PREFIX}/${INCLUDE_DIR}/ZrQtPlotWidgets)

file(GLOB expected RELATIVE ${SOURCE_DIR}/ZrQtPlotWidgets ${SOURCE_DIR}/ZrQtPlotWidgets/*.h)
list(FILTER expected EXCLUDE REGEX "_p\\.h$")
foreach(header IN LISTS expected)
    file(STRINGS ${SOURCE_DIR}/ZrQtPlotWidgets/${header} declarations REGEX "^class ZRQTPLOTWIDGETS_EXPORT ")
    foreach(declaration IN LISTS declarations)
        string(REGEX REPLACE "^class ZRQTPLOTWIDGETS_EXPORT ([A-Za-z]+).*" "\\1" class "${declaration}")
        list(APPEND expected ${class})
    endforeach()
endforeach()

file(GLOB_RECURSE installed RELATIVE ${include_dir} ${include_dir}/*)
list(SORT expected)
list(SORT installed)
if(NOT installed STREQUAL expected)
    message(FATAL_ERROR "Installed headers: ${installed}\nexpected: ${expected}")
endif()
