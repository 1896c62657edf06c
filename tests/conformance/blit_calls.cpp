#include "conformance/blit_calls.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace conformance {

using namespace platform;

namespace {

constexpr int dibWidth = 24;
constexpr int dibHeight = 16;
constexpr int iconSide = 16;
constexpr int maskSide = 32;

/// Bytes that depend on nothing but the seed.
class Bytes {
public:
    explicit Bytes(int seed) : state_(static_cast<std::uint32_t>(seed) * 2654435761u + 12345u) {}

    BYTE next() {
        state_ = state_ * 1664525u + 1013904223u;
        return static_cast<BYTE>(state_ >> 24);
    }
    std::vector<BYTE> many(std::size_t count) {
        std::vector<BYTE> result(count);
        for (BYTE& byte : result)
            byte = next();
        return result;
    }

private:
    std::uint32_t state_;
};

std::size_t rowBytes(int width, int bits) {
    return static_cast<std::size_t>((width * bits + 31) / 32 * 4);
}

/// Words of 32 bits as a blend takes them.
void multiplyByAlpha(std::vector<BYTE>& words) {
    for (std::size_t i = 0; i + 3 < words.size(); i += 4)
        for (std::size_t part = 0; part < 3; ++part)
            words[i + part] = static_cast<BYTE>(words[i + part] * words[i + 3] / 255);
}

struct Dib {
    BITMAPINFO info;
    std::vector<BYTE> bits;
};

Dib makeDib(int width, int height, int bits, int seed) {
    Bytes bytes(seed);
    Dib dib;
    dib.info.bmiHeader.biWidth = width;
    dib.info.bmiHeader.biHeight = height;
    dib.info.bmiHeader.biBitCount = static_cast<WORD>(bits);
    for (RGBQUAD& color : dib.info.bmiColors)
        color = {bytes.next(), bytes.next(), bytes.next(), 0};
    dib.bits = bytes.many(rowBytes(width, bits) * static_cast<std::size_t>(std::abs(height)));
    if (bits == 32) multiplyByAlpha(dib.bits);
    return dib;
}

HBITMAP noiseMask(int width, int height, int seed) {
    const std::size_t bytes = static_cast<std::size_t>((width + 15) / 16 * 2 * height);
    return CreateBitmap(width, height, 1, 1, Bytes(seed).many(bytes).data());
}

HBITMAP noisePicture(int seed, bool withAlpha) {
    const Dib dib = makeDib(iconSide, -iconSide, 32, seed);
    void* pixels = nullptr;
    const HBITMAP bitmap = CreateDIBSection(HDC(), &dib.info, DIB_RGB_COLORS, &pixels, HANDLE(), 0);
    std::copy(dib.bits.begin(), dib.bits.end(), static_cast<BYTE*>(pixels));
    for (int i = 3; !withAlpha && i < iconSide * iconSide * 4; i += 4)
        static_cast<BYTE*>(pixels)[i] = 0;
    return bitmap;
}

HICON noiseIcon(int kind, int seed) {
    ICONINFO info;
    info.hbmMask = noiseMask(iconSide, kind == 0 ? 2 * iconSide : iconSide, seed + 1);
    if (kind != 0) info.hbmColor = noisePicture(seed, kind == 2);
    const HICON icon = CreateIconIndirect(&info);
    DeleteObject(info.hbmMask);
    if (info.hbmColor) DeleteObject(info.hbmColor);
    return icon;
}

TRIVERTEX vertex(int x, int y, COLORREF color) {
    const auto part = [color](int shift) { return static_cast<WORD>((color >> shift & 0xFF) << 8); };
    return {x, y, part(0), part(8), part(16), 0};
}

} // namespace

int noise(HDC dc, int seed) {
    const HBITMAP bitmap(GetCurrentObject(dc, OBJ_BITMAP).value);
    BITMAP data;
    if (!GetObjectBitmap(bitmap, &data)) return 0;
    if (data.bmBits) {
        const std::size_t size =
            static_cast<std::size_t>(data.bmWidthBytes) * static_cast<std::size_t>(data.bmHeight);
        std::vector<BYTE> bytes = Bytes(seed).many(size);
        if (data.bmBitsPixel == 32) multiplyByAlpha(bytes);
        std::copy(bytes.begin(), bytes.end(), static_cast<BYTE*>(data.bmBits));
        return 1;
    }
    Bytes bytes(seed);
    for (int y = 0; y < data.bmHeight; ++y)
        for (int x = 0; x < data.bmWidth; ++x)
            SetPixelV(dc, x, y, bytes.next() < 128 ? 0 : 0xFFFFFF);
    return 1;
}

BOOL alphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                int widthSource, int heightSource, int alpha, int format) {
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, static_cast<BYTE>(alpha), static_cast<BYTE>(format)};
    return AlphaBlend(dc, x, y, width, height, source, xSource, ySource, widthSource, heightSource, blend);
}

