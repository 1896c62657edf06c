#include "our_sheet.h"

#include "../measure.h"

#include "frame/Globales.h"

namespace bench {

namespace {

using tesela::cCanvas;

constexpr int spriteKey = 0xFF00FF;

void configure(cCanvas& canvas, int width, int height, int color) {
    canvas.Configure({}, 0, 0, width, height, tesela::DCProvider_Auto, false);
    canvas.FillBox(0, 0, width - 1, height - 1, color);
}

} // namespace

OurSheet::OurSheet(const Sheet& sheet) : extent_(sheet) {
    tesela::EnsureInicio();
    configure(*canvas_, sheet.width, sheet.height, 0xFFFFFF);
    configure(*source_, sheet.width, sheet.height, 0x996633);
    html_->Canvas(canvas_);
    html_->HTMLText(paragraph);
    makeIcon();
    makeSprite();
    canvas_->SelectFont(family, -fontSize);
}

Operations OurSheet::operations() {
    return {
        {"fillbox16", repeated<&OurSheet::fillBox16>(*this)},
        {"fillbox256", repeated<&OurSheet::fillBox256>(*this)},
        {"fillbox_full", repeated<&OurSheet::fillWhole>(*this)},
        {"drawbox", repeated<&OurSheet::drawBox>(*this)},
        {"hline100", repeated<&OurSheet::horizontal>(*this)},
        {"diagonal100", repeated<&OurSheet::diagonal>(*this)},
        {"gradient_v_100x20", repeated<&OurSheet::gradient>(*this)},
        {"bitblt_100x20", repeated<&OurSheet::copy>(*this)},
        {"bitblt_full", repeated<&OurSheet::copyWhole>(*this)},
        {"alphablend_100x20", repeated<&OurSheet::blend>(*this)},
        {"text12", repeated<&OurSheet::textOut>(*this)},
        {"extent12", repeated<&OurSheet::textExtent>(*this)},
        {"triangle7", repeated<&OurSheet::triangle>(*this)},
        {"icon16", repeated<&OurSheet::icon>(*this)},
        {"ellipse40", repeated<&OurSheet::ellipse>(*this)},
        {"transparentblt_32", repeated<&OurSheet::sprite>(*this)},
        {"html_paragraph", repeated<&OurSheet::paragraphs>(*this)},
        {"button_cell", repeated<&OurSheet::cell>(*this)},
    };
}

int OurSheet::colorOf(const Place& place) {
    return place.red() | Place::green << 8 | Place::blue << 16;
}

void OurSheet::fillBox16(const Place& p) {
    canvas_->FillBox(p.x(), p.y(), p.x() + smallBox - 1, p.y() + smallBox - 1, colorOf(p));
}

void OurSheet::fillBox256(const Place& p) {
    canvas_->FillBox(p.x(), p.y(), p.x() + largeBox - 1, p.y() + largeBox - 1, colorOf(p));
}

void OurSheet::fillWhole(const Place& p) {
    canvas_->FillBox(0, 0, extent_.width - 1, extent_.height - 1, colorOf(p));
}

void OurSheet::drawBox(const Place& p) {
    canvas_->DrawBox(p.x(), p.y(), p.x() + frameWidth - 1, p.y() + frameHeight - 1, colorOf(p), 0x808080);
}

void OurSheet::horizontal(const Place& p) {
    canvas_->DrawLine(p.x(), p.y(), p.x() + lineLength, p.y(), colorOf(p));
}

void OurSheet::diagonal(const Place& p) {
    canvas_->DrawLine(p.x(), p.y(), p.x() + lineLength, p.y() + lineRise, colorOf(p));
}

void OurSheet::gradient(const Place& p) {
    canvas_->GradientFillRect(p.x(), p.y(), p.x() + bandWidth, p.y() + bandHeight, false, 0xFFFFFF,
                              colorOf(p));
}

void OurSheet::copy(const Place& p) {
    canvas_->BitBlt(source_->GetPaintDC(), p.x(), p.y(), bandWidth, bandHeight);
}

void OurSheet::copyWhole(const Place&) {
    canvas_->BitBlt(source_->GetPaintDC(), 0, 0, extent_.width, extent_.height);
}

void OurSheet::blend(const Place& p) {
    // The last column and row that the member is given are left out.
    canvas_->AlphaBlend(source_->GetPaintDC(), p.x(), p.y(), bandWidth + 1, bandHeight + 1);
}

void OurSheet::sprite(const Place& p) {
    canvas_->TransparentBlt(sprite_->GetPaintDC(), p.x(), p.y(), spriteSide, spriteSide, 0, 0, 0, 0,
                            spriteKey);
}

void OurSheet::icon(const Place& p) {
    canvas_->PaintPicture(icon_, p.x(), p.y(), iconSide, iconSide);
}

void OurSheet::textOut(const Place& p) {
    canvas_->TextOut(p.x(), p.y(), text_);
}

void OurSheet::textExtent(const Place&) {
    std::int32_t width = 0, height = 0;
    canvas_->GetTextExtent(text_, width, height);
    keep(width);
}

void OurSheet::triangle(const Place& p) {
    canvas_->DrawTriangle(p.x() + triangleLines, p.y() + triangleLines, triangleLines, colorOf(p));
}

void OurSheet::ellipse(const Place& p) {
    canvas_->SelectSimplePen(0);
    canvas_->SelectSolidBrush(colorOf(p));
    canvas_->Ellipse(p.x(), p.y(), p.x() + ellipseSide - 1, p.y() + ellipseSide - 1);
}

void OurSheet::paragraphs(const Place& p) {
    html_->SetMargenes(p.x(), p.y(), p.x() + paragraphWidth);
    html_->Render(false);
}

void OurSheet::cell(const Place& p) {
    cCanvas& c = *canvas_;
    const int x = p.x(), y = p.y(), right = x + cellWidth - 1, bottom = y + cellHeight - 1;
    c.GradientFillRect(x, y, right + 1, bottom + 1, false, 0xFFFFFF, colorOf(p));
    c.DrawBox(x, y, right, bottom, 0xE0E0E0, 0x404040);
    c.DrawBox(x + 1, y + 1, right - 1, bottom - 1, 0xFFFFFF, 0x808080);
    c.TextOut(x + 24, y + 5, cellText_);
    c.PaintPicture(icon_, x + 4, y + 4, iconSide, iconSide);
}

void OurSheet::makeIcon() {
    platform::BITMAPINFO info;
    info.bmiHeader.biWidth = iconSide;
    info.bmiHeader.biHeight = -iconSide;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    platform::ICONINFO parts;
    parts.hbmColor = platform::CreateDIBSection({}, &info, platform::DIB_RGB_COLORS, &bits, {}, 0);
    for (int i = 0; i < iconSide * iconSide; ++i)
        static_cast<std::uint32_t*>(bits)[i] = iconPixel(i % iconSide, i / iconSide);
    parts.hbmMask = platform::CreateBitmap(iconSide, iconSide, 1, 1, nullptr);
    const platform::HICON icon = platform::CreateIconIndirect(&parts);
    platform::DeleteObject(parts.hbmColor);
    platform::DeleteObject(parts.hbmMask);
    icon_ = canvas_->BitMap2Picture(platform::HGDIOBJ(icon.value), {}, 1);
}

void OurSheet::makeSprite() {
    configure(*sprite_, spriteSide, spriteSide, spriteKey);
    for (int y = 0; y < spriteSide; ++y)
        for (int x = 0; x < spriteSide; ++x)
            if (isSprite(x, y)) sprite_->SetPixel(x, y, spriteRed | spriteGreen << 8 | spriteBlue << 16);
}

} // namespace bench
