# Third-party libraries. On Windows they come through vcpkg; on Debian from the distribution and from npm.
if(MSVC)
  find_package(miniz CONFIG REQUIRED)
  find_package(nlohmann_json CONFIG REQUIRED)
  find_package(CLI11 CONFIG REQUIRED)
  return()
endif()

set(MINIZ_DIR ${CMAKE_SOURCE_DIR}/node_modules/miniz.c)
add_library(miniz STATIC ${MINIZ_DIR}/miniz.c)
target_include_directories(miniz SYSTEM PUBLIC ${MINIZ_DIR})
target_compile_definitions(miniz PUBLIC MINIZ_NO_STDIO)
target_compile_options(miniz PRIVATE -O2 -w -ffunction-sections -fdata-sections)
add_library(miniz::miniz ALIAS miniz)

# tarvik_header_library(NAME ALIAS FOLDER): a header-only library of the distribution. The headers work for every
# target, but targets must see only this one folder of the native include path.
function(tarvik_header_library NAME ALIAS FOLDER)
  set(ROOT ${CMAKE_BINARY_DIR}/third_party/${NAME})
  get_filename_component(LINK ${FOLDER} NAME)
  file(MAKE_DIRECTORY ${ROOT})
  file(CREATE_LINK ${FOLDER} ${ROOT}/${LINK} SYMBOLIC)
  add_library(${NAME} INTERFACE)
  target_include_directories(${NAME} SYSTEM INTERFACE ${ROOT})
  add_library(${ALIAS} ALIAS ${NAME})
endfunction()

tarvik_header_library(nlohmann_json nlohmann_json::nlohmann_json /usr/include/nlohmann)
tarvik_header_library(cli11 CLI11::CLI11 /usr/include/CLI)
target_compile_definitions(cli11 INTERFACE CLI11_HAS_FILESYSTEM=0)  # smaller; its file checks are not used
