#include "platform/linux/wmf_player.h"

#include "platform/linux/metafile_bits.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/locale.h"

#include <algorithm>

namespace platform::driver {

namespace {

/// What a record does. The names are the format's, without META_.
enum Function : DWORD {
    SaveContext = 0x001E,
    SetBackMode = 0x0102,
    SetMapping = 0x0103,
    SetRop = 0x0104,
    SetFillMode = 0x0106,
    SetStretchMode = 0x0107,
    SetCharacterExtra = 0x0108,
    RestoreContext = 0x0127,
    SelectEntry = 0x012D,
    SetAlign = 0x012E,
    DibCreatePatternBrush = 0x0142,
    DeleteEntry = 0x01F0,
    SetBackColor = 0x0201,
    SetColor = 0x0209,
    SetJustification = 0x020A,
    SetWindowOrigin = 0x020B,
    SetWindowExtent = 0x020C,
    SetViewportOrigin = 0x020D,
    SetViewportExtent = 0x020E,
    OffsetWindowOrigin = 0x020F,
    OffsetViewportOrigin = 0x0211,
    DrawLineTo = 0x0213,
    MoveTo = 0x0214,
    OffsetClip = 0x0220,
    CreatePenEntry = 0x02FA,
    CreateFontEntry = 0x02FB,
    CreateBrushEntry = 0x02FC,
    DrawPolygon = 0x0324,
    DrawPolyline = 0x0325,
    ScaleWindowExtent = 0x0410,
    ScaleViewportExtent = 0x0412,
    ExcludeClip = 0x0415,
    IntersectClip = 0x0416,
    DrawEllipse = 0x0418,
    FillFlood = 0x0419,
    DrawRectangle = 0x041B,
    DrawPixel = 0x041F,
    DrawString = 0x0521,
    DrawPolyPolygon = 0x0538,
    ExtFill = 0x0548,
    DrawRoundRect = 0x061C,
    PatternBlit = 0x061D,
    DrawArc = 0x0817,
    DrawPie = 0x081A,
    DrawChord = 0x0830,
    DibBitBlt = 0x0940,
    ExtText = 0x0A32,
    DibStretchBlt = 0x0B41,
    SetDibToDevice = 0x0D33,
    StretchDib = 0x0F43,
};

/// Those that take a place in the table without a use here: palettes, regions, bitmaps of the device.
constexpr DWORD otherObjects[] = {0x00F7, 0x01F9, 0x06FF, 0x02FD, 0x06FE, 0x00F8};

constexpr std::size_t headerSize = 18;
constexpr std::size_t recordHead = 6;

} // namespace

int WmfPlayer::Words::operator[](std::size_t index) const {
    std::int16_t value = 0;
    if (index < count()) std::memcpy(&value, bytes_.data() + index * 2, sizeof value);
    return value;
}

DWORD WmfPlayer::Words::dword(std::size_t index) const {
    DWORD value = 0;
    if (index + 1 < count()) std::memcpy(&value, bytes_.data() + index * 2, sizeof value);
    return value;
}

std::span<const BYTE> WmfPlayer::Words::from(std::size_t index) const {
    return bytes_.subspan(std::min(index * 2, bytes_.size()));
}

WmfPlayer::~WmfPlayer() {
    if (saved_ > 0) RestoreDC(dc_, -saved_);
    SelectObject(dc_, GetStockObject(BLACK_PEN));
    SelectObject(dc_, GetStockObject(WHITE_BRUSH));
    SelectObject(dc_, GetStockObject(SYSTEM_FONT));
    for (const HGDIOBJ object : objects_)
        if (object) DeleteObject(object);
}

bool WmfPlayer::play() {
    constexpr DWORD end = 0;
    constexpr std::size_t headerWords = 9;
    const Words header(bytes_);
    if (bytes_.size() < headerSize || static_cast<std::size_t>(header[1]) != headerWords) return false;
    std::span<const BYTE> rest = bytes_.subspan(headerSize);
    while (rest.size() >= recordHead) {
        const Words head(rest);
        const std::uint64_t size = std::uint64_t{head.dword(0)} * 2;
        const DWORD function = static_cast<WORD>(head[2]);
        if (size < recordHead || size > rest.size() || function == end) break;
        playRecord(function, Words(rest.subspan(recordHead, static_cast<std::size_t>(size) - recordHead)));
        rest = rest.subspan(static_cast<std::size_t>(size));
    }
    return true;
}

void WmfPlayer::playRecord(DWORD function, const Words& words) {
    if (setState(function, words) || setCoordinates(function, words) || drawShape(function, words) ||
        makeObject(function, words))
        return;
    drawPicture(function, words);
}

bool WmfPlayer::setState(DWORD function, const Words& words) {
    switch (function) {
    case SaveContext:
        if (SaveDC(dc_) != 0) ++saved_;
        return true;
    case RestoreContext: {
        const int depth = words[0];
        const int steps = depth < 0 ? -depth : saved_ - depth + 1;
        if (steps < 1 || steps > saved_) return true;
        RestoreDC(dc_, -steps);
        saved_ -= steps;
        return true;
    }
    case SetBackMode:
        SetBkMode(dc_, words[0]);
        return true;
    case SetRop:
        SetROP2(dc_, words[0]);
        return true;
    case SetFillMode:
        SetPolyFillMode(dc_, words[0]);
        return true;
    case SetStretchMode:
        SetStretchBltMode(dc_, words[0]);
        return true;
    case SetCharacterExtra:
        SetTextCharacterExtra(dc_, words[0]);
        return true;
    case SetAlign:
        SetTextAlign(dc_, static_cast<WORD>(words[0]));
        return true;
    case SetBackColor:
        SetBkColor(dc_, words.dword(0));
        return true;
    case SetColor:
        SetTextColor(dc_, words.dword(0));
        return true;
    case SetJustification:
        SetTextJustification(dc_, words[1], words[0]);
        return true;
    default:
        return false;
    }
}

bool WmfPlayer::setCoordinates(DWORD function, const Words& words) {
    switch (function) {
    case SetMapping:
        SetMapMode(dc_, words[0]);
        return true;
    case SetWindowOrigin:
        SetWindowOrgEx(dc_, words[1], words[0], nullptr);
        return true;
    case SetWindowExtent:
        SetWindowExtEx(dc_, words[1], words[0], nullptr);
        return true;
    case SetViewportOrigin:
        SetViewportOrgEx(dc_, words[1], words[0], nullptr);
        return true;
    case SetViewportExtent:
        SetViewportExtEx(dc_, words[1], words[0], nullptr);
        return true;
    case OffsetWindowOrigin:
        OffsetWindowOrgEx(dc_, words[1], words[0], nullptr);
        return true;
    case OffsetViewportOrigin:
        OffsetViewportOrgEx(dc_, words[1], words[0], nullptr);
        return true;
    case ScaleWindowExtent:
        ScaleWindowExtEx(dc_, words[3], words[2], words[1], words[0], nullptr);
        return true;
    case ScaleViewportExtent:
        ScaleViewportExtEx(dc_, words[3], words[2], words[1], words[0], nullptr);
        return true;
    case OffsetClip:
        OffsetClipRgn(dc_, words[1], words[0]);
        return true;
    case ExcludeClip:
        ExcludeClipRect(dc_, words[3], words[2], words[1], words[0]);
        return true;
    case IntersectClip:
        IntersectClipRect(dc_, words[3], words[2], words[1], words[0]);
        return true;
    default:
        return false;
    }
}

std::vector<POINT> WmfPlayer::points(const Words& words, std::size_t first, std::size_t count) const {
    std::vector<POINT> result;
    for (std::size_t i = 0; i < count && first + 2 * i + 1 < words.count(); ++i)
        result.push_back({words[first + 2 * i], words[first + 2 * i + 1]});
    return result;
}

void WmfPlayer::drawPolyPolygon(const Words& words) {
    const auto polygons = static_cast<std::size_t>(std::max(0, words[0]));
    std::vector<INT> counts;
    std::size_t sum = 0;
    for (std::size_t i = 0; i < polygons; ++i) {
        counts.push_back(words[1 + i]);
        sum += static_cast<std::size_t>(std::max(0, counts.back()));
    }
    const std::vector<POINT> all = points(words, 1 + polygons, sum);
    if (all.size() == sum && sum > 0) PolyPolygon(dc_, all.data(), counts.data(), static_cast<int>(polygons));
}

void WmfPlayer::drawText(POINT at, UINT options, const RECT* rect, std::span<const BYTE> bytes) {
    ExtTextOutA(dc_, at.x, at.y, options, rect, reinterpret_cast<const char*>(bytes.data()),
                static_cast<UINT>(bytes.size()), nullptr);
}

bool WmfPlayer::drawShape(DWORD function, const Words& words) {
    const auto count = static_cast<std::size_t>(static_cast<WORD>(words[0]));
    switch (function) {
    case MoveTo:
        MoveToEx(dc_, words[1], words[0], nullptr);
        return true;
    case DrawLineTo:
        LineTo(dc_, words[1], words[0]);
        return true;
    case DrawPolygon:
    case DrawPolyline: {
        const std::vector<POINT> all = points(words, 1, count);
        const auto draw = function == DrawPolygon ? Polygon : Polyline;
        draw(dc_, all.data(), static_cast<int>(all.size()));
        return true;
    }
    case DrawPolyPolygon:
        drawPolyPolygon(words);
        return true;
    case DrawRectangle:
        Rectangle(dc_, words[3], words[2], words[1], words[0]);
        return true;
    case DrawEllipse:
        Ellipse(dc_, words[3], words[2], words[1], words[0]);
        return true;
    case DrawRoundRect:
        RoundRect(dc_, words[5], words[4], words[3], words[2], words[1], words[0]);
        return true;
    case DrawArc:
    case DrawPie:
    case DrawChord: {
        const auto draw = function == DrawArc ? Arc : function == DrawPie ? Pie : Chord;
        draw(dc_, words[7], words[6], words[5], words[4], words[3], words[2], words[1], words[0]);
        return true;
    }
    case DrawPixel:
        SetPixel(dc_, words[3], words[2], words.dword(0));
        return true;
    case PatternBlit:
        PatBlt(dc_, words[5], words[4], words[3], words[2], words.dword(0));
        return true;
    case FillFlood:
        ExtFloodFill(dc_, words[3], words[2], words.dword(0), FLOODFILLBORDER);
        return true;
    case ExtFill:
        ExtFloodFill(dc_, words[4], words[3], words.dword(1), static_cast<UINT>(words[0]));
        return true;
    case DrawString: {
        const std::span<const BYTE> bytes = words.from(1);
        const std::size_t after = 1 + (count + 1) / 2;
        drawText({words[after + 1], words[after]}, 0, nullptr, bytes.first(std::min(count, bytes.size())));
        return true;
    }
    case ExtText: {
        const auto length = static_cast<std::size_t>(static_cast<WORD>(words[2]));
        const UINT options = static_cast<WORD>(words[3]) & (ETO_OPAQUE | ETO_CLIPPED);
        const RECT rect{words[4], words[5], words[6], words[7]};
        const std::span<const BYTE> bytes = words.from(options != 0 ? 8 : 4);
        drawText({words[1], words[0]}, options, options != 0 ? &rect : nullptr,
                 bytes.first(std::min(length, bytes.size())));
        return true;
    }
    default:
        return false;
    }
}

void WmfPlayer::addObject(HGDIOBJ object) {
    constexpr std::size_t mostObjects = 1 << 16;
    const auto free = std::find(objects_.begin(), objects_.end(), HGDIOBJ());
    if (free != objects_.end()) {
        *free = object;
    } else if (objects_.size() < mostObjects) {
        objects_.push_back(object);
    } else {
        DeleteObject(object);
    }
}

void WmfPlayer::createFont(const Words& words) {
    constexpr std::size_t nameAt = 9;
    LOGFONTW font;
    font.lfHeight = words[0];
    font.lfWidth = words[1];
    font.lfEscapement = words[2];
    font.lfOrientation = words[3];
    font.lfWeight = words[4];
    const auto low = [&](std::size_t index) { return static_cast<BYTE>(words[index]); };
    const auto high = [&](std::size_t index) { return static_cast<BYTE>(words[index] >> 8); };
    font.lfItalic = low(5);
    font.lfUnderline = high(5);
    font.lfStrikeOut = low(6);
    font.lfCharSet = high(6);
    font.lfOutPrecision = low(7);
    font.lfClipPrecision = high(7);
    font.lfQuality = low(8);
    font.lfPitchAndFamily = high(8);
    const std::span<const BYTE> bytes = words.from(nameAt);
    const auto end = std::find(bytes.begin(), bytes.end(), BYTE{0});
    wideFromAnsi({reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(end - bytes.begin())})
        .copy(font.lfFaceName, LF_FACESIZE - 1);
    addObject(CreateFontIndirectW(&font));
}

bool WmfPlayer::makeObject(DWORD function, const Words& words) {
    const auto index = static_cast<std::size_t>(static_cast<WORD>(words[0]));
    switch (function) {
    case CreatePenEntry:
        addObject(CreatePen(words[0], words[1], words.dword(3)));
        return true;
    case CreateBrushEntry: {
        const LOGBRUSH data{static_cast<WORD>(words[0]), words.dword(1), static_cast<WORD>(words[3])};
        addObject(data.lbStyle <= BS_HATCHED ? HGDIOBJ(CreateBrushIndirect(&data))
                                             : GetStockObject(NULL_BRUSH));
        return true;
    }
    case CreateFontEntry:
        createFont(words);
        return true;
    case DibCreatePatternBrush: {
        const auto picture = packedPictureOf(words.from(2), pixelsLeft_);
        const HBITMAP bitmap =
            picture ? CreateBitmap(picture->width, picture->height, 1, 32, picture->argb.data()) : HBITMAP();
        addObject(bitmap ? HGDIOBJ(CreatePatternBrush(bitmap)) : GetStockObject(NULL_BRUSH));
        DeleteObject(bitmap);
        return true;
    }
    case SelectEntry:
        if (index < objects_.size() && objects_[index]) SelectObject(dc_, objects_[index]);
        return true;
    case DeleteEntry:
        if (index < objects_.size() && objects_[index]) {
            DeleteObject(objects_[index]);
            objects_[index] = {};
        }
        return true;
    default:
        break;
    }
    if (std::find(std::begin(otherObjects), std::end(otherObjects), function) == std::end(otherObjects))
        return false;
    addObject(GetStockObject(DEFAULT_PALETTE));
    return true;
}

void WmfPlayer::drawDib(const RECT& target, const RECT& source, std::span<const BYTE> dib, DWORD rop,
                        bool fromBottom) {
    const auto picture = packedPictureOf(dib, pixelsLeft_);
    if (!picture) return;
    const HBITMAP bitmap = CreateBitmap(picture->width, picture->height, 1, 32, picture->argb.data());
    const HDC from = CreateCompatibleDC({});
    const HGDIOBJ former = SelectObject(from, bitmap);
    const LONG height = source.bottom - source.top;
    const LONG top = fromBottom ? picture->height - source.top - height : source.top;
    StretchBlt(dc_, target.left, target.top, target.right - target.left, target.bottom - target.top, from,
               source.left, top, source.right - source.left, height, rop);
    SelectObject(from, former);
    DeleteDC(from);
    DeleteObject(bitmap);
}

void WmfPlayer::drawPicture(DWORD function, const Words& words) {
    const auto rect = [](LONG x, LONG y, LONG width, LONG height) {
        return RECT{x, y, x + width, y + height};
    };
    switch (function) {
    case DibBitBlt:
        // Without a picture a word more stands in its place, and the operation has no source.
        drawDib(rect(words[7], words[6], words[5], words[4]), rect(words[3], words[2], words[5], words[4]),
                words.from(8), words.dword(0), false);
        break;
    case DibStretchBlt:
        drawDib(rect(words[9], words[8], words[7], words[6]), rect(words[5], words[4], words[3], words[2]),
                words.from(10), words.dword(0), false);
        break;
    case StretchDib:
        drawDib(rect(words[10], words[9], words[8], words[7]), rect(words[6], words[5], words[4], words[3]),
                words.from(11), words.dword(0), true);
        break;
    case SetDibToDevice:
        drawDib(rect(words[8], words[7], words[6], words[5]), rect(words[4], words[3], words[6], words[5]),
                words.from(9), SRCCOPY, true);
        break;
    default:
        break;
    }
}

} // namespace platform::driver

