#include <ole2.h>

#include <gmock/gmock.h>

// Tests run on a thread like the main thread of the host: in a single-threaded apartment, with OLE.
int wmain(int argc, wchar_t** argv) {
    testing::InitGoogleMock(&argc, argv);
    // Programs under test get it, too.
    SetEnvironmentVariableW(L"TARVIK_PROFILE", L"temporary");
    OleInitialize(nullptr);
    const int failed = RUN_ALL_TESTS();
    OleUninitialize();
    return failed;
}
