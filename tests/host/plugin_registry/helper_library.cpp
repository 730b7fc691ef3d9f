// What the needy library needs.
extern "C" __declspec(dllexport) int HelperAnswer() {
    return 43;
}
