# GoogleTest: Debian ships its sources, which are cross-built here; on Windows it comes through vcpkg.
if(MSVC)
  find_package(GTest CONFIG REQUIRED)
else()
  set(INSTALL_GTEST OFF CACHE INTERNAL "")
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/third_party/googletest EXCLUDE_FROM_ALL)
endif()
