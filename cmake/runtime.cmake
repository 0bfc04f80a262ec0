# Copies the shared runtime libraries beside the programs: the compiler's, and zlib.
execute_process(
  COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++-6.dll
  OUTPUT_VARIABLE libstdcxx OUTPUT_STRIP_TRAILING_WHITESPACE)
get_filename_component(compiler_runtime ${libstdcxx} DIRECTORY)

set(runtime_libraries
  ${compiler_runtime}/libgcc_s_dw2-1.dll
  ${compiler_runtime}/libstdc++-6.dll
  /usr/i686-w64-mingw32/lib/libwinpthread-1.dll
  /usr/i686-w64-mingw32/lib/zlib1.dll)
foreach(runtime ${runtime_libraries})
  get_filename_component(name ${runtime} NAME)
  configure_file(${runtime} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name} COPYONLY)
endforeach()

find_package(ZLIB REQUIRED)
