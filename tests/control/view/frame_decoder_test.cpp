#include "control/view/frame_decoder.h"

#include <deque>
#include <mutex>
#include <optional>

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

class Decoding : public testing::Test {
  protected:
    // Waits for what the decoder makes, on its own thread.
    std::optional<Picture::Pixels> Next(unsigned long limit = 10'000) {
        std::optional<Picture::Pixels> next;
        WaitFor(
            [&] {
                const std::lock_guard lock(lock_);
                if (frames_.empty()) return false;
                next = std::move(frames_.front());
                frames_.pop_front();
                return true;
            },
            limit);
        return next;
    }

  private:
    std::mutex lock_;
    std::deque<Picture::Pixels> frames_;

  protected:
    FrameDecoder decoder{[this](FrameDecoder::Frame& frame) {
        const std::lock_guard lock(lock_);
        frames_.push_back(frame.pixels);
    }};
};

TEST_F(Decoding, PassesOverWhatIsNoPicture) {
    const std::string cut(kPng.substr(0, kPng.size() / 2 & ~size_t{3}));
    for (const std::string_view rubbish : {std::string_view(), std::string_view("!!!!"),
                                           std::string_view("QUJDRA=="), std::string_view(cut)}) {
        decoder.Submit(rubbish);
        EXPECT_FALSE(Next(100)) << rubbish;
    }
    decoder.Submit(kPng);
    const auto frame = Next();
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->width, 3);
    EXPECT_EQ(frame->height, 2);
    EXPECT_EQ(frame->colours.at(1) & 0xFFFFFF, 0x0080FFu);
    EXPECT_EQ(frame->colours.at(5) & 0xFFFFFF, 0x0963C7u);
}

// Frames that come faster than they are decoded are left out; the last one is never.
TEST_F(Decoding, EndsWithTheLatest) {
    for (int i = 0; i < 200; ++i)
        decoder.Submit(kPng);
    decoder.Submit(kJpeg);
    auto frame = Next();
    while (frame && frame->width == 3)
        frame = Next();
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->width, 32);
    EXPECT_EQ(frame->height, 16);
    for (const std::uint32_t colour : frame->colours) {
        ASSERT_NEAR(colour >> 16 & 0xFF, 200, 4);
        ASSERT_NEAR(colour >> 8 & 0xFF, 100, 4);
        ASSERT_NEAR(colour & 0xFF, 50, 4);
    }
    EXPECT_FALSE(Next(50));
}

}  // namespace
}  // namespace tarvik