namespace platform {

using namespace driver;

HENHMETAFILE SetWinMetaFileBits(UINT size, const BYTE* data, HDC reference, const METAFILEPICT* picture) {
    if (!data) return {};
    const HDC screen = CreateCompatibleDC({});
    const HDC device = reference ? reference : screen;
    const SIZE pixels{GetDeviceCaps(device, HORZRES), GetDeviceCaps(device, VERTRES)};
    const SIZE hundredths{GetDeviceCaps(device, HORZSIZE) * 100, GetDeviceCaps(device, VERTSIZE) * 100};
    const bool hasSize = picture && picture->xExt > 0 && picture->yExt > 0;
    const SIZE extent = hasSize ? SIZE{picture->xExt, picture->yExt} : hundredths;
    const RECT frame{0, 0, extent.cx, extent.cy};
    const HDC recording = CreateEnhMetaFileW(device, nullptr, &frame, nullptr);
    DeleteDC(screen);
    if (!recording) return {};
    const auto viewport = [](LONG length, LONG resolution, LONG whole) {
        return static_cast<int>((std::int64_t{length} * resolution + whole / 2) / std::max<LONG>(1, whole));
    };
    SetMapMode(recording, picture ? picture->mm : MM_ANISOTROPIC);
    SetViewportExtEx(recording, std::max(1, viewport(extent.cx, pixels.cx, hundredths.cx)),
                     std::max(1, viewport(extent.cy, pixels.cy, hundredths.cy)), nullptr);
    const bool good = WmfPlayer(recording, {data, size}).play();
    const HENHMETAFILE metafile = CloseEnhMetaFile(recording);
    if (good) return metafile;
    DeleteEnhMetaFile(metafile);
    return {};
}

} // namespace platform
