#include "platform/linux/metafile_player.h"

#include <algorithm>
#include <array>

namespace platform::driver {

namespace {

constexpr std::int64_t mostPicturePixels = 1LL << 28;
constexpr double hundredthsPerMillimetre = 100;
constexpr double micrometresPerMillimetre = 1000;
constexpr DWORD lastType = 122;

/// Hundredths of a millimetre to a pixel of the recording device.
double himetricPerPixel(LONG micrometres, LONG millimetres, LONG pixels) {
    if (pixels <= 0) return 1;
    const double length = micrometres > 0 ? micrometres / micrometresPerMillimetre : millimetres;
    return length > 0 ? length * hundredthsPerMillimetre / pixels : 1;
}

/// The header as a player can work with it: no size of the device is 0.
ENHMETAHEADER sensible(ENHMETAHEADER header) {
    for (SIZE* size : {&header.szlDevice, &header.szlMillimeters})
        *size = {std::max<LONG>(1, size->cx), std::max<LONG>(1, size->cy)};
    return header;
}

double ratio(double a, double b) {
    return b != 0 ? a / b : 1;
}

/// Puts the recording's frame on a rectangle.
Transform frameOnto(const ENHMETAHEADER& header, const RECT& target) {
    const RECT& frame = header.rclFrame;
    const double perX =
        himetricPerPixel(header.szlMicrometers.cx, header.szlMillimeters.cx, header.szlDevice.cx);
    const double perY =
        himetricPerPixel(header.szlMicrometers.cy, header.szlMillimeters.cy, header.szlDevice.cy);
    const double width = static_cast<double>(frame.right) - frame.left;
    const double height = static_cast<double>(frame.bottom) - frame.top;
    return Transform::scale(perX, perY)
        .then(Transform::move(-static_cast<double>(frame.left), -static_cast<double>(frame.top)))
        .then(Transform::scale(ratio(static_cast<double>(target.right) - target.left, width),
                               ratio(static_cast<double>(target.bottom) - target.top, height)))
        .then(Transform::move(target.left, target.top));
}

/// From logical units to pixels.
Transform pixelsOf(const Mapping& mapping) {
    const MappingAxes axes = mapping.toAxes();
    return Transform::scale(axes.across.scale, axes.down.scale)
        .then(Transform::move(axes.across.offset, axes.down.offset));
}

} // namespace

MetafilePlayer::MetafilePlayer(HDC dc, DeviceContext& target, const Metafile& metafile, const RECT& rect)
    : dc_(dc), target_(target), metafile_(metafile), header_(sensible(metafile.header())),
      base_(frameOnto(header_, rect).then(pixelsOf(target.state.mapping))), entries_(header_.nHandles),
      baseClip_(target.state.clip), pixelsLeft_(mostPicturePixels) {
    SaveDC(dc_);
    target_.state.mapping = {};
    target_.state.path.drop();
    SelectObject(dc_, GetStockObject(WHITE_BRUSH));
    SelectObject(dc_, GetStockObject(BLACK_PEN));
    SelectObject(dc_, GetStockObject(SYSTEM_FONT));
    SetTextColor(dc_, RGB(0, 0, 0));
    SetBkColor(dc_, RGB(255, 255, 255));
    SetBkMode(dc_, OPAQUE);
    SetTextAlign(dc_, TA_LEFT);
    SetROP2(dc_, R2_COPYPEN);
    SetPolyFillMode(dc_, ALTERNATE);
    SetStretchBltMode(dc_, BLACKONWHITE);
    SetTextCharacterExtra(dc_, 0);
    SetTextJustification(dc_, 0, 0);
    GetObjectFont(HFONT(GetStockObject(SYSTEM_FONT).value), &state_.font);
    useMapping();
}

MetafilePlayer::~MetafilePlayer() {
    for (std::size_t i = 0; i < saved_.size(); ++i)
        RestoreDC(dc_, -1);
    RestoreDC(dc_, -1);
    if (pen_) DeleteObject(pen_);
    if (font_) DeleteObject(font_);
}

MetafilePlayer::Handler MetafilePlayer::handlerOf(DWORD type) {
    static const std::array<Handler, lastType + 1> handlers = [] {
        std::array<Handler, lastType + 1> result{};
        for (const Binding* binding = bindings; binding->handler; ++binding)
            result[static_cast<std::size_t>(binding->type)] = binding->handler;
        return result;
    }();
    return type <= lastType ? handlers[type] : nullptr;
}

bool MetafilePlayer::play() {
    bool allGood = true;
    const bool reachedEnd = forEachRecord(metafile_, [&](DWORD type, std::span<const BYTE> record) {
        if (const Handler handler = handlerOf(type)) {
            RecordReader reader(record);
            (this->*handler)(reader);
            allGood &= !reader.failed();
        }
        return true;
    });
    return reachedEnd && allGood;
}

POINT MetafilePlayer::toTarget(double x, double y) const {
    const RealPoint p = all_.apply({x, y});
    return {roundedCoordinate(p.x), roundedCoordinate(p.y)};
}

RECT MetafilePlayer::toTarget(const RECT& r) const {
    const POINT topLeft = toTarget(r.left, r.top);
    const POINT bottomRight = toTarget(r.right, r.bottom);
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL PlayEnhMetaFile(HDC dc, HENHMETAFILE handle, const RECT* rect) {
    DeviceContext* context = find<DeviceContext>(dc);
    const Metafile* metafile = find<Metafile>(handle);
    if (!context || !metafile || !rect) return FALSE_;
    return MetafilePlayer(dc, *context, *metafile, *rect).play();
}

} // namespace platform
