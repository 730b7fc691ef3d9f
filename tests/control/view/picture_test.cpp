#include "control/view/picture.h"

#include <gtest/gtest.h>

#include "base/owners.h"

namespace tarvik {
namespace {

constexpr COLORREF kStale = RGB(1, 2, 3);

// A bitmap to paint on, of a colour that nobody paints.
class Canvas {
  public:
    Canvas(int width, int height) : area_{0, 0, width, height} {
        BITMAPINFO format = {};
        format.bmiHeader = {sizeof format.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = UniqueGdi(CreateDIBSection(dc_.Get(), &format, DIB_RGB_COLORS, &bits, nullptr, 0));
        before_ = SelectObject(dc_.Get(), bitmap_.Get());
        const UniqueGdi stale(CreateSolidBrush(kStale));
        FillRect(dc_.Get(), &area_, static_cast<HBRUSH>(stale.Get()));
    }
    ~Canvas() { SelectObject(dc_.Get(), before_); }

    HDC Dc() const { return dc_.Get(); }
    const RECT& Area() const { return area_; }
    COLORREF At(int x, int y) const { return GetPixel(dc_.Get(), x, y); }
    int Count(COLORREF colour) const {
        int count = 0;
        for (int y = 0; y < area_.bottom; ++y)
            for (int x = 0; x < area_.right; ++x)
                count += At(x, y) == colour;
        return count;
    }

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
    EXPECT_EQ(picture.Size().cx, 0);
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
}

TEST(Picture, IsPaperBeforeTheFirstFrameAndWhenCleared) {
    Picture picture;
    Picture::Pixels frame = Frame(4, 4);
    const auto paint = [&] {
        const Canvas canvas(4, 4);
        picture.Paint(canvas.Dc(), canvas.Area());
        return canvas.At(2, 2);
    };
    EXPECT_EQ(paint(), RGB(255, 255, 255));
    picture.Replace(frame);
    EXPECT_EQ(paint(), ColourAt(2, 2));
    picture.Clear();
    EXPECT_EQ(paint(), RGB(255, 255, 255));
}

TEST(Picture, GivesTheOldFramesMemoryBack) {
    Picture picture;
    Picture::Pixels first = Frame(4, 4), second = Frame(6, 2);
    const std::uint32_t* const memory = first.colours.data();
    picture.Replace(first);
    picture.Replace(second);
    EXPECT_EQ(second.colours.data(), memory);
    EXPECT_EQ(second.width, 4);
}

TEST(Picture, NoticesStandInTheMiddle) {
    const Canvas canvas(300, 120);
    PaintNotice(canvas.Dc(), canvas.Area(), L"There is no web engine.\nInstall one.");
    EXPECT_EQ(canvas.Count(kStale), 0);
    const COLORREF paper = canvas.At(0, 0);
    for (const POINT edge : {POINT{299, 0}, POINT{0, 119}, POINT{150, 5}, POINT{150, 114}, POINT{20, 60}})
        EXPECT_EQ(canvas.At(edge.x, edge.y), paper);
    EXPECT_LT(canvas.Count(paper), 300 * 120 - 100) << "there is text";
}

}  // namespace
}  // namespace tarvik
