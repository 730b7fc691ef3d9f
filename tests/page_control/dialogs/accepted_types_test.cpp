#include "page_control/dialogs/accepted_types.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

// A pattern must not hide a file that the page takes: without a known extension, all files are listed.
TEST(AcceptedTypes, BecomeAPatternForDialogs) {
    EXPECT_EQ(PatternOfAccept(""), L"");
    EXPECT_EQ(PatternOfAccept(" .TXT , .tar.gz,"), L"*.txt;*.tar.gz");
    EXPECT_EQ(PatternOfAccept("image/JPEG,.pdf"), L"*.jpg;*.jpeg;*.jfif;*.pdf");
    EXPECT_NE(PatternOfAccept("image/*").find(L"*.png;"), std::wstring::npos);
    EXPECT_EQ(PatternOfAccept(".txt,application/x-of-no-program"), L"");
    EXPECT_EQ(PatternOfAccept(".txt,*/*"), L"");
}

}  // namespace
}  // namespace tarvik
