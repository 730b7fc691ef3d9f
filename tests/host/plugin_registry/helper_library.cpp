// The library on which needy_library depends.
extern "C" __declspec(dllexport) int HelperAnswer() {
    return 43;
}
