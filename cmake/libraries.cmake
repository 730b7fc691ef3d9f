# Third-party libraries. On Windows they come through vcpkg; on Debian from the distribution and from npm.
if(MSVC)
  find_package(miniz CONFIG REQUIRED)
  find_package(nlohmann_json CONFIG REQUIRED)
  return()
endif()

set(MINIZ_DIR ${CMAKE_SOURCE_DIR}/node_modules/miniz.c)
add_library(miniz STATIC ${MINIZ_DIR}/miniz.c)
target_include_directories(miniz SYSTEM PUBLIC ${MINIZ_DIR})
target_compile_definitions(miniz PUBLIC MINIZ_NO_STDIO)
target_compile_options(miniz PRIVATE -O2 -w -ffunction-sections -fdata-sections)
add_library(miniz::miniz ALIAS miniz)

# The headers work for every target, but targets must see only this one folder of the native include path.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/third_party/json)
file(CREATE_LINK /usr/include/nlohmann ${CMAKE_BINARY_DIR}/third_party/json/nlohmann SYMBOLIC)
add_library(nlohmann_json INTERFACE)
target_include_directories(nlohmann_json SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/third_party/json)
add_library(nlohmann_json::nlohmann_json ALIAS nlohmann_json)
