#pragma once

#include "automation/Object.h"
#include "automation/String.h"
#include "drawing/cCanvas.h"

#include <cstdint>

namespace tesela {

/// Draws a short marked-up text on a canvas, or only measures it: <B>, <I>, <U>, <FONT FACE='' SIZE=''
/// COLOR='RRGGBB'>, their closing tags (any of which ends the last one opened) and <BR>. Everything else is
/// plain text. Lines break at <BR>, at line ends and, with a right limit, between words.
class cHTML : public automation::Object {
public:
    /// Fonts and margins with which a text is laid out.
    struct Setup {
        std::int32_t leftMargin = 2; ///< Pixels
        std::int32_t topMargin = 2;
        std::int32_t rightLimit = 0; ///< The place that text doesn't pass; 0 or less: lines don't wrap
        automation::String fontName = u"Verdana";
        std::int32_t fontSize = 8;
        std::int32_t zoomPercent = 100;
        bool sizesInPixels = false; ///< Of letters with their line's height; else points
        std::int32_t maxLines = 100;
    };

    const automation::Ref<cCanvas>& Canvas() const { return oCanvas; }
    void Canvas(const automation::Ref<cCanvas>& value) { oCanvas = value; }
    const automation::String& HTMLText() const { return cHTMLText; }
    void HTMLText(const automation::String& value) { cHTMLText = value; }
    /// What follows this many lines is replaced by "(...)".
    std::int32_t MaxLineas() const { return setup.maxLines; }
    void MaxLineas(std::int32_t value) { setup.maxLines = value; }

    void SetMargenes(std::int32_t nNuevoMargenX, std::int32_t nNuevoMargenY,
                     std::int32_t nNuevoMargenDerecho = 0);
    /// An empty name and a zoom of 0 or less change nothing. The size is taken unless the one before is 0,
    /// which it is and stays from the first call without a size on.
    void SetBaseFont(const automation::String& cNewFntName = {}, std::int32_t nNewFntSize = 0,
                     bool lFntSizesInPixels = false, std::int32_t nNewFontZoomPercent = 0);

    /// Lays the text out, and draws it unless `lCalcularSolo`. Gives the extent: the widest line, or the part
    /// of one before a wrap, and the top of the line after the last. Nothing happens without a canvas or on
    /// one not wider than 1 pixel. Throws automation::Error 5 for a <FONT tag after a ">" of its own.
    void Render(bool lCalcularSolo, std::int32_t& nMaxX, std::int32_t& nMaxY);
    void Render(bool lCalcularSolo);
    /// Into the cell of a grid. With a name and a size the font counts in pixels.
    void RenderInGrid(automation::Ref<cCanvas>& oCellCanvas, const automation::String& cNewText,
                      std::int32_t nMargenDerecho, const automation::String& cFontName = {},
                      std::int32_t nFontSize = 0);
    /// Over what a picture box shows. The size of the box's own font is taken as pixels.
    void RenderInPBox(automation::Ref<automation::Object>& oPBox, const automation::String& cNewText,
                      bool lUsePBoxFont = false);

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

private:
    void renderOn(const automation::Ref<cCanvas>& canvas, const automation::String& text);

    automation::Ref<cCanvas> oCanvas;
    automation::String cHTMLText;
    Setup setup;
};

} // namespace tesela
