#include "plugins/window/window_frame.h"

#include <windows.h>

#include <random>
#include <vector>

#include "plugins/window/image_region.h"
#include "tests/plugins/window/window_fixture.h"

namespace tarvik {
namespace {

class FakeComposition : public Composition {
  public:
    bool IsEnabled() const override { return enabled; }
    void ExtendFrame(HWND, int margin) const override { margins.push_back(margin); }

    bool enabled = false;
    mutable std::vector<int> margins;
};

constexpr LONG kBorder = WS_CAPTION | WS_THICKFRAME;

// A top-level window with a child that stands for the page.
class Frame : public testing::Test {
  protected:
    Frame() {
        main_.SubclassWindow(window_.Get());
        server_.Attach(page_, window_.Get(), nullptr);
        frame_.SetWindow(window_.Get());
    }

    LONG Border() const { return GetWindowLongW(window_.Get(), GWL_STYLE) & kBorder; }
    RECT Place() const {
        RECT rect = {};
        GetWindowRect(window_.Get(), &rect);
        return rect;
    }
    bool CoversWindow() const {
        RECT client = {};
        GetClientRect(window_.Get(), &client);
        const RECT place = Place();
        return client.right == place.right - place.left && client.bottom == place.bottom - place.top;
    }
    // At the left edge of the page, halfway down.
    LRESULT HitAtEdge() const {
        RECT page = {};
        GetWindowRect(page_, &page);
        return SendMessageW(page_, WM_NCHITTEST, 0, MAKELPARAM(page.left + 3, (page.top + page.bottom) / 2));
    }
    std::wstring WriteBitmap(const std::vector<uint32_t>& pixels, LONG width) const {
        return folder_.Write(L"shape.bmp", BitmapOf(pixels, width));
    }

    const TempFolder folder_;
    FakeComposition composition_;
    CMainSubclassWindow main_;
    CBrowserSubclassWindow server_;
    const UniqueWindow window_{CreateWindowExW(0, L"STATIC", nullptr, WS_OVERLAPPEDWINDOW, 100, 80, 300, 200,
                                               nullptr, nullptr, nullptr, nullptr)};
    const HWND page_ = CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 290, 190,
                                       window_.Get(), nullptr, nullptr, nullptr);
    WindowFrame frame_{main_, server_, composition_};
};

// With composition it keeps the style of a caption, for shadow and animations.
TEST_F(Frame, LosesItsCaption) {
    for (const bool composed : {false, true}) {
        SCOPED_TRACE(composed);
        composition_.enabled = composed;
        frame_.SetCaption(false);
        EXPECT_EQ(Border(), composed ? WS_CAPTION : 0);
        EXPECT_TRUE(CoversWindow());
        EXPECT_EQ(Place().right - Place().left, 300);
        EXPECT_EQ(HitAtEdge(), HTLEFT);
        frame_.SetCaption(true);
        EXPECT_EQ(Border(), kBorder);
        EXPECT_FALSE(CoversWindow());
        EXPECT_NE(HitAtEdge(), HTLEFT) << "the frame sizes the window";
    }
    EXPECT_TRUE(GetClassLongW(window_.Get(), GCL_STYLE) & CS_DROPSHADOW);
    COLORREF key = 0;
    DWORD flags = 0;
    EXPECT_TRUE(GetLayeredWindowAttributes(window_.Get(), &key, nullptr, &flags));
    EXPECT_EQ(key, 0x563412u);
    EXPECT_EQ(flags, static_cast<DWORD>(LWA_COLORKEY));
    EXPECT_THAT(composition_.margins, ElementsAre(1, 0));
}

TEST_F(Frame, StaysResizableWithoutACaption) {
    frame_.SetResizable(false);
    EXPECT_EQ(Border(), WS_CAPTION);
    frame_.SetCaption(false);
    EXPECT_NE(HitAtEdge(), HTLEFT);
    frame_.SetResizable(true);
    EXPECT_EQ(HitAtEdge(), HTLEFT);
    EXPECT_EQ(Border(), 0);
    frame_.SetCaption(true);
    EXPECT_EQ(Border(), kBorder);
}

TEST_F(Frame, TakesTheShapeOfNonWhitePixels) {
    constexpr LONG kWidth = 7;
    constexpr uint32_t kPixels[] = {0xFFFFFF, 0xFFFFFF, 0xFFFFFE, 0xFEFFFF, 0, 0x123456};
    std::mt19937 random(1);
    std::vector<uint32_t> pixels(kWidth * 31);
    for (uint32_t& pixel : pixels)
        pixel = kPixels[random() % std::size(kPixels)];
    const UniqueGdi picture = LoadBitmapFile(WriteBitmap(pixels, kWidth).c_str());
    ASSERT_TRUE(picture);
    const UniqueGdi region = RegionFromImage(picture.Get());
    const auto contains = [&](LONG x, LONG y) {
        return PtInRegion(static_cast<HRGN>(region.Get()), x, y) != FALSE;
    };
    for (LONG at = 0; at < static_cast<LONG>(pixels.size()); ++at)
        EXPECT_EQ(contains(at % kWidth, at / kWidth), pixels[at] != 0xFFFFFF) << at;
    EXPECT_FALSE(contains(kWidth, 0));
}

TEST_F(Frame, KeepsItsShape) {
    EXPECT_THAT(frame_.ShapeImage((folder_ / L"missing.bmp").c_str()), HasStatus(E_INVALIDARG));
    EXPECT_THAT(frame_.ShapeImage(folder_.Write(L"text.bmp", "no picture").c_str()), HasStatus(E_INVALIDARG));
    EXPECT_FALSE(frame_.IsShaped());
    composition_.enabled = true;
    ResourceCounts before;
    for (const LONG size : {60, 50, 40}) {
        if (size == 50) before = ResourceCounts::Now();
        std::vector<uint32_t> pixels(static_cast<size_t>(size) * size, 0);
        pixels[0] = 0xFFFFFF;
        EXPECT_THAT(frame_.ShapeImage(WriteBitmap(pixels, size).c_str()), HasStatus(S_OK));
        EXPECT_EQ(Border(), 0);
        EXPECT_EQ(Place().right - Place().left, size);
        const UniqueGdi region(CreateRectRgn(0, 0, 0, 0));
        EXPECT_EQ(GetWindowRgn(window_.Get(), static_cast<HRGN>(region.Get())), COMPLEXREGION);
        EXPECT_FALSE(PtInRegion(static_cast<HRGN>(region.Get()), 0, 0));
    }
    EXPECT_EQ(ResourceCounts::Now().GrownSince(before), "");
    EXPECT_NE(HitAtEdge(), HTLEFT);
    EXPECT_THAT(frame_.SetCaption(true), HasStatus(E_FAIL));
    EXPECT_THAT(frame_.SetResizable(true), HasStatus(E_FAIL));
    EXPECT_EQ(Border(), 0);
}

}  // namespace
}  // namespace tarvik
