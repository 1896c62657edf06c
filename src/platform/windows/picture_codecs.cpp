// PNG, JPEG and GIF by the system's imaging component.

#include "platform/picture_readers.h"

#include "platform/windows/convert.h"

#include <objbase.h>
#include <wincodec.h>

namespace platform::driver {
namespace {

/// Counts a COM object's reference for the length of a scope.
template <class Interface>
class Held {
public:
    Held() = default;
    ~Held() {
        if (object_) object_->Release();
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    Interface** out() { return &object_; }
    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }

private:
    Interface* object_ = nullptr;
};

/// COM for this thread while a picture is read.
class ComScope {
public:
    ComScope() : started_(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComScope() {
        if (started_) ::CoUninitialize();
    }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

private:
    bool started_;
};

/// The first frame of the bytes.
bool openFrame(IWICImagingFactory* factory, PictureBytes file, Held<IWICBitmapFrameDecode>& frame) {
    Held<IWICStream> stream;
    Held<IWICBitmapDecoder> decoder;
    auto* bytes = const_cast<BYTE*>(file.data());
    return SUCCEEDED(factory->CreateStream(stream.out())) &&
           SUCCEEDED(stream->InitializeFromMemory(bytes, static_cast<::DWORD>(file.size()))) &&
           SUCCEEDED(factory->CreateDecoderFromStream(stream.get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                                      decoder.out())) &&
           SUCCEEDED(decoder->GetFrame(0, frame.out()));
}

bool copyPixels(IWICImagingFactory* factory, IWICBitmapFrameDecode* frame, PictureData& picture) {
    Held<IWICFormatConverter> converter;
    const ::UINT stride = static_cast<::UINT>(picture.width) * 4;
    const auto size = static_cast<::UINT>(picture.argb.size() * 4);
    return SUCCEEDED(factory->CreateFormatConverter(converter.out())) &&
           SUCCEEDED(converter->Initialize(frame, GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone,
                                           nullptr, 0.0, WICBitmapPaletteTypeCustom)) &&
           SUCCEEDED(
               converter->CopyPixels(nullptr, stride, size, reinterpret_cast<BYTE*>(picture.argb.data())));
}

PictureError decode(PictureBytes file, std::size_t mostPixelsPerByte, PictureData& picture) {
    const ComScope com;
    Held<IWICImagingFactory> factory;
    Held<IWICBitmapFrameDecode> frame;
    if (FAILED(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                  IID_IWICImagingFactory, reinterpret_cast<void**>(factory.out()))))
        return PictureError::UnknownFormat;
    ::UINT width = 0;
    ::UINT height = 0;
    if (!openFrame(factory.get(), file, frame) || FAILED(frame->GetSize(&width, &height)))
        return PictureError::Corrupt;
    if (const auto error = checkPictureSize(width, height); error != PictureError::None) return error;
    if (std::size_t{width} * height / mostPixelsPerByte > file.size()) return PictureError::Corrupt;
    picture.width = static_cast<int>(width);
    picture.height = static_cast<int>(height);
    picture.argb.resize(std::size_t{width} * height);
    return copyPixels(factory.get(), frame.get(), picture) ? PictureError::None : PictureError::Corrupt;
}

bool hasTransparency(const PictureData& picture) {
    for (const std::uint32_t pixel : picture.argb) {
        if (pixel >> 24 != 0xFF) return true;
    }
    return false;
}

// A header may state any size; more pixels than these to a byte no encoder of the format can pack.
constexpr std::size_t mostPngPixelsPerByte = std::size_t{1032} * 8;
constexpr std::size_t mostJpegPixelsPerByte = std::size_t{64} * 8 * 4;
constexpr std::size_t mostGifPixelsPerByte = 4096;

} // namespace

PictureError decodePng(PictureBytes file, PictureData& picture) {
    const auto error = decode(file, mostPngPixelsPerByte, picture);
    picture.hasAlpha = hasTransparency(picture);
    return error;
}

PictureError decodeJpeg(PictureBytes file, PictureData& picture) {
    return decode(file, mostJpegPixelsPerByte, picture);
}

PictureError decodeGif(PictureBytes file, PictureData& picture) {
    const auto error = decode(file, mostGifPixelsPerByte, picture);
    picture.hasAlpha = hasTransparency(picture);
    return error;
}

} // namespace platform::driver