BOOL gradientRectangle(HDC dc, int mode, int x1, int y1, COLORREF color1, int x2, int y2, COLORREF color2) {
    const TRIVERTEX corners[] = {vertex(x1, y1, color1), vertex(x2, y2, color2)};
    const GRADIENT_RECT mesh{0, 1};
    return GradientFill(dc, corners, 2, &mesh, 1, static_cast<DWORD>(mode));
}

BOOL gradientTriangle(HDC dc, int x1, int y1, COLORREF color1, int x2, int y2, COLORREF color2, int x3,
                      int y3, COLORREF color3) {
    const TRIVERTEX corners[] = {vertex(x1, y1, color1), vertex(x2, y2, color2), vertex(x3, y3, color3)};
    const GRADIENT_TRIANGLE mesh{0, 1, 2};
    return GradientFill(dc, corners, 3, &mesh, 1, GRADIENT_FILL_TRIANGLE);
}

BOOL gradientMesh(HDC dc, int mode, int seed, int count) {
    constexpr int cornerCount = 6;
    Bytes bytes(seed);
    const auto word = [&bytes] {
        const int high = bytes.next();
        return static_cast<WORD>(high << 8 | bytes.next());
    };
    TRIVERTEX corners[cornerCount];
    for (TRIVERTEX& corner : corners) {
        corner.x = bytes.next() % 80 - 8;
        corner.y = bytes.next() % 80 - 8;
        corner.Red = word();
        corner.Green = word();
        corner.Blue = word();
        corner.Alpha = word();
    }
    const int perMesh = mode == static_cast<int>(GRADIENT_FILL_TRIANGLE) ? 3 : 2;
    std::vector<DWORD> indices;
    for (int i = 0; i < count * perMesh; ++i)
        indices.push_back(bytes.next() % DWORD{cornerCount});
    return GradientFill(dc, corners, cornerCount, indices.data(), static_cast<DWORD>(count),
                        static_cast<DWORD>(mode));
}

BOOL maskBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource, int seed,
             int xMask, int yMask, DWORD rop) {
    const HBITMAP mask = noiseMask(maskSide, maskSide, seed);
    const BOOL done = MaskBlt(dc, x, y, width, height, source, xSource, ySource, mask, xMask, yMask, rop);
    DeleteObject(mask);
    return done;
}

BOOL plgBlt(HDC dc, int x1, int y1, int x2, int y2, int x3, int y3, HDC source, int xSource, int ySource,
            int widthSource, int heightSource, int seed, int xMask, int yMask) {
    const POINT corners[] = {{x1, y1}, {x2, y2}, {x3, y3}};
    const HBITMAP mask = seed ? noiseMask(maskSide, maskSide, seed) : HBITMAP();
    const BOOL done =
        PlgBlt(dc, corners, source, xSource, ySource, widthSource, heightSource, mask, xMask, yMask);
    if (mask) DeleteObject(mask);
    return done;
}

int stretchDib(HDC dc, int bits, int seed, int x, int y, int width, int height, int xSource, int ySource,
               int widthSource, int heightSource, DWORD rop) {
    const Dib dib = makeDib(dibWidth, dibHeight, bits, seed);
    return StretchDIBits(dc, x, y, width, height, xSource, ySource, widthSource, heightSource,
                         dib.bits.data(), &dib.info, DIB_RGB_COLORS, rop);
}

int dibToDevice(HDC dc, int bits, int seed, int x, int y, int width, int height, int xSource, int ySource,
                int start, int lines) {
    const Dib dib = makeDib(dibWidth, dibHeight, bits, seed);
    return SetDIBitsToDevice(dc, x, y, static_cast<DWORD>(width), static_cast<DWORD>(height), xSource,
                             ySource, static_cast<UINT>(start), static_cast<UINT>(lines), dib.bits.data(),
                             &dib.info, DIB_RGB_COLORS);
}

int setDib(HDC dc, int bits, int seed, int start, int lines) {
    const Dib dib = makeDib(dibWidth, dibHeight, bits, seed);
    const HBITMAP bitmap(GetCurrentObject(dc, OBJ_BITMAP).value);
    return SetDIBits(dc, bitmap, static_cast<UINT>(start), static_cast<UINT>(lines), dib.bits.data(),
                     &dib.info, DIB_RGB_COLORS);
}

BOOL drawIcon(HDC dc, int kind, int seed, int x, int y, int width, int height, int flags) {
    const HICON icon = noiseIcon(kind, seed);
    const BOOL done = DrawIconEx(dc, x, y, icon, width, height, 0, HBRUSH(), static_cast<UINT>(flags));
    DestroyIcon(icon);
    return done;
}

} // namespace conformance
