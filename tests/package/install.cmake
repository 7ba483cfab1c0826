# Installs the build into STAGE and moves it to MOVED: nothing in an installation may know where it was made.
file(REMOVE_RECURSE ${STAGE} ${MOVED})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --config "${CONFIG}" --prefix ${STAGE}
    RESULT_VARIABLE result OUTPUT_QUIET)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "cmake --install failed")
endif()
file(RENAME ${STAGE} ${MOVED})

file(GLOB_RECURSE texts ${MOVED}/*.cmake ${MOVED}/*.h ${MOVED}/*.pc ${MOVED}/*.prf)
foreach(text IN LISTS texts)
    file(READ ${text} content)
    foreach(path ${STAGE} ${BUILD_DIR})
        string(FIND "${content}" "${path}" found)
        if(NOT found EQUAL -1)
            message(FATAL_ERROR "${text} contains ${path}")
        endif()
    endforeach()
endforeach()
