# Debian packages by cpack, one for each install component. scripts/package calls it.
if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  message(FATAL_ERROR "Packages are made for the prefix /usr (preset \"package\")")
endif()
set(ORVANE_PACKAGE_MAINTAINER "The Orvane developers <developers@orvane.invalid>" CACHE STRING
  "Who answers for the packages: Name <address>")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvane)
set(CPACK_PACKAGE_VENDOR Orvane)
set(CPACK_PACKAGE_CONTACT "${ORVANE_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
# Each package describes itself; a summary of the project would be put before every description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE orvane)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# What the programs and libraries call is found by asking them. Orvane's own libraries belong to no installed
# package yet: those dependencies are the components', and ask for the very same version.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src ${PROJECT_BINARY_DIR}/hosts/gtk)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/OrvaneFinishPackages.cmake)

include(${PROJECT_SOURCE_DIR}/cmake/OrvanePackageDocuments.cmake)

# orvane_package(COMPONENT PACKAGE SECTION DESCRIPTION [NEEDS COMPONENT...] [FIELDS FIELD VALUE...])
# DESCRIPTION: one line, then the paragraph. FIELDS: further fields of the package, such as DEPENDS.
macro(orvane_package component package section description)
  cmake_parse_arguments(package "" "" "NEEDS;FIELDS" ${ARGN})
  string(TOUPPER ${component} upper)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_COMPONENT_${upper}_DEPENDS ${package_NEEDS})
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${description}")
  while(package_FIELDS)
    list(POP_FRONT package_FIELDS field value)
    set(CPACK_DEBIAN_${upper}_PACKAGE_${field} "${value}")
  endwhile()
  orvane_package_documents(${component} ${package})
endmacro()

set(trigger ${PROJECT_BINARY_DIR}/triggers)
file(WRITE ${trigger} "activate-noawait ldconfig\n")
set(about "Orvane is a photo-editing control that a program places in one of its windows.
It holds one picture, applies about forty exactly defined filters and colour
operations, and has the tools of a paint program.")

orvane_package(runtime liborvane1 libs "photo-editing control - shared library
${about}
.
This package contains the control's library."
  FIELDS RECOMMENDS fonts-liberation CONTROL_EXTRA ${trigger})

orvane_package(tools orvane graphics "edit pictures from the command line
${about}
.
This package contains the program that runs its arguments as steps on a
picture, or on many."
  FIELDS RECOMMENDS fonts-liberation)

if(ORVANE_BUILD_GTK)
  orvane_package(gtk4 liborvane-gtk4-1 libs "photo-editing control - GTK 4 widget
${about}
.
This package contains the control as a widget."
    NEEDS runtime FIELDS CONTROL_EXTRA ${trigger})
  orvane_package(introspection gir1.2-orvane-1.0 introspection "photo-editing control - GObject introspection data
${about}
.
This package lets Python, JavaScript and other languages use the widget."
    NEEDS gtk4 FIELDS DEPENDS "gir1.2-gtk-4.0 (>= 4.8)")
endif()
if(TARGET orvane_studio)
  # GTK only recommends what it reads icons with.
  orvane_package(studio orvane-studio graphics "paint on and edit pictures
${about}
.
This package contains the desktop program that is made of it."
    NEEDS gtk4 FIELDS DEPENDS librsvg2-common)
endif()

# Whoever links the static library, or asks pkg-config for it, needs everything that it calls.
set(called "libjpeg-dev, libpng-dev, libtiff-dev, libwebp-dev, libgif-dev, libhwy-dev, libpango1.0-dev, libfontconfig-dev")
set(development_of runtime)
if(ORVANE_BUILD_GTK)
  list(APPEND development_of gtk4 introspection)
  string(APPEND called ", libgtk-4-dev (>= 4.8)")
endif()
orvane_package(development liborvane-dev libdevel "photo-editing control - development files
${about}
.
This package contains what is needed to build programs with the control or its
widget, and examples."
  NEEDS ${development_of} FIELDS DEPENDS "${called}")
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/liborvane-dev
  COMPONENT development USE_SOURCE_PERMISSIONS PATTERN build EXCLUDE)

include(CPack)
