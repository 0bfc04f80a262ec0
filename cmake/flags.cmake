# What programs that use the libraries share with them; it goes into the package.
add_library(host_requirements INTERFACE)
target_compile_features(host_requirements INTERFACE cxx_std_20)
target_compile_definitions(host_requirements INTERFACE
  WINVER=0x0601 _WIN32_WINNT=0x0601 _WIN32_IE=0x0800  # Windows 7 and later
  NOMINMAX STRICT)
# Exceptions cross the borders of the libraries, so all of them share one C++ runtime.
target_link_options(host_requirements INTERFACE -shared-libgcc)

# What every binary of the project is compiled and linked with.
add_library(project_flags INTERFACE)

target_compile_options(project_flags INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:
    -Wall -Wextra -Werror
    -march=pentium4 -mfpmath=sse
    # The system calls back with a stack aligned to 4 bytes; SSE code needs 16.
    -mstackrealign
    # No path of the building machine in a binary.
    -ffile-prefix-map=${CMAKE_SOURCE_DIR}/=
  >)

target_link_options(project_flags INTERFACE
  LINKER:--large-address-aware LINKER:--dynamicbase LINKER:--nxcompat)

if(ORVANE_CHECKED)
  target_compile_definitions(project_flags INTERFACE ORVANE_CHECKED _GLIBCXX_ASSERTIONS)
  target_compile_options(project_flags INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-fsanitize=undefined -fsanitize-undefined-trap-on-error -fno-sanitize=vptr>)
endif()
