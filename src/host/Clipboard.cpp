#include "host/Clipboard.h"

#include "automation/Error.h"
#include "platform/input.h"

namespace host {

namespace {

constexpr std::int32_t CannotOpenClipboard = 521;
constexpr std::int32_t FormatDoesNotMatch = 461;

/// Holds the clipboard open for the length of a scope.
class OpenedClipboard {
public:
    OpenedClipboard() {
        if (!platform::OpenClipboard({})) throw automation::Error(CannotOpenClipboard);
    }
    ~OpenedClipboard() { platform::CloseClipboard(); }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
};

/// A bitmap of its own with the same pixels.
platform::HBITMAP copyOf(platform::HBITMAP bitmap) {
    platform::BITMAP about;
    if (!platform::GetObjectBitmap(bitmap, &about)) return {};
    const platform::HDC source = platform::CreateCompatibleDC({});
    const platform::HDC target = platform::CreateCompatibleDC({});
    const platform::HGDIOBJ formerSource = platform::SelectObject(source, bitmap);
    const platform::HBITMAP copy = platform::CreateCompatibleBitmap(source, about.bmWidth, about.bmHeight);
    const platform::HGDIOBJ formerTarget = platform::SelectObject(target, copy);
    platform::BitBlt(target, 0, 0, about.bmWidth, about.bmHeight, source, 0, 0, platform::SRCCOPY);
    platform::SelectObject(source, formerSource);
    platform::SelectObject(target, formerTarget);
    platform::DeleteDC(source);
    platform::DeleteDC(target);
    return copy;
}

bool isBitmap(ClipboardFormat format) {
    return format == ClipboardFormat::Bitmap || format == ClipboardFormat::DIB;
}

/// The format that a picture has of itself.
ClipboardFormat formatOf(const Picture& picture) {
    if (picture.hEnhMetaFile()) return ClipboardFormat::EMetafile;
    return picture.hBitmap() ? ClipboardFormat::Bitmap : ClipboardFormat::None;
}

automation::Ref<Picture> bitmapOnClipboard() {
    const OpenedClipboard opened;
    const platform::HANDLE held = platform::GetClipboardData(platform::CF_BITMAP);
    const platform::HBITMAP copy = copyOf(platform::HBITMAP(held.value));
    return copy ? automation::make<Picture>(copy) : automation::make<Picture>();
}

automation::Ref<Picture> metafileOnClipboard() {
    const OpenedClipboard opened;
    const platform::HANDLE held = platform::GetClipboardData(platform::CF_ENHMETAFILE);
    const platform::HENHMETAFILE copy =
        platform::CopyEnhMetaFileW(platform::HENHMETAFILE(held.value), nullptr);
    return copy ? automation::make<Picture>(copy) : automation::make<Picture>();
}

} // namespace

void Clipboard::Clear() {
    if (!platform::OpenClipboard({})) throw automation::Error(CannotOpenClipboard);
    platform::EmptyClipboard();
    platform::CloseClipboard();
}

automation::String Clipboard::GetText() {
    return platform::clipboardText();
}

void Clipboard::SetText(const automation::String& text) {
    if (!platform::setClipboardText(text)) throw automation::Error(CannotOpenClipboard);
}

bool Clipboard::GetFormat(ClipboardFormat format) {
    return platform::IsClipboardFormatAvailable(static_cast<platform::UINT>(format)) != platform::FALSE_;
}

automation::Ref<Picture> Clipboard::GetData(ClipboardFormat format) {
    if (format == ClipboardFormat::None)
        format = GetFormat(ClipboardFormat::Bitmap) ? ClipboardFormat::Bitmap : ClipboardFormat::EMetafile;
    if (isBitmap(format)) return bitmapOnClipboard();
    if (format != ClipboardFormat::EMetafile) throw automation::Error(FormatDoesNotMatch);
    return metafileOnClipboard();
}

void Clipboard::SetData(const Picture& picture, ClipboardFormat format) {
    const ClipboardFormat own = formatOf(picture);
    if (format == ClipboardFormat::None) format = own;
    if (own == ClipboardFormat::None || isBitmap(format) != isBitmap(own) ||
        (!isBitmap(format) && format != ClipboardFormat::EMetafile))
        throw automation::Error(FormatDoesNotMatch);
    const OpenedClipboard opened;
    if (isBitmap(format)) {
        const platform::HBITMAP copy = copyOf(picture.hBitmap());
        if (!platform::SetClipboardData(platform::CF_BITMAP, platform::HANDLE(copy.value)))
            platform::DeleteObject(copy);
        return;
    }
    const platform::HENHMETAFILE copy = platform::CopyEnhMetaFileW(picture.hEnhMetaFile(), nullptr);
    if (!platform::SetClipboardData(platform::CF_ENHMETAFILE, platform::HANDLE(copy.value)))
        platform::DeleteEnhMetaFile(copy);
}

} // namespace host
