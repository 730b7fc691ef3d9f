#include "page_control/view/frame_decoder.h"

#include <objbase.h>
#include <shlwapi.h>
#include <wincodec.h>
#include <wincrypt.h>

#include <utility>

#include "tarvik/com_ptr.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

// Fills `bytes`, whose memory is reused from frame to frame.
bool DecodeBase64(std::string_view text, std::vector<BYTE>& bytes) {
    bytes.resize(text.size() / 4 * 3 + 3);
    auto size = static_cast<DWORD>(bytes.size());
    if (!CryptStringToBinaryA(text.data(), static_cast<DWORD>(text.size()), CRYPT_STRING_BASE64, bytes.data(),
                              &size, nullptr, nullptr)) {
        return false;
    }
    bytes.resize(size);
    return true;
}

// Decodes PNG and JPEG by the system's codecs.
class PictureReader {
  public:
    PictureReader() {
        ThrowIfFailed(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                       __uuidof(IWICImagingFactory),
                                       reinterpret_cast<void**>(factory_.GetAddressOf())));
    }

    void Read(std::vector<BYTE>& bytes, FrameBuffer::Pixels& pixels) {
        ComPtr<IWICStream> stream;
        ComPtr<IWICBitmapDecoder> decoder;
        ComPtr<IWICBitmapFrameDecode> frame;
        ComPtr<IWICFormatConverter> converter;
        ThrowIfFailed(factory_->CreateStream(stream.GetAddressOf()));
        ThrowIfFailed(stream->InitializeFromMemory(bytes.data(), static_cast<DWORD>(bytes.size())));
        ThrowIfFailed(factory_->CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                                        decoder.GetAddressOf()));
        ThrowIfFailed(decoder->GetFrame(0, frame.GetAddressOf()));
        ThrowIfFailed(factory_->CreateFormatConverter(converter.GetAddressOf()));
        ThrowIfFailed(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppBGR, WICBitmapDitherTypeNone,
                                            nullptr, 0, WICBitmapPaletteTypeCustom));
        UINT width = 0;
        UINT height = 0;
        ThrowIfFailed(converter->GetSize(&width, &height));
        pixels.width = static_cast<int>(width);
        pixels.height = static_cast<int>(height);
        pixels.colors.resize(size_t{width} * height);
        ThrowIfFailed(converter->CopyPixels(nullptr, width * 4, static_cast<UINT>(pixels.colors.size() * 4),
                                            reinterpret_cast<BYTE*>(pixels.colors.data())));
    }

  private:
    ComPtr<IWICImagingFactory> factory_;
};

}  // namespace

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
        PictureReader reader;
        std::string text;
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
            // A frame that cannot be decoded is skipped.
            const HRESULT status = Guard([&] {
                if (!DecodeBase64(text, bytes)) throw StatusError(E_FAIL);
                reader.Read(bytes, frame.pixels);
            });
            frame.bytes = bytes.size();
            if (SUCCEEDED(status)) handler_(frame);
        }
    });
    if (SUCCEEDED(apartment)) CoUninitialize();
}

}  // namespace tarvik
