// Pages painted for a PostScript printer, whose file tells sheets and places.

#include "page_control/printing/painted_pages.h"

#include <functional>
#include <regex>

#include "tarvik/status.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test.h"
#include "tests/support/test_printer.h"

namespace tarvik {
namespace {

constexpr PagePictures::Size kA5 = {5.83, 8.27};
constexpr PagePictures::Size kA3 = {11.69, 16.54};

// A sheet of A5 and one of A3, of a few pixels.
class TwoPages : public PagePictures {
  public:
    int Count() const override { return 2; }
    Size SizeOf(int page) const override { return page == 0 ? kA5 : kA3; }
    void Render(int page, int width, int height, Pixels& pixels) const override {
        order.push_back(page);
        widths.push_back(width);
        heights.push_back(height);
        pixels = {2, 2, {0x0A0B0C, 0x0A0B0C, 0x0A0B0C, 0x0A0B0C}};
        if (onRender) onRender();
    }

    mutable std::vector<int> order, widths, heights;
    std::function<void()> onRender;
};

class PaintedPages : public testing::Test {
  protected:
    PrintSettings Settings(int copies, bool collate) const {
        PrintSettings settings;
        settings.printer = printer_.Name();
        settings.copies = copies;
        settings.collate = collate;
        return settings;
    }

    // The first groups of all matches.
    std::vector<std::string> All(const std::string& pattern) const {
        const std::string text = ReadFileBytes(output_);
        const std::regex expression(pattern);
        std::vector<std::string> found;
        for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
            found.push_back(match->str(1));
        return found;
    }

    const TempFolder folder_;
    const std::wstring output_ = folder_ / L"printed.ps";
    const TestPrinter printer_{output_};
    TwoPages pages_;
    PrintProgress progress_;
};

// The printer has 300 pixels per inch and A4.
TEST_F(PaintedPages, AreAsLargeAsTheyAreOrAsThePaperAllows) {
    PaintPages(pages_, L"Bean", Settings(1, false), progress_);
    EXPECT_THAT(All("%%Page: (\\d+)"), ElementsAre("1", "2"));
    EXPECT_THAT(All("%%Title: (\\w+)"), ElementsAre("Bean"));
    EXPECT_THAT(pages_.widths, ElementsAre(1749, 2479));
    EXPECT_THAT(pages_.heights, ElementsAre(2481, 3508));
    // From the corner of the area that can be printed, which is 75 pixels from those of the sheet.
    EXPECT_THAT(All("(-?\\d+ -?\\d+) translate\n\\d+ \\d+ scale"), ElementsAre("290 439", "-75 -75"));
    EXPECT_THAT(All("translate\n(\\d+ \\d+) scale"), ElementsAre("1749 2481", "2479 3508"));
}

TEST_F(PaintedPages, AreCopiedPageByPageOrAsAWhole) {
    PaintPages(pages_, L"Bean", Settings(3, false), progress_);
    EXPECT_THAT(pages_.order, ElementsAre(0, 1));
    EXPECT_EQ(All("%%Page: (\\d+)").size(), 6u);
    EXPECT_EQ(progress_.done, 6);
    EXPECT_EQ(progress_.total, 6);
    DeleteFileW(output_.c_str());
    PaintPages(pages_, L"Bean", Settings(2, true), progress_);
    EXPECT_THAT(pages_.order, ElementsAre(0, 1, 0, 1, 0, 1));
    EXPECT_EQ(All("%%Page: (\\d+)").size(), 4u);
}

TEST_F(PaintedPages, AreDroppedWhenTheUserCancels) {
    pages_.onRender = [&] { progress_.cancelled = pages_.order.size() == 2; };
    PaintPages(pages_, L"Bean", Settings(1, false), progress_);
    EXPECT_EQ(progress_.done, 1);
    EXPECT_FALSE(FileExists(output_));
}

TEST_F(PaintedPages, FailWithoutTheirPrinter) {
    PrintSettings settings = Settings(1, false);
    settings.printer = L"No such printer";
    EXPECT_THROW(PaintPages(pages_, L"Bean", settings, progress_), StatusError);
}

}  // namespace
}  // namespace tarvik
