// Metafiles: records that are played on a small sheet and recorded again.
#include "input.h"
#include "platform/metafiles.h"

#include <cstring>
#include <vector>

namespace {

using namespace platform;

constexpr int side = 64;

/// A metafile of any records below a header that fits them.
HENHMETAFILE metafileOf(const std::uint8_t* data, std::size_t size) {
    ENHMETAHEADER header;
    header.nSize = sizeof header;
    header.nBytes = static_cast<DWORD>(sizeof header + size);
    header.nHandles = 16;
    header.rclFrame = {0, 0, 1600, 1600};
    header.szlDevice = {1280, 1024};
    header.szlMillimeters = {320, 256};
    std::vector<BYTE> bytes(sizeof header);
    std::memcpy(bytes.data(), &header, sizeof header);
    bytes.insert(bytes.end(), data, data + size);
    return SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data());
}

void play(HDC dc, HENHMETAFILE metafile) {
    const RECT whole{0, 0, side, side};
    PlayEnhMetaFile(dc, metafile, &whole);
    DeleteEnhMetaFile(metafile);
}

/// Plays it on another recording, and that one on the sheet.
void playTwice(HDC sheet, HENHMETAFILE metafile) {
    const HDC recording = CreateEnhMetaFileA(sheet, nullptr, nullptr, nullptr);
    play(recording, metafile);
    play(sheet, CloseEnhMetaFile(recording));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::uint8_t choice = fuzz::takeByte(data, size);
    const HDC dc = CreateCompatibleDC({});
    const HBITMAP bitmap = CreateBitmap(side, side, 1, choice & 0x80 ? 1 : 32, nullptr);
    const HGDIOBJ former = SelectObject(dc, bitmap);
    switch (choice & 3) {
    case 0:
        play(dc, metafileOf(data, size));
        break;
    case 1:
        playTwice(dc, metafileOf(data, size));
        break;
    case 2:
        play(dc, SetWinMetaFileBits(static_cast<UINT>(size), data, dc, nullptr));
        break;
    default:
        play(dc, readMetafilePicture({data, size}).metafile);
        break;
    }
    SelectObject(dc, former);
    DeleteObject(bitmap);
    DeleteDC(dc);
    return 0;
}
