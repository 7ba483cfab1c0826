# zrqt_add_sanitizers(<target>) compiles and links the target with ZRQTPLOTWIDGETS_SANITIZE. A shared library and
# every program that loads it need the same ones.
function(zrqt_add_sanitizers target)
    if(NOT ZRQTPLOTWIDGETS_SANITIZE)
        return()
    endif()
    string(REPLACE ";" "," sanitizers "${ZRQTPLOTWIDGETS_SANITIZE}")
    # An undefined behaviour that is only reported leaves the test green: stop there instead. The check of virtual
    # tables needs the type information of private classes, which the library does not export.
    target_compile_options(${target} PRIVATE
        -fsanitize=${sanitizers} -fno-sanitize=vptr -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${sanitizers})

    get_target_property(type ${target} TYPE)
    if(type STREQUAL EXECUTABLE AND "address" IN_LIST ZRQTPLOTWIDGETS_SANITIZE)
        target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests/shared/qtleaks.cpp)
        target_link_libraries(${target} PRIVATE Qt5::Gui)
    endif()
endfunction()
