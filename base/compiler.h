#pragma once

// The only place where the compilers differ. TARVIK_IID ties an interface id to a type for __uuidof where the
// compiler cannot read it from the declaration; it stands at global scope, after the type.
#if defined(_MSC_VER)
#define TARVIK_IID(type, ...)
#else
#define TARVIK_IID(type, ...) __CRT_UUID_DECL(type, __VA_ARGS__)
#endif
