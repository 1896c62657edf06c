#include "drawing/cHTML.h"

#include "automation/ClassTable.h"
#include "automation/LateBound.h"
#include "drawing/html_layout.h"
#include "drawing/rounding.h"

namespace tesela {

using automation::Object;
using automation::Ref;
using automation::String;

void cHTML::SetMargenes(std::int32_t nNuevoMargenX, std::int32_t nNuevoMargenY,
                        std::int32_t nNuevoMargenDerecho) {
    setup.leftMargin = nNuevoMargenX;
    setup.topMargin = nNuevoMargenY;
    setup.rightLimit = nNuevoMargenDerecho;
}

void cHTML::SetBaseFont(const String& cNewFntName, std::int32_t nNewFntSize, bool lFntSizesInPixels,
                        std::int32_t nNewFontZoomPercent) {
    if (!cNewFntName.empty()) setup.fontName = cNewFntName;
    if (setup.fontSize != 0) setup.fontSize = nNewFntSize;
    setup.sizesInPixels = lFntSizesInPixels;
    if (nNewFontZoomPercent > 0) setup.zoomPercent = nNewFontZoomPercent;
}

void cHTML::Render(bool lCalcularSolo, std::int32_t& nMaxX, std::int32_t& nMaxY) {
    if (!oCanvas || oCanvas->Width() <= 1) return;
    const Ref<cCanvas> canvas = oCanvas; // for as long as the rendering takes
    HtmlLayout layout(*canvas, setup, !lCalcularSolo);
    nMaxX = 0;
    nMaxY = 0;
    layout.run(cHTMLText);
    nMaxX = layout.maxX();
    nMaxY = layout.maxY();
}

void cHTML::Render(bool lCalcularSolo) {
    std::int32_t maxX = 0, maxY = 0;
    Render(lCalcularSolo, maxX, maxY);
}

void cHTML::renderOn(const Ref<cCanvas>& canvas, const String& text) {
    Canvas(canvas);
    HTMLText(text);
    Render(false);
    Canvas({});
}

void cHTML::RenderInGrid(Ref<cCanvas>& oCellCanvas, const String& cNewText, std::int32_t nMargenDerecho,
                         const String& cFontName, std::int32_t nFontSize) {
    constexpr std::int32_t margin = 2;
    SetMargenes(margin, margin, nMargenDerecho);
    if (!cFontName.empty() && nFontSize >= 1) SetBaseFont(cFontName, nFontSize, true, 0);
    renderOn(oCellCanvas, cNewText);
}

void cHTML::RenderInPBox(Ref<Object>& oPBox, const String& cNewText, bool lUsePBoxFont) {
    using automation::fromVariant;
    using automation::getProperty;
    if (!oPBox) automation::throwError(automation::errors::ObjectVariableNotSet);
    const auto canvas = automation::make<cCanvas>();
    automation::letProperty(*oPBox, u"AutoRedraw", true);
    canvas->CreateInPictureBox(oPBox, true);
    setup.rightLimit = saturatingSum(canvas->Width(), -2 * std::int64_t{setup.leftMargin});
    if (lUsePBoxFont) {
        const automation::Variant font = getProperty(*oPBox, u"Font");
        SetBaseFont(fromVariant<String>(getProperty(font, u"Name")),
                    fromVariant<std::int32_t>(getProperty(font, u"Size")), true, 0);
    }
    renderOn(canvas, cNewText);
    canvas->Paint();
    automation::callMethod(*oPBox, u"Refresh");
}

const automation::ClassTable& cHTML::table() {
    using automation::optional;
    using ReadText = const String& (cHTML::*)() const;
    using WriteText = void (cHTML::*)(const String&);
    using ReadLong = std::int32_t (cHTML::*)() const;
    using WriteLong = void (cHTML::*)(std::int32_t);
    using Render = void (cHTML::*)(bool, std::int32_t&, std::int32_t&);
    static const automation::ClassTable table =
        automation::ClassTable::of<cHTML>("cHTML")
            .help("Draws or measures short marked-up texts.")
            .property("Canvas", static_cast<const Ref<cCanvas>& (cHTML::*)() const>(&cHTML::Canvas),
                      static_cast<void (cHTML::*)(const Ref<cCanvas>&)>(&cHTML::Canvas))
            .property("HTMLText", ReadText(&cHTML::HTMLText), WriteText(&cHTML::HTMLText))
            .property("MaxLineas", ReadLong(&cHTML::MaxLineas), WriteLong(&cHTML::MaxLineas))
            .method("SetMargenes", &cHTML::SetMargenes,
                    {"nNuevoMargenX", "nNuevoMargenY", optional("nNuevoMargenDerecho")})
            .method("SetBaseFont", &cHTML::SetBaseFont,
                    {optional("cNewFntName"), optional("nNewFntSize"), optional("lFntSizesInPixels"),
                     optional("nNewFontZoomPercent")})
            .method("Render", Render(&cHTML::Render), {"lCalcularSolo", optional("nMaxX"), optional("nMaxY")})
            .method(
                "RenderInGrid", &cHTML::RenderInGrid,
                {"oCellCanvas", "cNewText", "nMargenDerecho", optional("cFontName"), optional("nFontSize")})
            .method("RenderInPBox", &cHTML::RenderInPBox, {"oPBox", "cNewText", optional("lUsePBoxFont")});
    return table;
}

} // namespace tesela
