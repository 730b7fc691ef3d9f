# The toolchain of the core's package, and the command that runs the tests.
include(${CMAKE_CURRENT_LIST_DIR}/../core/cmake/mingw-w64.cmake)

# This timeout is shorter than ctest's, so that the tool ends a hanging test, together with the programs that the test
# started.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/wine-desktop --timeout 290)
