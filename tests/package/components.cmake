# Installs every component of BUILD into a folder of its own below WORK, and wants in each exactly what its package is
# for: LIBRARIES is the folder of libraries, WIDGET and STUDIO whether those are built.
# Each file matches one of the patterns of its component, and each pattern has a file.
set(runtime ${LIBRARIES}/liborvane\\.so\\.1 ${LIBRARIES}/liborvane\\.so\\.1\\.[0-9.]+)
set(tools bin/orvane share/man/man1/orvane\\.1)
set(development include/orvane/[a-z_]+\\.h ${LIBRARIES}/liborvane\\.so ${LIBRARIES}/liborvane\\.a
  ${LIBRARIES}/cmake/Orvane/Orvane.*\\.cmake ${LIBRARIES}/pkgconfig/orvane\\.pc)
set(components runtime tools development)
if(WIDGET)
  list(APPEND components gtk4 introspection)
  set(gtk4 ${LIBRARIES}/liborvane-gtk4\\.so\\.1 ${LIBRARIES}/liborvane-gtk4\\.so\\.1\\.[0-9.]+)
  set(introspection ${LIBRARIES}/girepository-1\\.0/Orvane-1\\.0\\.typelib)
  list(APPEND development include/orvane-gtk4/orvane-gtk\\.h include/orvane-gtk4/orvane-gtk-members\\.h
    ${LIBRARIES}/liborvane-gtk4\\.so ${LIBRARIES}/pkgconfig/orvane-gtk4\\.pc share/gir-1\\.0/Orvane-1\\.0\\.gir)
endif()
if(STUDIO)
  list(APPEND components studio)
  set(studio bin/orvane-studio share/man/man1/orvane-studio\\.1 share/applications/.*\\.desktop share/metainfo/.*
    share/icons/.*)
endif()

# install(FOLDER RESULT [ARGUMENT...]): installs into WORK/FOLDER and lists what came there.
function(install folder result)
  execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/${folder} ${ARGN}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(GLOB_RECURSE files RELATIVE ${WORK}/${folder} ${WORK}/${folder}/*)
  set(${result} ${files} PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
install(everything uncovered)
foreach(component ${components})
  install(${component} files --component ${component})
  list(REMOVE_ITEM uncovered ${files})
  foreach(pattern ${${component}})
    set(before "${files}")
    list(FILTER files EXCLUDE REGEX "^${pattern}$")
    if(files STREQUAL before)
      message(SEND_ERROR "the component ${component} has no ${pattern}")
    endif()
  endforeach()
  if(files)
    message(SEND_ERROR "the component ${component} should not have ${files}")
  endif()
endforeach()
if(uncovered)
  message(SEND_ERROR "in no component: ${uncovered}")
endif()
