#include "page_control/view/frame_decoder.h"

#include <objbase.h>

#include <utility>

#include "page_control/encoding/base64.h"
#include "page_control/encoding/png_decoder.h"
#include "tarvik/status.h"

namespace tarvik {

FrameDecoder::FrameDecoder(Handler handler) : handler_(std::move(handler)), thread_([this] { Work(); }) {}

FrameDecoder::~FrameDecoder() {
    {
        const std::lock_guard lock(lock_);
        stopping_ = true;
    }
    wake_.notify_one();
    thread_.join();
}

void FrameDecoder::Submit(std::string_view base64) {
    {
        const std::lock_guard lock(lock_);
        next_.assign(base64);
        hasNext_ = true;
    }
    wake_.notify_one();
}

void FrameDecoder::Work() {
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    (void)Guard([&] {
        const PictureCodec codec;
        PngDecoder pngDecoder;
        std::string text, before;
        std::vector<BYTE> bytes;
        Frame frame;
        for (;;) {
            {
                std::unique_lock lock(lock_);
                wake_.wait(lock, [&] { return hasNext_ || stopping_; });
                if (stopping_) return;
                std::swap(text, next_);
                hasNext_ = false;
            }
            frame.isRepeated = text == before;
            // A frame that cannot be decoded is skipped.
            const HRESULT status = Guard([&] {
                if (frame.isRepeated) return;
                before.clear();
                if (!DecodeBase64(text, bytes)) throw StatusError(E_FAIL);
                if (!pngDecoder.Decode(bytes, frame.pixels))
                    codec.Decode(bytes, GUID_WICPixelFormat32bppBGR, frame.pixels);
                std::swap(text, before);
            });
            frame.bytes = bytes.size();
            if (SUCCEEDED(status)) handler_(frame);
        }
    });
    if (SUCCEEDED(apartment)) CoUninitialize();
}

}  // namespace tarvik
