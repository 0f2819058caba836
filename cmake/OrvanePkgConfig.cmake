# orvane_install_pkgconfig(NAME): fills cmake/NAME.pc.in and installs it as NAME.pc. Paths in it start at the file's
# own place, so that the whole prefix can be moved.
function(orvane_install_pkgconfig name)
  file(RELATIVE_PATH ORVANE_PC_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  string(REGEX REPLACE "/$" "" ORVANE_PC_TO_PREFIX "${ORVANE_PC_TO_PREFIX}")
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()
