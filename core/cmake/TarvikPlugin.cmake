# tarvik_configure_core(TARGET CONTRACT): the options and libraries of the core, here and in an author's project.
function(tarvik_configure_core TARGET CONTRACT)
  target_compile_features(${TARGET} PUBLIC cxx_std_20)
  target_link_libraries(${TARGET} PUBLIC ${CONTRACT} ole32 oleaut32 shlwapi uuid)
  set_target_properties(${TARGET} PROPERTIES MSVC_RUNTIME_LIBRARY MultiThreaded$<$<CONFIG:Debug>:Debug>)
endfunction()

# tarvik_add_plugin(NAME SOURCE...): a plug-in library with the core. It needs no other file at run time. It is built in
# the folder `plugins` of the build folder, under NAME in lower case, because the host looks for "*.dll" in lower case.
function(tarvik_add_plugin NAME)
  string(TOLOWER ${NAME} FILE)
  add_library(${NAME} MODULE ${ARGN})
  set_target_properties(${NAME} PROPERTIES
    PREFIX "" OUTPUT_NAME ${FILE} SUFFIX .dll
    LIBRARY_OUTPUT_DIRECTORY $<1:${CMAKE_CURRENT_BINARY_DIR}/plugins>  # in every configuration
    MSVC_RUNTIME_LIBRARY MultiThreaded$<$<CONFIG:Debug>:Debug>)
  target_link_libraries(${NAME} PRIVATE Tarvik::Core)
  if(NOT MSVC)
    target_link_options(${NAME} PRIVATE -static $<$<NOT:$<CONFIG:Debug>>:-s>)
  endif()
endfunction()
