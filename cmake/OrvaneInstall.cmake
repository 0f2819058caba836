# What "cmake --install" puts where: headers, both libraries, the CMake package and the pkg-config file. Everything
# belongs to a component, so that packages can be made of it: "runtime" is what programs need, "development" what
# their developers need. Widget, programs and introspection data say theirs where they are built.
include(CMakePackageConfigHelpers)
include(${PROJECT_SOURCE_DIR}/cmake/OrvanePkgConfig.cmake)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Orvane)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/orvane DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT development FILES_MATCHING PATTERN "*.h")
install(TARGETS orvane EXPORT OrvaneTargets
  RUNTIME COMPONENT runtime
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE COMPONENT development)
install(TARGETS orvane_static EXPORT OrvaneStaticTargets ARCHIVE COMPONENT development)
install(EXPORT OrvaneTargets NAMESPACE Orvane:: DESTINATION ${package_dir} COMPONENT development)
install(EXPORT OrvaneStaticTargets NAMESPACE Orvane:: DESTINATION ${package_dir} COMPONENT development)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/OrvaneConfig.cmake.in
  ${PROJECT_BINARY_DIR}/OrvaneConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/OrvaneConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/OrvaneConfig.cmake
  ${PROJECT_BINARY_DIR}/OrvaneConfigVersion.cmake
  ${PROJECT_SOURCE_DIR}/cmake/OrvaneDependencies.cmake
  DESTINATION ${package_dir} COMPONENT development)

list(JOIN ORVANE_PRIVATE_MODULES " " ORVANE_PC_MODULES)
list(JOIN ORVANE_PRIVATE_LIBRARIES " " ORVANE_PC_LIBRARIES)
orvane_install_pkgconfig(orvane)
