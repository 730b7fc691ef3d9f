# Precompiled headers: for each layer one list of the system and third-party headers that most of its sources include.
# They save two thirds of the compiler's work. Nothing depends on them: each source includes what it uses, and tools/check
# compiles without them. Our own headers are not listed, because a change to one would rebuild the layer. Loading a list
# costs 1 ms per MB in every source: a header that few sources include does not pay (<shlobj.h> 48 MB).
if(MSVC)
  set(USE_BY_DEFAULT OFF)  # there it has not been tried
else()
  set(USE_BY_DEFAULT ON)
endif()
option(TARVIK_PCH "Compile with precompiled headers" ${USE_BY_DEFAULT})

set(PRECOMPILED_core
  <windows.h> <ole2.h> <oleauto.h> <dispex.h> <exdisp.h> <shellapi.h> <shlwapi.h>
  <algorithm> <array> <functional> <map> <memory> <mutex> <optional> <set> <span> <string> <utility> <vector>)
set(PRECOMPILED_page_control ${PRECOMPILED_core} <mshtml.h> <nlohmann/json.hpp>)
set(PRECOMPILED_tests ${PRECOMPILED_core} <chrono> <filesystem> <thread> <gmock/gmock.h> <gtest/gtest.h>)

# The library that compiles a list for all others of its layer.
set(PRECOMPILED_BY_core core)
set(PRECOMPILED_BY_page_control page_control_engine)
set(PRECOMPILED_BY_tests test_support)

# tarvik_precompile_headers(): lets all our targets use the lists. Call it last.
function(tarvik_precompile_headers)
  if(NOT TARVIK_PCH)
    return()
  endif()
  foreach(LAYER core page_control tests)
    if(TARGET ${PRECOMPILED_BY_${LAYER}})
      target_precompile_headers(${PRECOMPILED_BY_${LAYER}} PRIVATE ${PRECOMPILED_${LAYER}})
    endif()
  endforeach()
  tarvik_precompile_folder(${CMAKE_SOURCE_DIR})
endfunction()

function(tarvik_precompile_folder FOLDER)
  get_property(BUILT DIRECTORY ${FOLDER} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(USER ${BUILT})
    tarvik_precompiled_layer(${USER} LAYER)
    set(OWNER "${PRECOMPILED_BY_${LAYER}}")
    if(OWNER AND NOT USER STREQUAL OWNER)
      target_precompile_headers(${USER} REUSE_FROM ${OWNER})
    endif()
  endforeach()
  get_property(FOLDERS DIRECTORY ${FOLDER} PROPERTY SUBDIRECTORIES)
  foreach(SUBFOLDER ${FOLDERS})
    tarvik_precompile_folder(${SUBFOLDER})
  endforeach()
endfunction()

# tarvik_precompiled_layer(TARGET OUT): whose list fits; empty for what is not compiled with our flags.
function(tarvik_precompiled_layer USER OUT)
  set(${OUT} "" PARENT_SCOPE)
  get_target_property(TYPE ${USER} TYPE)
  if(TYPE MATCHES "INTERFACE_LIBRARY|UTILITY")
    return()
  endif()
  get_target_property(LINKED ${USER} LINK_LIBRARIES)
  tarvik_folder_of(${USER} FOLDER)
  if("test_support" IN_LIST LINKED OR USER STREQUAL "test_support")
    set(${OUT} tests PARENT_SCOPE)
  elseif(FOLDER MATCHES "^page_control/")
    set(${OUT} page_control PARENT_SCOPE)
  elseif("tarvik_compiler" IN_LIST LINKED)
    set(${OUT} core PARENT_SCOPE)
  endif()
endfunction()
