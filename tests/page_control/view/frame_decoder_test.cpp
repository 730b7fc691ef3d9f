#include "page_control/view/frame_decoder.h"

#include <mutex>

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

}  // namespace
}  // namespace tarvik
