#include "platform/resources.h"

#include "platform/windows/convert.h"

#include <cstring>
#include <span>

namespace platform {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr WORD singleCursor = 1;
constexpr WORD singleIcon = 3;
constexpr std::size_t directorySize = 6;
constexpr std::size_t entryInResource = 14;
constexpr std::size_t entryInFile = 16;
constexpr std::size_t hotSpotSize = 4;

::LPCWSTR numbered(WORD number) {
    return reinterpret_cast<::LPCWSTR>(static_cast<::ULONG_PTR>(number));
}

std::span<const std::uint8_t> bytesOf(::HINSTANCE module, WORD type, ::LPCWSTR name) {
    const ::HRSRC found = ::FindResourceW(module, name, numbered(type));
    if (!found) return {};
    const void* data = ::LockResource(::LoadResource(module, found));
    return {static_cast<const std::uint8_t*>(data), data ? ::SizeofResource(module, found) : 0u};
}

template <class Number>
Number at(std::span<const std::uint8_t> bytes, std::size_t offset) {
    Number value{};
    if (offset + sizeof value <= bytes.size()) std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

template <class Number>
void put(Bytes& bytes, Number value) {
    const auto* raw = reinterpret_cast<const std::uint8_t*>(&value);
    bytes.insert(bytes.end(), raw, raw + sizeof value);
}

/// A bitmap resource lacks the file's header.
Bytes bitmapFile(std::span<const std::uint8_t> dib) {
    constexpr DWORD fileHeader = 14;
    constexpr DWORD coreHeader = 12;
    const DWORD header = at<DWORD>(dib, 0);
    const WORD bits = at<WORD>(dib, header == coreHeader ? 10 : 14);
    const DWORD used = header == coreHeader ? 0 : at<DWORD>(dib, 32);
    const DWORD colours = bits <= 8 && used == 0 ? 1u << bits : used;
    const bool masks = header == 40 && (at<DWORD>(dib, 16) == BI_BITFIELDS);
    const DWORD pixels = fileHeader + header + (masks ? 12 : 0) + colours * (header == coreHeader ? 3 : 4);
    Bytes file = {'B', 'M'};
    put(file, static_cast<DWORD>(fileHeader + dib.size()));
    put(file, DWORD{0});
    put(file, pixels);
    file.insert(file.end(), dib.begin(), dib.end());
    return file;
}

/// One picture of a group, as a file's directory entry and its bytes.
struct GroupImage {
    Bytes entry;
    std::span<const std::uint8_t> bytes;
};

GroupImage groupImage(::HINSTANCE module, std::span<const std::uint8_t> entry, bool cursor) {
    GroupImage image;
    image.bytes = bytesOf(module, cursor ? singleCursor : singleIcon, numbered(at<WORD>(entry, 12)));
    if (cursor) {
        // A cursor's entry has words for its size, the height with the mask; the hot spot leads its bytes.
        put(image.entry, static_cast<BYTE>(at<WORD>(entry, 0)));
        put(image.entry, static_cast<BYTE>(at<WORD>(entry, 2) / 2));
        put(image.entry, WORD{0});
        put(image.entry, at<DWORD>(image.bytes, 0));
        image.bytes = image.bytes.subspan(std::min(hotSpotSize, image.bytes.size()));
    } else {
        image.entry.assign(entry.begin(), entry.begin() + 8);
    }
    put(image.entry, static_cast<DWORD>(image.bytes.size()));
    return image;
}

/// An icon or cursor file out of a group and its members.
Bytes groupFile(::HINSTANCE module, std::span<const std::uint8_t> group, bool cursor) {
    const WORD count = at<WORD>(group, 4);
    if (group.size() < directorySize + entryInResource * count) return {};
    Bytes file(group.begin(), group.begin() + directorySize);
    Bytes images;
    const std::size_t firstImage = directorySize + entryInFile * count;
    for (WORD i = 0; i < count; ++i) {
        const auto entry = group.subspan(directorySize + entryInResource * i, entryInResource);
        const GroupImage image = groupImage(module, entry, cursor);
        file.insert(file.end(), image.entry.begin(), image.entry.end());
        put(file, static_cast<DWORD>(firstImage + images.size()));
        images.insert(images.end(), image.bytes.begin(), image.bytes.end());
    }
    file.insert(file.end(), images.begin(), images.end());
    return file;
}

} // namespace

std::vector<std::uint8_t> resourceBytes(HINSTANCE module, ResourceType type, const ResourceName& name) {
    const ::HINSTANCE from = driver::native(module);
    const ::LPCWSTR key = name.isNumber() ? numbered(name.number()) : driver::wide(name.name().c_str());
    const auto bytes = bytesOf(from, static_cast<WORD>(type), key);
    if (bytes.empty()) return {};
    switch (type) {
    case ResourceType::Bitmap:
        return bitmapFile(bytes);
    case ResourceType::Cursor:
        return groupFile(from, bytes, true);
    case ResourceType::Icon:
        return groupFile(from, bytes, false);
    case ResourceType::RawData:
        break;
    }
    return {bytes.begin(), bytes.end()};
}

std::uint32_t systemImage(ResourceType type, WORD number) {
    ::UINT kind = IMAGE_BITMAP;
    if (type == ResourceType::Icon) kind = IMAGE_ICON;
    if (type == ResourceType::Cursor) kind = IMAGE_CURSOR;
    return driver::handleValue(::LoadImageW(nullptr, numbered(number), kind, 0, 0, 0));
}

} // namespace platform
