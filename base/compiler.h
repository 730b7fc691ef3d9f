#pragma once

// The only code that depends on the compiler. TARVIK_IID(type, id...) defines __uuidof(type) for compilers
// that cannot take the id from the declaration. Use it at global scope, after the type.
#if defined(_MSC_VER)
#define TARVIK_IID(type, ...)
#else
#define TARVIK_IID(type, ...) __CRT_UUID_DECL(type, __VA_ARGS__)
#endif
