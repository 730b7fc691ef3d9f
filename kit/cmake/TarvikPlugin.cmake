# tarvik_add_plugin(NAME SOURCE...): a plug-in library with the kit, which needs no other file at run time. It is built
# into the folder `plugins` of the build folder, under the name by which the host looks for it: all in small letters.
function(tarvik_add_plugin NAME)
  string(TOLOWER ${NAME} FILE)
  add_library(${NAME} MODULE ${ARGN})
  set_target_properties(${NAME} PROPERTIES
    PREFIX "" OUTPUT_NAME ${FILE} SUFFIX .dll
    LIBRARY_OUTPUT_DIRECTORY $<1:${CMAKE_CURRENT_BINARY_DIR}/plugins>  # in every configuration
    MSVC_RUNTIME_LIBRARY MultiThreaded$<$<CONFIG:Debug>:Debug>)
  target_link_libraries(${NAME} PRIVATE Tarvik::Kit)
  if(NOT MSVC)
    target_link_options(${NAME} PRIVATE -static $<$<NOT:$<CONFIG:Debug>>:-s>)
  endif()
endfunction()
