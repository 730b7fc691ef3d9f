#include <gmock/gmock.h>
#include <ole2.h>

// Every test program runs on a thread like the host's main thread: single-threaded apartment, with OLE.
int wmain(int argc, wchar_t** argv) {
    testing::InitGoogleMock(&argc, argv);
    OleInitialize(nullptr);
    const int failed = RUN_ALL_TESTS();
    OleUninitialize();
    return failed;
}
