# Builds examples/c against the copy installed in STAGE, and then uses it as the tests of the examples do.
# ROAD: cmake or pkgconfig.
file(REMOVE_RECURSE ${WORK})
file(COPY ${SOURCES}/ DESTINATION ${WORK}/source)
set(flags -Wl,-rpath,${STAGE}/${LIBRARIES})

if(ROAD STREQUAL pkgconfig)
  set(ENV{PKG_CONFIG_PATH} ${STAGE}/${LIBRARIES}/pkgconfig)
  execute_process(COMMAND pkg-config --cflags --libs orvane-gtk4 OUTPUT_VARIABLE found COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(found UNIX_COMMAND "${found}")
  execute_process(COMMAND ${CC} source/viewer.c ${found} ${flags} -o viewer
    WORKING_DIRECTORY ${WORK} COMMAND_ERROR_IS_FATAL ANY)
else()
  execute_process(COMMAND ${CMAKE_COMMAND} -S source -B . -G ${GENERATOR} -D CMAKE_PREFIX_PATH=${STAGE}
    -D CMAKE_C_COMPILER=${CC} -D CMAKE_CXX_COMPILER=${CXX}
    WORKING_DIRECTORY ${WORK} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} --build . WORKING_DIRECTORY ${WORK} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()

set(ENV{ORVANE_EXAMPLE_VIEWER} ${WORK}/viewer)
execute_process(COMMAND ${USE} WORKING_DIRECTORY ${WORK} COMMAND_ERROR_IS_FATAL ANY)
