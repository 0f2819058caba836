# Builds examples/first_program against the copy installed in STAGE and runs it on PICTURE.
# ROAD: shared, static (the CMake package's two targets) or pkgconfig.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/source)
# A copy far from the project's own headers, as in a user's folder.
file(COPY ${SOURCES}/main.cpp ${SOURCES}/CMakeLists.txt DESTINATION ${WORK}/source)

if(ROAD STREQUAL pkgconfig)
  set(ENV{PKG_CONFIG_PATH} ${STAGE}/${LIBRARIES}/pkgconfig)
  execute_process(COMMAND pkg-config --cflags --libs orvane OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  execute_process(COMMAND ${CXX} -std=c++20 source/main.cpp ${flags} -Wl,-rpath,${STAGE}/${LIBRARIES} -o first_program
    WORKING_DIRECTORY ${WORK} COMMAND_ERROR_IS_FATAL ANY)
else()
  if(ROAD STREQUAL static)
    file(READ ${WORK}/source/CMakeLists.txt text)
    string(REPLACE "Orvane::orvane" "Orvane::orvane_static" text "${text}")
    file(WRITE ${WORK}/source/CMakeLists.txt "${text}")
  endif()
  execute_process(COMMAND ${CMAKE_COMMAND} -S source -B . -G ${GENERATOR}
    -D CMAKE_PREFIX_PATH=${STAGE} -D CMAKE_CXX_COMPILER=${CXX}
    WORKING_DIRECTORY ${WORK} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} --build . WORKING_DIRECTORY ${WORK} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()

execute_process(COMMAND ./first_program ${PICTURE} result.png WORKING_DIRECTORY ${WORK}
  OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
if(NOT printed MATCHES "^96 x 64 pixels\nshown at ")
  message(FATAL_ERROR "the first program printed:\n${printed}")
endif()
file(READ ${WORK}/result.png magic LIMIT 8 HEX)
if(NOT magic STREQUAL 89504e470d0a1a0a)
  message(FATAL_ERROR "result.png is not a PNG file: it begins with ${magic}")
endif()

execute_process(COMMAND ./first_program ${WORK}/missing.png result.png WORKING_DIRECTORY ${WORK}
  RESULT_VARIABLE status ERROR_QUIET)
if(NOT status EQUAL 1)
  message(FATAL_ERROR "a missing picture should end the first program with 1, not ${status}")
endif()
