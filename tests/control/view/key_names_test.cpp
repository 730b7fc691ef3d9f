#include "control/view/key_names.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(KeyNames, TellKeysOfOneScanCodeAndOfOneMeaningApart) {
    struct {
        UINT scanCode;
        bool extended;
        const char* code;
        KeyPlace place;
        UINT virtualKey;
        const char* key;
    } const kKeys[] = {
        {0x1C, false, "Enter", KeyPlace::kStandard, VK_RETURN, "Enter"},
        {0x1C, true, "NumpadEnter", KeyPlace::kKeypad, VK_RETURN, "Enter"},
        {0x36, false, "ShiftRight", KeyPlace::kRight, VK_SHIFT, "Shift"},
        {0x45, false, "Pause", KeyPlace::kStandard, VK_PAUSE, "Pause"},
        {0x45, true, "NumLock", KeyPlace::kStandard, VK_NUMLOCK, "NumLock"},
        {0x47, false, "Numpad7", KeyPlace::kKeypad, VK_HOME, "Home"},
        {0x47, true, "Home", KeyPlace::kStandard, VK_HOME, "Home"},
        {0x7F, true, "", KeyPlace::kStandard, 0, "Unidentified"},
    };
    for (const auto& key : kKeys) {
        SCOPED_TRACE(key.code);
        EXPECT_EQ(KeyCodeName(key.scanCode, key.extended), key.code);
        EXPECT_EQ(PlaceOfKey(key.code), key.place);
        EXPECT_EQ(KeyName(key.virtualKey, key.scanCode), key.key);
    }
}

}  // namespace
}  // namespace tarvik
