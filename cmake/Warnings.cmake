# zrqt_add_checks(<target>...) gives our own targets the warnings that the project keeps free of, and the
# sanitizers of the build. Nothing of it reaches those who use the library.
function(zrqt_add_checks)
    foreach(target IN LISTS ARGN)
        if(MSVC)
            target_compile_options(${target} PRIVATE /W4)
        else()
            # Qt's containers are indexed with int: sign conversions are noise.
            target_compile_options(${target} PRIVATE
                -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion)
        endif()
        if(ZRQTPLOTWIDGETS_WARNINGS_AS_ERRORS)
            target_compile_options(${target} PRIVATE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
        endif()
        zrqt_add_sanitizers(${target})
    endforeach()
endfunction()
