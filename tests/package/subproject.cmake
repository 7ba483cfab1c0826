# Configures a project that contains this one: only the library must appear in it.
file(REMOVE_RECURSE ${BUILD_DIR})
execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${PROJECT_DIR} -B ${BUILD_DIR} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX}
        -DQt5_DIR=${QT_DIR} -DZRQTPLOTWIDGETS_SOURCE_DIR=${SOURCE_DIR}
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "The project cannot be configured")
endif()
