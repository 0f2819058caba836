# Every Debian package tells its licence and its history, in files of a form that Debian knows.
file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence)
string(REGEX MATCH "Copyright \\(c\\) ([^\n]*)\n\n(.*[^\n])" licence "${licence}")
set(copyright "${CMAKE_MATCH_1}")
string(REPLACE "\n\n" "\n.\n" licence "${CMAKE_MATCH_2}")
string(REPLACE "\n" "\n " licence "${licence}")
file(WRITE ${PROJECT_BINARY_DIR}/copyright
"Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: Orvane

Files: *
Copyright: ${copyright}
License: Expat

License: Expat
 ${licence}
")

# The date is that of SOURCE_DATE_EPOCH when it is set, so that the same source gives the same packages.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE ${PROJECT_BINARY_DIR}/changelog.Debian
"orvane (${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * Packages of version ${PROJECT_VERSION}; its changes are in changelog.

 -- ${ORVANE_PACKAGE_MAINTAINER}  ${date}
")

# orvane_package_documents(COMPONENT PACKAGE): installs them with the component. They are compressed later on.
function(orvane_package_documents component package)
  set(folder ${CMAKE_INSTALL_DATADIR}/doc/${package})
  install(FILES ${PROJECT_BINARY_DIR}/copyright ${PROJECT_BINARY_DIR}/changelog.Debian
    DESTINATION ${folder} COMPONENT ${component})
  install(FILES ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION ${folder} RENAME changelog COMPONENT ${component})
endfunction()
