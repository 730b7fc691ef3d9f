# The compiler options of all our targets; third-party code does not use them.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

add_library(tarvik_compiler INTERFACE)
target_compile_features(tarvik_compiler INTERFACE cxx_std_20)
target_compile_definitions(tarvik_compiler INTERFACE
  UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT WINVER=0x0601 _WIN32_WINNT=0x0601 _WIN32_IE=0x0900)

if(MSVC)
  target_compile_options(tarvik_compiler INTERFACE /W4 /WX /utf-8 /permissive- /Zc:__cplusplus)
  target_link_options(tarvik_compiler INTERFACE /DYNAMICBASE /HIGHENTROPYVA /NXCOMPAT)
else()
  target_compile_options(tarvik_compiler INTERFACE
    -Wall -Wextra -Werror -Wno-missing-field-initializers -Wno-cast-function-type
    -fstack-protector-strong -ffunction-sections -fdata-sections
    # What these split functions into is local to each source, so the linker cannot merge the copies: 9 % of the program.
    -fno-declone-ctor-dtor -fno-ipa-sra
    # Nothing asks for the type of an object at run time; the names of all types would be 4 % of the program.
    $<$<COMPILE_LANGUAGE:CXX>:-fno-rtti>
    -flarge-source-files)  # or GCC drops columns, and the checks that need them, in sources that include JSON
  # One file that runs on a bare system, without a compiler runtime beside it.
  target_link_options(tarvik_compiler INTERFACE -static -municode -fstack-protector-strong -Wl,--gc-sections
    -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
endif()
