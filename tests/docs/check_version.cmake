# cmake -DSOURCE_DIR=<repository> -DVERSION=<project version> -P check_version.cmake

# The newest entry of the changelog: the first heading of the form "## 1.2.3".
file(STRINGS ${SOURCE_DIR}/CHANGELOG.md headings REGEX "^## ")
if(NOT headings)
    message(FATAL_ERROR "CHANGELOG.md has no entry")
endif()
list(GET headings 0 newest)
if(NOT newest MATCHES "^## ([0-9]+\\.[0-9]+\\.[0-9]+)( |$)")
    message(FATAL_ERROR "The newest entry of CHANGELOG.md names no version: ${newest}")
endif()
if(NOT CMAKE_MATCH_1 VERSION_EQUAL VERSION)
    message(FATAL_ERROR "CHANGELOG.md is at ${CMAKE_MATCH_1}, the project at ${VERSION}")
endif()

string(REPLACE "." ", " numbers ${VERSION})
foreach(definition "ZRQTPLOTWIDGETS_VERSION_STR \"${VERSION}\"" "ZRQTPLOTWIDGETS_VERSION QT_VERSION_CHECK(${numbers})")
    file(READ ${SOURCE_DIR}/ZrQtPlotWidgets/zrqtplotwidgets_global.h header)
    string(FIND "${header}" "#define ${definition}\n" found)
    if(found EQUAL -1)
        message(FATAL_ERROR "zrqtplotwidgets_global.h lacks: #define ${definition}")
    endif()
endforeach()
