# tarvik_library(NAME SOURCES a.cpp b.cpp USES lib1 lib2)
#
# One library per folder; its headers are included by their path from the root ("script/object.h"). A library sees
# only its own headers and those of the libraries in USES, because each library has its own include root in the
# build folder, with a single link. So an include against the layers does not compile.
function(tarvik_library NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  if(ARG_SOURCES)
    add_library(${NAME} STATIC ${ARG_SOURCES})
    set(SCOPE PUBLIC)
    target_link_libraries(${NAME} PRIVATE tarvik_compiler)
  else()
    add_library(${NAME} INTERFACE)
    set(SCOPE INTERFACE)
  endif()
  tarvik_include_root(ROOT)
  target_include_directories(${NAME} ${SCOPE} $<BUILD_INTERFACE:${ROOT}>)
  target_link_libraries(${NAME} ${SCOPE} ${ARG_USES})
  set_property(GLOBAL APPEND PROPERTY TARVIK_LIBRARIES ${NAME})
endfunction()

# tarvik_embed_text(OUTPUT CONSTANT FILE...): generates a source file that contains the text of the files.
function(tarvik_embed_text OUTPUT CONSTANT)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE FILES)
  list(JOIN FILES "," INPUTS)
  set(SCRIPT ${CMAKE_SOURCE_DIR}/cmake/embed_text.cmake)
  add_custom_command(
    OUTPUT ${OUTPUT}
    BYPRODUCTS ${OUTPUT}.txt ${OUTPUT}.gz
    COMMAND ${CMAKE_COMMAND} -DINPUTS=${INPUTS} -DOUTPUT=${OUTPUT} -DNAME=${CONSTANT} -P ${SCRIPT}
    DEPENDS ${FILES} ${SCRIPT})
  set_source_files_properties(${OUTPUT} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
endfunction()

# tarvik_plugin(NAME SOURCES ... USES ...): a built-in plug-in. It is an object library, because nothing refers
# to it by name: its static initializer registers it, and a linker takes no such file from a static library.
function(tarvik_plugin NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(plugin_${NAME} OBJECT ${ARG_SOURCES})
  tarvik_include_root(ROOT)
  target_include_directories(plugin_${NAME} PUBLIC ${ROOT})
  target_link_libraries(plugin_${NAME} PRIVATE tarvik_compiler)
  target_link_libraries(plugin_${NAME} PUBLIC base log script contract host_plugin_registry ${ARG_USES})
  set_property(GLOBAL APPEND PROPERTY TARVIK_PLUGINS plugin_${NAME})
  set_property(GLOBAL APPEND PROPERTY TARVIK_LIBRARIES plugin_${NAME})
endfunction()

# tarvik_link_plugins(TARGET): links every built-in plug-in, with its dependencies.
function(tarvik_link_plugins TARGET)
  get_property(PLUGINS GLOBAL PROPERTY TARVIK_PLUGINS)
  target_link_libraries(${TARGET} PRIVATE ${PLUGINS})
endfunction()

# tarvik_glob(GLOB or GLOB_RECURSE OUT PATTERN...): as file(). A file that is added or removed changes its folder's time, and
# CMake runs again; CONFIGURE_DEPENDS would search the folders, and report that, in every build.
function(tarvik_glob MODE OUT)
  file(${MODE} FILES ${ARGN})
  set(FOLDERS "")
  foreach(FILE ${FILES})
    get_filename_component(FOLDER ${FILE} DIRECTORY)
    list(APPEND FOLDERS ${FOLDER})
  endforeach()
  list(REMOVE_DUPLICATES FOLDERS)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${FOLDERS})
  set(${OUT} ${FILES} PARENT_SCOPE)
endfunction()

function(tarvik_include_root OUT)
  if(CMAKE_HOST_WIN32)
    # Creating links requires a privilege on Windows; continuous integration checks the layers on Debian.
    set(${OUT} ${CMAKE_SOURCE_DIR} PARENT_SCOPE)
    return()
  endif()
  file(RELATIVE_PATH FOLDER ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  string(REPLACE "/" "_" LABEL ${FOLDER})
  set(ROOT ${CMAKE_BINARY_DIR}/include_roots/${LABEL})
  get_filename_component(PARENT ${ROOT}/${FOLDER} DIRECTORY)
  file(MAKE_DIRECTORY ${PARENT})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${ROOT}/${FOLDER} SYMBOLIC)
  set(${OUT} ${ROOT} PARENT_SCOPE)
endfunction()

# tarvik_console_program(NAME SOURCES ... USES ...): a console program.
function(tarvik_console_program NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${NAME} ${ARG_SOURCES})
  set_property(GLOBAL APPEND PROPERTY TARVIK_LIBRARIES ${NAME})
  tarvik_include_root(ROOT)
  target_include_directories(${NAME} PRIVATE ${ROOT})
  target_compile_definitions(${NAME} PRIVATE TARVIK_VERSION="${PROJECT_VERSION}")
  target_link_libraries(${NAME} PRIVATE tarvik_compiler cli ${ARG_USES})
  if(NOT MSVC)
    target_link_options(${NAME} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-s>)
  endif()
  install(TARGETS ${NAME} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT programs)
endfunction()
