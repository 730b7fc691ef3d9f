#include "page_control/view/frame_decoder.h"

#include <mutex>

#include "page_control/encoding/base64.h"
#include "page_control/encoding/png_decoder.h"
#include "page_control/view/dirty_tiles.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// 3 x 2 pixels: red, (0, 128, 255), (1, 2, 3); white, black, (9, 99, 199).
constexpr std::string_view kPng =
    "iVBORw0KGgoAAAANSUhEUgAAAAMAAAACBAMAAABvWnspAAAAElBMVEX/AAAAgP8BAgP///8AAAAJY8deB/aPAAAADk"
    "lEQVQI12NgVGAwCQAAAUMApm7mwhAAAAAASUVORK5CYII=";

// 32 x 16 pixels of (200, 100, 50).
constexpr std::string_view kJpeg =
    "/9j/4AAQSkZJRgABAQAAAQABAAD/2wBDAAMCAgMCAgMDAwMEAwMEBQgFBQQEBQoHBwYIDAoMDAsKCwsNDhIQDQ4RDg"
    "sLEBYQERMUFRUVDA8XGBYUGBIUFRT/2wBDAQMEBAUEBQkFBQkUDQsNFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQU"
    "FBQUFBQUFBQUFBQUFBQUFBQUFBQUFBT/wAARCAAQACADAREAAhEBAxEB/8QAFQABAQAAAAAAAAAAAAAAAAAAAAT/xA"
    "AUEAEAAAAAAAAAAAAAAAAAAAAA/8QAFgEBAQEAAAAAAAAAAAAAAAAAAAcI/8QAFBEBAAAAAAAAAAAAAAAAAAAAAP/a"
    "AAwDAQACEQMRAD8AkQ9pAAAAAAAB/9k=";

// It skips invalid pictures, and frames that arrive faster than they are decoded, but never the last one.
TEST(FrameDecoder, DecodesTheLastFrame) {
    std::mutex lock;
    Pixels latest;
    FrameDecoder decoder([&](FrameDecoder::Frame& frame) {
        const std::lock_guard locked(lock);
        latest = frame.pixels;
    });
    for (const std::string_view invalid : {"", "!!!!", "QUJDRA=="})
        decoder.Submit(invalid);
    for (int i = 0; i < 200; ++i)
        decoder.Submit(kJpeg);
    decoder.Submit(kPng);
    EXPECT_TRUE(WaitFor([&] {
        const std::lock_guard locked(lock);
        return latest.width == 3 && (latest.colors.at(1) & 0xFFFFFF) == 0x0080FF;
    }));
}

// 5 x 7 pixels of 24 bits; its rows use every filter, its data is in two chunks.
constexpr std::string_view kFiltered =
    "iVBORw0KGgoAAAANSUhEUgAAAAUAAAAHCAIAAABPxRC5AAAAKElEQVR4nAFwAI//BHlCvXnfSf5jcXJsfGldgwMRpqmB3Q"
    "8SpUN0RxzsWpwCz7+YswAAAFNJREFUbmoLJaxa6tAR5f/ZBpNoAQ6PU5mmGeFc05hluA26KwDSTQqW2tQ8FhfBqY54Ep4D"
    "mgEyxOVLb0ncahYycuciBL3EjnSfDOQQkG/uzk2O4PFRMsbzalatAAAAAElFTkSuQmCC";

TEST(PngDecoder, ReturnsThePixelsOfTheSystemsCodec) {
    std::vector<BYTE> file;
    ASSERT_TRUE(DecodeBase64(kFiltered, file));
    Pixels expected, pixels;
    PictureCodec().Decode(file, GUID_WICPixelFormat32bppBGR, expected);
    PngDecoder decoder;
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(decoder.Decode(file, pixels));
        ASSERT_EQ(pixels.colors.size(), 35u);
        for (size_t pixel = 0; pixel < pixels.colors.size(); ++pixel)
            EXPECT_EQ(pixels.colors[pixel], expected.colors[pixel] & 0xFFFFFF) << pixel;
    }
    // Every shorter file, except one without its end, and another form.
    constexpr size_t kEndChunk = 12;
    for (size_t size = 0; size < file.size() - kEndChunk; ++size)
        EXPECT_FALSE(decoder.Decode(std::span(file).first(size), pixels)) << size;
    ASSERT_TRUE(DecodeBase64(kPng, file));
    EXPECT_FALSE(decoder.Decode(file, pixels));
}

TEST(DirtyTiles, CoverWhatDiffers) {
    const Pixels before = {130, 70, std::vector<std::uint32_t>(130 * 70)};
    Pixels after = before;
    DirtyTiles dirty;
    dirty.AddDifference(before, after);
    EXPECT_TRUE(dirty.IsEmpty());
    after.colors[10 * 130 + 20] = after.colors[69 * 130 + 129] = 1;
    dirty.AddDifference(before, after);
    EXPECT_EQ(dirty.Share(), 2.0 / (64 * 64));
    const RECT bounds = dirty.Bounds();
    EXPECT_TRUE(bounds.left <= 20 && bounds.left > 15 && bounds.top <= 10 && bounds.top > 5);
    EXPECT_TRUE(bounds.right >= 130 && bounds.bottom >= 70);
    DirtyTiles resized;
    resized.AddDifference(Pixels(), after);
    dirty.Add(resized);
    EXPECT_EQ(dirty.Share(), 1);
}

}  // namespace
}  // namespace tarvik
