# What "cmake --install" puts where: headers, both libraries, the CMake package and the pkg-config file.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Orvane)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/orvane DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
install(TARGETS orvane EXPORT OrvaneTargets)
install(TARGETS orvane_static EXPORT OrvaneStaticTargets)
install(EXPORT OrvaneTargets NAMESPACE Orvane:: DESTINATION ${package_dir})
install(EXPORT OrvaneStaticTargets NAMESPACE Orvane:: DESTINATION ${package_dir})

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/OrvaneConfig.cmake.in
  ${PROJECT_BINARY_DIR}/OrvaneConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/OrvaneConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/OrvaneConfig.cmake
  ${PROJECT_BINARY_DIR}/OrvaneConfigVersion.cmake
  ${PROJECT_SOURCE_DIR}/cmake/OrvaneDependencies.cmake
  DESTINATION ${package_dir})

# Paths in orvane.pc start at the file's own place, so that the whole prefix can be moved.
file(RELATIVE_PATH ORVANE_PC_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" ORVANE_PC_TO_PREFIX "${ORVANE_PC_TO_PREFIX}")
list(JOIN ORVANE_PRIVATE_MODULES " " ORVANE_PC_MODULES)
list(JOIN ORVANE_PRIVATE_LIBRARIES " " ORVANE_PC_LIBRARIES)
configure_file(${PROJECT_SOURCE_DIR}/cmake/orvane.pc.in ${PROJECT_BINARY_DIR}/orvane.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orvane.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
