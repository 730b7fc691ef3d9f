# find_package(Tarvik): what a plug-in library is built with.
#
#   Tarvik::Contract        the headers of the contract, tarvik/plugin.h, stream.h and menu.h
#   Tarvik::Kit             those and tarvik/kit.h, with the libraries of Windows that it needs
#   tarvik_add_plugin(NAME SOURCE...)
include(${CMAKE_CURRENT_LIST_DIR}/TarvikTargets.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/TarvikPlugin.cmake)
