// A self-registering library. It sets a variable of the environment, which the tests read.
#include <windows.h>

extern "C" __declspec(dllexport) HRESULT __stdcall DllRegisterServer() {
    return SetEnvironmentVariableW(L"TARVIK_TEST_REGISTERED", L"yes") ? S_OK : E_FAIL;
}

// Succeeds with a status other than S_OK.
extern "C" __declspec(dllexport) HRESULT __stdcall DllUnregisterServer() {
    SetEnvironmentVariableW(L"TARVIK_TEST_REGISTERED", nullptr);
    return S_FALSE;
}
