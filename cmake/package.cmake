# What a host developer receives: `cmake --install` puts it into a folder, tools/package makes an
# archive of that.
#
#   bin/            the libraries, what they need beside them, and the host programs
#   lib/            import libraries; cmake/orvane is what find_package(orvane) finds
#   include/        the headers of the library and of the framework
#   cmake/          the toolchain file
#   docs/ examples/ licences/
include(CMakePackageConfigHelpers)

# The host programs, whichever there are in a folder and below it.
function(collect_programs folder result)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(target ${targets})
    get_target_property(type ${target} TYPE)
    if(type STREQUAL EXECUTABLE)
      list(APPEND ${result} ${target})
    endif()
  endforeach()
  foreach(subfolder ${folders})
    collect_programs(${subfolder} ${result})
  endforeach()
  set(${result} ${${result}} PARENT_SCOPE)
endfunction()
set(hosts)
collect_programs(hosts hosts)

set(package_libraries orvane framework framework_extension framework_program)
add_custom_target(package_contents)
add_dependencies(package_contents ${package_libraries} ${hosts})

install(TARGETS ${package_libraries} host_requirements EXPORT orvane
  RUNTIME DESTINATION bin
  ARCHIVE DESTINATION lib
  OBJECTS DESTINATION lib)
install(TARGETS ${hosts} DESTINATION bin)

# The compiler's libraries come with many times their size in debug information.
foreach(library ${runtime_libraries})
  get_filename_component(name ${library} NAME)
  install(FILES ${library} DESTINATION bin)
  install(CODE "execute_process(COMMAND ${CMAKE_STRIP} --strip-debug \
\"\${CMAKE_INSTALL_PREFIX}/bin/${name}\" COMMAND_ERROR_IS_FATAL ANY)")
endforeach()

install(DIRECTORY framework/include/ DESTINATION include/framework)
install(CODE "set(source_folder \"${PROJECT_SOURCE_DIR}/orvane\")")
install(SCRIPT cmake/install_headers.cmake)

set(package_config ${PROJECT_BINARY_DIR}/package)
configure_package_config_file(cmake/orvane-config.cmake.in ${package_config}/orvane-config.cmake
  INSTALL_DESTINATION lib/cmake/orvane)
write_basic_package_version_file(${package_config}/orvane-config-version.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${package_config}/orvane-config.cmake ${package_config}/orvane-config-version.cmake
  DESTINATION lib/cmake/orvane)
install(EXPORT orvane NAMESPACE orvane:: FILE orvane-targets.cmake DESTINATION lib/cmake/orvane)
install(FILES cmake/mingw-i686.cmake cmake/orvane-toolchain.cmake DESTINATION cmake)

install(DIRECTORY docs examples DESTINATION . PATTERN docs/api EXCLUDE)
install(FILES README.md THIRD-PARTY.md DESTINATION .)
install(FILES LICENSE DESTINATION . OPTIONAL)

# The texts of the licences, from the packages that the binaries come from.
foreach(licence
    zlib=/usr/share/doc/libz-mingw-w64/copyright
    gcc-runtime=/usr/share/doc/gcc-mingw-w64-i686-posix-runtime/copyright
    mingw-w64=/usr/share/doc/mingw-w64-i686-dev/copyright
    GPL-3=/usr/share/common-licenses/GPL-3)
  string(REPLACE "=" ";" licence ${licence})
  list(GET licence 0 name)
  list(GET licence 1 file)
  install(FILES ${file} DESTINATION licences RENAME ${name}.txt)
endforeach()
