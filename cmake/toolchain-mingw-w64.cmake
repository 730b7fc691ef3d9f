# The kit's toolchain, and how the tests run.
include(${CMAKE_CURRENT_LIST_DIR}/../core/cmake/mingw-w64.cmake)

# The time is a little less than that of the tests: a test that hangs is ended by the tool, together with the programs
# that it started.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/wine-desktop --timeout 110)
