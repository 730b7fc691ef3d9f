#include "page_control/view/key_names.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(KeyNames, DistinguishKeysOfTheSameScanCodeOrMeaning) {
    struct {
        UINT scanCode;
        bool extended;
        const char* code;
        KeyLocation location;
        UINT virtualKey;
        const char* key;
    } const kKeys[] = {
        {0x1C, false, "Enter", KeyLocation::kStandard, VK_RETURN, "Enter"},
        {0x1C, true, "NumpadEnter", KeyLocation::kKeypad, VK_RETURN, "Enter"},
        {0x36, false, "ShiftRight", KeyLocation::kRight, VK_SHIFT, "Shift"},
        {0x45, false, "Pause", KeyLocation::kStandard, VK_PAUSE, "Pause"},
        {0x45, true, "NumLock", KeyLocation::kStandard, VK_NUMLOCK, "NumLock"},
        {0x47, false, "Numpad7", KeyLocation::kKeypad, VK_HOME, "Home"},
        {0x47, true, "Home", KeyLocation::kStandard, VK_HOME, "Home"},
        {0x7F, true, "", KeyLocation::kStandard, 0, "Unidentified"},
    };
    for (const auto& key : kKeys) {
        SCOPED_TRACE(key.code);
        EXPECT_EQ(KeyCodeName(key.scanCode, key.extended), key.code);
        EXPECT_EQ(LocationOfKey(key.code), key.location);
        EXPECT_EQ(KeyName(key.virtualKey, key.scanCode, key.extended), key.key);
    }
}

}  // namespace
}  // namespace tarvik
