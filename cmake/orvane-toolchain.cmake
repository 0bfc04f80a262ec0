# The toolchain file for programs that use this package: with it, find_package(orvane) finds the
# package that the file lies in, wherever that is.
#
#   cmake -S . -B build --toolchain PACKAGE/cmake/orvane-toolchain.cmake
include("${CMAKE_CURRENT_LIST_DIR}/mingw-i686.cmake")
list(APPEND CMAKE_FIND_ROOT_PATH "${CMAKE_CURRENT_LIST_DIR}/..")
