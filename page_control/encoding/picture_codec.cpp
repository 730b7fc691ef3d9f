#include "page_control/encoding/picture_codec.h"

#include <objbase.h>

#include "tarvik/status.h"

namespace tarvik {

PictureCodec::PictureCodec() {
    ThrowIfFailed(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                   __uuidof(IWICImagingFactory),
                                   reinterpret_cast<void**>(factory_.GetAddressOf())));
}

void PictureCodec::Decode(std::span<const BYTE> file, REFWICPixelFormatGUID format, Pixels& pixels) const {
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    ComPtr<IWICFormatConverter> converter;
    ThrowIfFailed(factory_->CreateStream(stream.GetAddressOf()));
    // The stream is only read.
    ThrowIfFailed(
        stream->InitializeFromMemory(const_cast<BYTE*>(file.data()), static_cast<DWORD>(file.size())));
    ThrowIfFailed(factory_->CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                                    decoder.GetAddressOf()));
    ThrowIfFailed(decoder->GetFrame(0, frame.GetAddressOf()));
    ThrowIfFailed(factory_->CreateFormatConverter(converter.GetAddressOf()));
    ThrowIfFailed(converter->Initialize(frame.Get(), format, WICBitmapDitherTypeNone, nullptr, 0,
                                        WICBitmapPaletteTypeCustom));
    UINT width = 0;
    UINT height = 0;
    ThrowIfFailed(converter->GetSize(&width, &height));
    pixels.width = static_cast<int>(width);
    pixels.height = static_cast<int>(height);
    pixels.colors.resize(size_t{width} * height);
    ThrowIfFailed(converter->CopyPixels(nullptr, width * 4, static_cast<UINT>(pixels.colors.size() * 4),
                                        reinterpret_cast<BYTE*>(pixels.colors.data())));
}

std::vector<BYTE> PictureCodec::EncodePng(const Pixels& pixels) const {
    ComPtr<IStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    ThrowIfFailed(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf()));
    ThrowIfFailed(factory_->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.GetAddressOf()));
    ThrowIfFailed(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache));
    ThrowIfFailed(encoder->CreateNewFrame(frame.GetAddressOf(), nullptr));
    ThrowIfFailed(frame->Initialize(nullptr));
    WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGRA;
    const auto width = static_cast<UINT>(pixels.width);
    const auto height = static_cast<UINT>(pixels.height);
    ThrowIfFailed(frame->SetSize(width, height));
    ThrowIfFailed(frame->SetPixelFormat(&format));
    ThrowIfFailed(
        frame->WritePixels(height, width * 4, static_cast<UINT>(pixels.colors.size() * 4),
                           reinterpret_cast<BYTE*>(const_cast<std::uint32_t*>(pixels.colors.data()))));
    ThrowIfFailed(frame->Commit());
    ThrowIfFailed(encoder->Commit());
    STATSTG state = {};
    ThrowIfFailed(stream->Stat(&state, STATFLAG_NONAME));
    std::vector<BYTE> file(static_cast<size_t>(state.cbSize.QuadPart));
    ThrowIfFailed(stream->Seek({}, STREAM_SEEK_SET, nullptr));
    ThrowIfFailed(stream->Read(file.data(), static_cast<ULONG>(file.size()), nullptr));
    return file;
}

}  // namespace tarvik
