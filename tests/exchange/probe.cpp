// Metafiles exchanged with other programs:
//   probe record FILE.emf FILE.png   draws a sheet, and records it
//   probe play FILE.emf FILE.png     paints a metafile in its own size on the middle of a sheet
//   probe compare A.png B.png        says how alike a sheet and the middle of another picture are; 1 when not
// A sheet has 400 by 300 pixels. It holds what the other program is known to understand of metafiles.

#include "platform/files.h"
#include "platform/linux/png_file.h"
#include "platform/linux/word_sheet.h"
#include "platform/metafiles.h"
#include "platform/pictures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

using namespace platform;

namespace {

constexpr int width = 400;
constexpr int height = 300;

/// A white sheet.
class Sheet : public driver::WordSheet {
public:
    Sheet() : WordSheet(width, height) { PatBlt(dc(), 0, 0, width, height, WHITENESS); }

    bool save(const std::string& file) const {
        return driver::savePng(file,
                               {width, height, 32, width * 4, reinterpret_cast<std::uint8_t*>(words())});
    }
};

void inPenAndBrush(HDC dc, COLORREF pen, COLORREF brush, const auto& draw) {
    const HGDIOBJ formerPen = SelectObject(dc, CreatePen(PS_SOLID, 1, pen));
    const HGDIOBJ formerBrush = SelectObject(dc, CreateSolidBrush(brush));
    draw();
    DeleteObject(SelectObject(dc, formerPen));
    DeleteObject(SelectObject(dc, formerBrush));
}

void drawText(HDC dc, int x, int y, int size, int angle, const char* text) {
    const HFONT font =
        CreateFontA(-size, 0, angle, angle, FW_BOLD, 0, 0, 0, 0, 0, 0, 0, 0, "Liberation Sans");
    const HGDIOBJ former = SelectObject(dc, font);
    SetTextColor(dc, RGB(120, 0, 120));
    SetBkMode(dc, TRANSPARENT);
    TextOutA(dc, x, y, text, static_cast<int>(std::string_view(text).size()));
    DeleteObject(SelectObject(dc, former));
}

/// A picture of 40 by 40 pixels: once larger, and once blended into what lies there.
void drawPicture(HDC dc) {
    constexpr BLENDFUNCTION half{AC_SRC_OVER, 0, 128, 0};
    const HDC source = CreateCompatibleDC({});
    const HBITMAP bitmap = CreateBitmap(40, 40, 1, 32, nullptr);
    const HGDIOBJ former = SelectObject(source, bitmap);
    inPenAndBrush(source, RGB(0, 0, 0), RGB(255, 160, 0), [&] { Rectangle(source, 0, 0, 40, 20); });
    inPenAndBrush(source, RGB(0, 0, 0), RGB(0, 160, 255), [&] { Rectangle(source, 0, 20, 40, 40); });
    StretchBlt(dc, 310, 210, 80, 80, source, 0, 0, 40, 40, SRCCOPY);
    AlphaBlend(dc, 180, 30, 40, 40, source, 0, 0, 40, 40, half);
    SelectObject(source, former);
    DeleteObject(bitmap);
    DeleteDC(source);
}

/// A clip that is no rectangle.
void drawRoundClip(HDC dc) {
    SaveDC(dc);
    const HRGN round = CreateEllipticRgn(230, 220, 290, 280);
    SelectClipRgn(dc, round);
    DeleteObject(round);
    inPenAndBrush(dc, RGB(0, 80, 0), RGB(0, 160, 0), [&] { Rectangle(dc, 220, 210, 270, 300); });
    RestoreDC(dc, -1);
}

/// A wide line, which ends at its own corners, in dashes.
void drawWideLine(HDC dc) {
    const LOGBRUSH brush{BS_SOLID, RGB(200, 30, 30), 0};
    const HPEN pen =
        ExtCreatePen(PS_GEOMETRIC | PS_DASH | PS_ENDCAP_FLAT | PS_JOIN_MITER, 6, &brush, 0, nullptr);
    const HGDIOBJ former = SelectObject(dc, pen);
    const POINT line[] = {{10, 290}, {50, 270}, {90, 290}};
    Polyline(dc, line, 3);
    DeleteObject(SelectObject(dc, former));
}

/// Something of every kind: shapes, a path, clips, text, pictures, wide lines.
void drawSheet(HDC dc) {
    inPenAndBrush(dc, RGB(0, 0, 0), RGB(255, 220, 0), [&] {
        Rectangle(dc, 10, 10, 110, 80);
        Ellipse(dc, 120, 10, 230, 80);
        Chord(dc, 240, 10, 390, 80, 390, 45, 300, 80);
    });
    inPenAndBrush(dc, RGB(0, 0, 160), RGB(160, 230, 160), [&] {
        Pie(dc, 10, 90, 110, 180, 110, 135, 60, 90);
        const POINT star[] = {{170, 90}, {200, 180}, {125, 122}, {215, 122}, {140, 180}};
        Polygon(dc, star, 5);
        BeginPath(dc);
        MoveToEx(dc, 240, 170, nullptr);
        const POINT curve[] = {{260, 60}, {340, 240}, {390, 100}, {390, 150}, {300, 200}, {240, 170}};
        PolyBezierTo(dc, curve, 6);
        EndPath(dc);
        StrokeAndFillPath(dc);
    });
    SaveDC(dc);
    IntersectClipRect(dc, 20, 200, 80, 260);
    inPenAndBrush(dc, RGB(200, 0, 0), RGB(200, 0, 0), [&] { Ellipse(dc, 0, 180, 70, 250); });
    RestoreDC(dc, -1);
    drawText(dc, 95, 200, 24, 0, "Metarchivo");
    drawText(dc, 110, 295, 20, 200, "sube");
    drawRoundClip(dc);
    drawWideLine(dc);
    drawPicture(dc);
}

/// The frame of the sheet, so that a unit of the recording is a pixel of it.
RECT sheetFrame(HDC dc) {
    const auto hundredths = [&](int pixels, int size, int resolution) {
        return pixels * 100 * GetDeviceCaps(dc, size) / GetDeviceCaps(dc, resolution);
    };
    return {0, 0, hundredths(width, HORZSIZE, HORZRES), hundredths(height, VERTSIZE, VERTRES)};
}

int recordSheet(const char* metafile, const char* picture) {
    const Sheet sheet;
    drawSheet(sheet.dc());
    const RECT frame = sheetFrame(sheet.dc());
    const HDC recording = CreateEnhMetaFileA(sheet.dc(), metafile, &frame, "Tesela\0probe\0");
    if (!recording) return EXIT_FAILURE;
    drawSheet(recording);
    return DeleteEnhMetaFile(CloseEnhMetaFile(recording)) && sheet.save(picture) ? EXIT_SUCCESS
                                                                                 : EXIT_FAILURE;
}

int playFile(const char* metafile, const char* picture) {
    constexpr double hundredthsPerInch = 2540;
    const Sheet sheet;
    const HENHMETAFILE read = GetEnhMetaFileA(metafile);
    ENHMETAHEADER header;
    if (!GetEnhMetaFileHeader(read, sizeof header, &header)) return EXIT_FAILURE;
    const auto pixels = [&](LONG hundredths, int resolution) {
        return static_cast<LONG>(
            std::lround(hundredths / hundredthsPerInch * GetDeviceCaps(sheet.dc(), resolution)));
    };
    const LONG ownWidth = pixels(header.rclFrame.right - header.rclFrame.left, LOGPIXELSX);
    const LONG ownHeight = pixels(header.rclFrame.bottom - header.rclFrame.top, LOGPIXELSY);
    const LONG left = (width - ownWidth) / 2;
    const LONG top = (height - ownHeight) / 2;
    const RECT whole{left, top, left + ownWidth, top + ownHeight};
    const BOOL played = PlayEnhMetaFile(sheet.dc(), read, &whole);
    DeleteEnhMetaFile(read);
    return played && sheet.save(picture) ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Cuts the middle out of a page.
PictureData middleOf(const PictureData& page) {
    PictureData middle;
    if (page.width < width || page.height < height) return middle;
    middle.width = width;
    middle.height = height;
    const int left = (page.width - width) / 2;
    const int top = (page.height - height) / 2;
    for (int y = 0; y < height; ++y) {
        const auto row = page.argb.begin() + static_cast<std::ptrdiff_t>(top + y) * page.width + left;
        middle.argb.insert(middle.argb.end(), row, row + width);
    }
    return middle;
}

PictureData readPicture(const char* name) {
    std::ifstream file(name, std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    PictureData picture;
    decodePicture({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, picture);
    for (std::uint32_t& pixel : picture.argb)
        if (picture.hasAlpha && pixel >> 24 == 0) pixel = 0xFFFFFFFF;
    return picture;
}

/// The mean of one component in a block of pixels.
int meanOf(const PictureData& picture, int left, int top, int side, int shift) {
    int sum = 0;
    for (int y = top; y < top + side; ++y)
        for (int x = left; x < left + side; ++x)
            sum += static_cast<int>(picture.argb[static_cast<std::size_t>(y * width + x)] >> shift & 0xFF);
    return sum / (side * side);
}

/// Compares blocks, since another program smooths edges and letters in its own way.
int comparePictures(const char* first, const char* second) {
    constexpr int side = 10;
    constexpr int tolerated = 48;
    constexpr int mostDifferent = 12; ///< Of 1200 blocks: edges may lie a pixel aside
    const PictureData a = readPicture(first);
    const PictureData b = middleOf(readPicture(second));
    if (a.width != width || a.height != height || b.width != width || b.height != height) return EXIT_FAILURE;
    int different = 0;
    for (int y = 0; y < height; y += side) {
        for (int x = 0; x < width; x += side) {
            int most = 0;
            for (const int shift : {0, 8, 16})
                most = std::max(most, std::abs(meanOf(a, x, y, side, shift) - meanOf(b, x, y, side, shift)));
            if (most <= tolerated) continue;
            ++different;
            std::printf("block %d,%d differs by %d\n", x, y, most);
        }
    }
    std::printf("%d blocks differ\n", different);
    return different <= mostDifferent ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) return EXIT_FAILURE;
    const std::string_view command = argv[1];
    if (command == "record") return recordSheet(argv[2], argv[3]);
    if (command == "play") return playFile(argv[2], argv[3]);
    return command == "compare" ? comparePictures(argv[2], argv[3]) : EXIT_FAILURE;
}
