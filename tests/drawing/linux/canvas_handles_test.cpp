// What the canvas reports when there are no more handles of drawing objects. The message is shown all the
// same, painted as far as that goes without any.
#include "drawing/CanvasReport.h"
#include "frame/Globales.h"
#include "support/Canvas.h"
#include "support/LibraryLog.h"

#include <vector>

using namespace tesela;
using namespace tests;
using platform::HGDIOBJ;

namespace {

class cCanvas_WithoutHandles : public CanvasReport {};

/// Takes all handles of drawing objects that there are, until it ends.
class AllHandles {
public:
    AllHandles() {
        while (const platform::HBRUSH brush = platform::CreateSolidBrush(0))
            taken_.push_back(brush);
    }
    ~AllHandles() {
        for (const platform::HBRUSH brush : taken_)
            platform::DeleteObject(brush);
    }
    AllHandles(const AllHandles&) = delete;
    AllHandles& operator=(const AllHandles&) = delete;

private:
    std::vector<platform::HBRUSH> taken_;
};

} // namespace

TEST_F(cCanvas_WithoutHandles, PensBrushesAndFontsAreReportedAndTheOldOnesStay) {
    canvas->SelectSimplePen(red);
    canvas->SelectSolidBrush(red);
    canvas->SelectFont(u"Arial", 10);
    const HGDIOBJ pen = current(platform::OBJ_PEN), brush = current(platform::OBJ_BRUSH),
                  font = current(platform::OBJ_FONT);
    const AllHandles all;
    expectReport(u"Error de G.D.I. en SelectPen", [this] { canvas->SelectPen(PenStyle_Solid, 1, blue); });
    expectReport(u"Error de G.D.I. en SelectPen", [this] { canvas->SelectSimplePen(blue); });
    expectReport(u"Error de GDI en SelectSolidBrush", [this] { canvas->SelectSolidBrush(blue); });
    expectReport(u"Error de GDI en SelectFont", [this] { canvas->SelectFont(u"Verdana", 10); });
    expectReport(u"Error de GDI en SelectSimpleFont", [this] {
        automation::String face = u"Verdana";
        canvas->SelectSimpleFont(face, 80);
    });
    EXPECT_EQ(pen, current(platform::OBJ_PEN)) << "the old ones stay";
    EXPECT_EQ(brush, current(platform::OBJ_BRUSH));
    EXPECT_EQ(font, current(platform::OBJ_FONT));
}

TEST_F(cCanvas_WithoutHandles, AContextThatIsGoneGetsNoPalette) {
    globales().lHighColor = false;
    canvas->DeleteDC(canvas->GetPaintDC());
    expectReport(u"Error de G.D.I. en ComprobarPaletaSemitonos",
                 [this] { canvas->ComprobarPaletaSemitonos(); });
    globales().lHighColor = true;
}

TEST_F(cCanvas_WithoutHandles, DibStretchBltNamesTheContextThatItCouldNotMake) {
    const test::Canvas source(4, 4);
    const std::string before = support::libraryLog();
    {
        const AllHandles all;
        EXPECT_EQ(3, canvas->DIB_StretchBlt(source.dc(), 0, 0, 4, 4));
    }
    const std::string written = support::libraryLog().substr(before.size());
    EXPECT_NE(std::string::npos, written.find("Error # 3 en \"cCanvas.DIB_StretchBlt()\""));
    EXPECT_EQ(0, canvas->DIB_StretchBlt(source.dc(), 0, 0, 4, 4)) << "with handles again";
}
