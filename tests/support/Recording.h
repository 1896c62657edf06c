#pragma once
// Recordings as enhanced metafiles, and what they paint when they are played.

#include "platform/metafiles.h"
#include "support/Canvas.h"
#include "support/Selected.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace test {

using namespace platform;

/// A frame of so many hundredths of a millimetre.
inline constexpr RECT frame{0, 0, 2600, 1300};

/// Ends a metafile with its scope.
class Recorded {
public:
    explicit Recorded(HENHMETAFILE handle) : handle_(handle) {}
    ~Recorded() { DeleteEnhMetaFile(handle_); }
    Recorded(const Recorded&) = delete;
    Recorded& operator=(const Recorded&) = delete;

    HENHMETAFILE handle() const { return handle_; }

    ENHMETAHEADER header() const {
        ENHMETAHEADER header;
        EXPECT_EQ(GetEnhMetaFileHeader(handle_, sizeof header, &header), sizeof header);
        return header;
    }

    std::vector<BYTE> bytes() const {
        std::vector<BYTE> result(GetEnhMetaFileBits(handle_, 0, nullptr));
        EXPECT_EQ(GetEnhMetaFileBits(handle_, static_cast<UINT>(result.size()), result.data()),
                  result.size());
        return result;
    }

private:
    HENHMETAFILE handle_;
};

/// Records what `draw` draws.
template <class Draw>
HENHMETAFILE record(const Draw& draw) {
    const HDC dc = CreateEnhMetaFileA({}, nullptr, &frame, nullptr);
    EXPECT_TRUE(dc);
    draw(dc);
    return CloseEnhMetaFile(dc);
}

/// The frame of a picture of so many pixels, and what makes the units of a recording its pixels.
inline RECT frameOf(int width, int height) {
    const HDC screen = CreateCompatibleDC({});
    const auto hundredths = [&](int pixels, int size, int resolution) {
        return static_cast<LONG>(
            std::lround(pixels * 100.0 * GetDeviceCaps(screen, size) / GetDeviceCaps(screen, resolution)));
    };
    const RECT result{0, 0, hundredths(width, HORZSIZE, HORZRES), hundredths(height, VERTSIZE, VERTRES)};
    DeleteDC(screen);
    return result;
}

/// What `draw` paints directly, and what its recording paints when it is played at the same size.
template <class Draw>
void expectSamePicture(const Draw& draw) {
    constexpr int width = 64;
    constexpr int height = 48;
    const Canvas direct(width, height);
    const Canvas played(width, height);
    PatBlt(direct.dc(), 0, 0, width, height, WHITENESS);
    PatBlt(played.dc(), 0, 0, width, height, WHITENESS);
    const int depth = SaveDC(direct.dc());
    draw(direct.dc());
    RestoreDC(direct.dc(), depth);
    const RECT size = frameOf(width, height);
    const HDC dc = CreateEnhMetaFileA({}, nullptr, &size, nullptr);
    draw(dc);
    const Recorded metafile(CloseEnhMetaFile(dc));
    const RECT whole{0, 0, width, height};
    EXPECT_TRUE(PlayEnhMetaFile(played.dc(), metafile.handle(), &whole));
    EXPECT_EQ(played.text(), direct.text());
    EXPECT_NE(direct.text().find_first_not_of("#\n"), std::string::npos) << "nothing was drawn";
}

} // namespace test
