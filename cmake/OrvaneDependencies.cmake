# The libraries that Orvane itself calls. Part of the build, and installed beside the package's configuration,
# because a program that links the static library has to find them again.
#
# Orvane::dependencies: link this for all of them. Missing when one is not there and ORVANE_FIND_MODE is QUIET.
# ORVANE_PRIVATE_MODULES, ORVANE_PRIVATE_LIBRARIES: the same for orvane.pc.
find_package(PkgConfig ${ORVANE_FIND_MODE})
find_package(GIF ${ORVANE_FIND_MODE})
set(ORVANE_PRIVATE_MODULES libjpeg libpng libtiff-4 libwebp libhwy pangocairo pangoft2 fontconfig)
set(ORVANE_PRIVATE_LIBRARIES -lgif)  # has no pkg-config file of its own everywhere

if(PkgConfig_FOUND AND NOT TARGET Orvane::dependencies)
  pkg_check_modules(ORVANE_MODULES ${ORVANE_FIND_MODE} IMPORTED_TARGET ${ORVANE_PRIVATE_MODULES})
  if(GIF_FOUND AND ORVANE_MODULES_FOUND)
    add_library(Orvane::dependencies INTERFACE IMPORTED)
    target_link_libraries(Orvane::dependencies INTERFACE PkgConfig::ORVANE_MODULES GIF::GIF)
  endif()
endif()
