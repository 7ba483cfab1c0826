# Builds and runs a project that finds the installed package.
file(REMOVE_RECURSE ${BUILD_DIR})
execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${BUILD_DIR} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX}
        "-DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}" -DCMAKE_BUILD_TYPE=${CONFIG} -DCMAKE_PREFIX_PATH=${PREFIX}
        -DQt5_DIR=${QT_DIR} -DEXPECTED_VERSION=${VERSION} -DEXPECTED_PREFIX=${PREFIX}
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "The consumer cannot be configured")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD_DIR} --config "${CONFIG}" RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "The consumer cannot be built")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD_DIR} --config "${CONFIG}" --target run
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "The consumer fails")
endif()
