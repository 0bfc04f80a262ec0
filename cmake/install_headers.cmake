# Installs the headers that programs may include: those that declare something which the library
# exports, what they include in turn, and the ids of the library's texts. The others are the
# library's own.
cmake_minimum_required(VERSION 3.25)

file(GLOB_RECURSE headers RELATIVE ${source_folder} ${source_folder}/*.h)
set(waiting resources/resource.h)
foreach(header ${headers})
  file(STRINGS ${source_folder}/${header} exports REGEX "ORVANE_API" LIMIT_COUNT 1)
  if(exports)
    list(APPEND waiting ${header})
  endif()
endforeach()

set(public)
while(waiting)
  list(POP_FRONT waiting header)
  if(NOT header IN_LIST public)
    list(APPEND public ${header})
    file(STRINGS ${source_folder}/${header} includes REGEX "^#include \"")
    foreach(include ${includes})
      string(REGEX REPLACE "^#include \"([^\"]*)\".*" "\\1" include ${include})
      list(APPEND waiting ${include})
    endforeach()
  endif()
endwhile()

foreach(header ${public})
  get_filename_component(folder ${header} DIRECTORY)
  file(INSTALL ${source_folder}/${header} DESTINATION ${CMAKE_INSTALL_PREFIX}/include/orvane/${folder})
endforeach()
