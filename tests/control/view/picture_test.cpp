#include "control/view/picture.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

constexpr COLORREF kStale = RGB(1, 2, 3);

// A bitmap to paint on, of a colour that nobody paints.
class Canvas {
  public:
    Canvas(int width, int height) : area_{0, 0, width, height} {
        const HDC screen = GetDC(nullptr);
        bitmap_ = UniqueGdi(CreateCompatibleBitmap(screen, width, height));
        ReleaseDC(nullptr, screen);
        before_ = SelectObject(dc_.Get(), bitmap_.Get());
        const UniqueGdi stale(CreateSolidBrush(kStale));
        FillRect(dc_.Get(), &area_, static_cast<HBRUSH>(stale.Get()));
    }
    ~Canvas() { SelectObject(dc_.Get(), before_); }

    HDC Dc() const { return dc_.Get(); }
    const RECT& Area() const { return area_; }
    COLORREF At(int x, int y) const { return GetPixel(dc_.Get(), x, y); }

  private:
    RECT area_;
    UniqueMemoryDc dc_{CreateCompatibleDC(nullptr)};
    UniqueGdi bitmap_;
    HGDIOBJ before_ = nullptr;
};

COLORREF ColourAt(int x, int y) {
    return RGB(10 + x, 100 + y, 200);
}

Picture::Pixels Frame(int width, int height) {
    Picture::Pixels pixels = {width, height, {}};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const COLORREF colour = ColourAt(x, y);
            pixels.colours.push_back(static_cast<std::uint32_t>(GetRValue(colour)) << 16 |
                                     GetGValue(colour) << 8 | GetBValue(colour));
        }
    return pixels;
}

TEST(Picture, CoversWindowsOfAnySizeWithoutScaling) {
    constexpr int kWidth = 12, kHeight = 9;
    Picture picture;
    const Canvas paper(2, 2);
    picture.Paint(paper.Dc(), paper.Area());
    EXPECT_EQ(paper.At(1, 1), RGB(255, 255, 255)) << "before the first frame";
    Picture::Pixels frame = Frame(kWidth, kHeight);
    picture.Replace(frame);
    EXPECT_EQ(picture.Size().cx, kWidth);
    EXPECT_EQ(picture.Size().cy, kHeight);
    for (const SIZE size : {SIZE{12, 9}, SIZE{20, 15}, SIZE{20, 5}, SIZE{5, 15}, SIZE{5, 4}, SIZE{1, 1}}) {
        SCOPED_TRACE(testing::Message() << size.cx << " x " << size.cy);
        const Canvas canvas(size.cx, size.cy);
        picture.Paint(canvas.Dc(), canvas.Area());
        for (int y = 0; y < size.cy; ++y) {
            for (int x = 0; x < size.cx; ++x) {
                const bool beyond = x >= kWidth || y >= kHeight;
                const COLORREF expected = beyond ? ColourAt(kWidth - 1, kHeight - 1) : ColourAt(x, y);
                ASSERT_EQ(canvas.At(x, y), expected) << x << ", " << y;
            }
        }
    }
    picture.Clear();
    picture.Paint(paper.Dc(), paper.Area());
    EXPECT_EQ(paper.At(1, 1), RGB(255, 255, 255)) << "when the page has gone";
}

TEST(Picture, NoticesStandInTheMiddle) {
    const Canvas canvas(300, 120);
    PaintNotice(canvas.Dc(), canvas.Area(), L"There is no web engine.\nInstall one.");
    const COLORREF paper = canvas.At(0, 0);
    EXPECT_NE(paper, kStale);
    int inked = 0;
    for (int y = 40; y < 80; ++y)
        for (int x = 100; x < 200; ++x)
            inked += canvas.At(x, y) != paper;
    EXPECT_GT(inked, 50);
}

}  // namespace
}  // namespace tarvik
