# Builds and runs a program with what pkg-config tells of the installed package.
cmake_minimum_required(VERSION 3.19)

file(REMOVE_RECURSE ${BUILD_DIR})
file(MAKE_DIRECTORY ${BUILD_DIR})
set(lib_dir ${PREFIX}/${LIB_DIR})
set(ENV{PKG_CONFIG_PATH} ${lib_dir}/pkgconfig)

function(ask result)
    execute_process(COMMAND ${PKG_CONFIG} ${ARGN} ZrQtPlotWidgets
        OUTPUT_VARIABLE answer OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(answer UNIX_COMMAND "${answer}")
    set(${result} "${answer}" PARENT_SCOPE)
endfunction()

ask(version --modversion)
if(NOT version VERSION_EQUAL VERSION)
    message(FATAL_ERROR "pkg-config knows version ${version}, not ${VERSION}")
endif()
ask(flags --cflags)
ask(libraries --libs)
# Qt itself asks for -fPIC.
execute_process(COMMAND ${CXX} -std=c++17 -fPIC ${flags} ${SOURCE} -o ${BUILD_DIR}/consumer ${libraries}
    COMMAND_ERROR_IS_FATAL ANY)
set(ENV{LD_LIBRARY_PATH} ${lib_dir}:$ENV{LD_LIBRARY_PATH})
execute_process(COMMAND ${BUILD_DIR}/consumer COMMAND_ERROR_IS_FATAL ANY)
