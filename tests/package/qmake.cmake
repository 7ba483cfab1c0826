# Builds and runs a program with qmake and the installed feature: by its name, or by its path.
cmake_minimum_required(VERSION 3.19)

file(REMOVE_RECURSE ${BUILD_DIR})
if(WAY STREQUAL feature)
    set(ENV{QMAKEFEATURES} ${FEATURES})
    set(use "CONFIG += zrqtplotwidgets")
else()
    set(use "include(${FEATURES}/zrqtplotwidgets.prf)")
endif()
# On purpose without a word on QT: the feature brings what it needs.
file(WRITE ${BUILD_DIR}/consumer.pro "TARGET = consumer\nCONFIG -= app_bundle\nSOURCES += ${SOURCE}\n${use}\n")
execute_process(COMMAND ${QMAKE} QMAKE_CXX=${CXX} QMAKE_LINK=${CXX} WORKING_DIRECTORY ${BUILD_DIR}
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${MAKE} WORKING_DIRECTORY ${BUILD_DIR} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${BUILD_DIR}/consumer COMMAND_ERROR_IS_FATAL ANY)
