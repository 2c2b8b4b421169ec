#include "webbrowser/Picture.h"

#include <windows.h>

#include <wincodec.h>

#include "framework/ComPtr.h"
#include "framework/HResult.h"

namespace nux::webbrowser {

Picture DecodePicture(std::span<const std::uint8_t> file) {
    ComPtr<IWICImagingFactory> factory;
    ThrowIfFailed(CreateObject(CLSID_WICImagingFactory, factory));
    ComPtr<IWICStream> stream;
    ThrowIfFailed(factory->CreateStream(stream.Receive()));
    ThrowIfFailed(
        stream->InitializeFromMemory(const_cast<BYTE*>(file.data()), static_cast<DWORD>(file.size())));
    ComPtr<IWICBitmapDecoder> decoder;
    ThrowIfFailed(factory->CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                                   decoder.Receive()));
    ComPtr<IWICBitmapFrameDecode> frame;
    ThrowIfFailed(decoder->GetFrame(0, frame.Receive()));
    ComPtr<IWICFormatConverter> converter;
    ThrowIfFailed(factory->CreateFormatConverter(converter.Receive()));
    ThrowIfFailed(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppBGR, WICBitmapDitherTypeNone,
                                        nullptr, 0, WICBitmapPaletteTypeCustom));
    UINT width = 0;
    UINT height = 0;
    ThrowIfFailed(converter->GetSize(&width, &height));
    // No window is larger; the sizes below stay within their types.
    if (width == 0 || height == 0 || width > 16384 || height > 16384)
        throw HResultError(E_INVALIDARG);
    Picture picture{{static_cast<int>(width), static_cast<int>(height)},
                    std::vector<std::uint32_t>(std::size_t{width} * height)};
    ThrowIfFailed(converter->CopyPixels(nullptr, width * 4, width * height * 4,
                                        reinterpret_cast<BYTE*>(picture.pixels.data())));
    return picture;
}

}  // namespace nux::webbrowser
