# cpack calls this with its finished packages (CPACK_PACKAGE_FILES) and leaves to it what it does otherwise than Debian:
# manual pages and changelogs are compressed, and dpkg's trigger refreshes the linker's cache in place of scripts.

# compress(PATTERN...): packs the matching files, without names or times in them.
function(compress)
  file(GLOB files ${ARGN})
  foreach(file ${files})
    execute_process(COMMAND gzip -9n ${file} COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
endfunction()

# list_checksums(TREE): writes the list by which an installed package can be verified.
function(list_checksums tree)
  file(GLOB_RECURSE files RELATIVE ${tree} ${tree}/usr/*)
  list(SORT files)
  set(lines "")
  foreach(file ${files})
    if(NOT IS_SYMLINK ${tree}/${file})
      file(MD5 ${tree}/${file} sum)
      string(APPEND lines "${sum}  ${file}\n")
    endif()
  endforeach()
  file(WRITE ${tree}/DEBIAN/md5sums "${lines}")
endfunction()

foreach(package ${CPACK_PACKAGE_FILES})
  set(tree ${package}.tree)
  file(REMOVE_RECURSE ${tree})
  execute_process(COMMAND dpkg-deb --raw-extract ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
  compress(${tree}/usr/share/doc/*/changelog* ${tree}/usr/share/man/man*/*.[0-9])
  file(REMOVE ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
  list_checksums(${tree})
  execute_process(COMMAND dpkg-deb --root-owner-group --build ${tree} ${package}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE ${tree})
endforeach()
