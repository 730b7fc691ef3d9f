// A library that registers itself: in the environment, where the tests see it.
#include <windows.h>

extern "C" __declspec(dllexport) HRESULT __stdcall DllRegisterServer() {
    return SetEnvironmentVariableW(L"TARVIK_TEST_REGISTERED", L"yes") ? S_OK : E_FAIL;
}

// Done, but not with exactly S_OK.
extern "C" __declspec(dllexport) HRESULT __stdcall DllUnregisterServer() {
    SetEnvironmentVariableW(L"TARVIK_TEST_REGISTERED", nullptr);
    return S_FALSE;
}
