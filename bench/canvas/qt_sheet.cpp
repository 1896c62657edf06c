#include "qt_sheet.h"

#include "../measure.h"

#include <QLinearGradient>

namespace bench {

namespace {

QImage filled(const Sheet& sheet, const QColor& color) {
    QImage image(sheet.width, sheet.height, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

/// A square picture made of its pixels, 0xAARRGGBB.
template <class Pixel>
QImage square(int side, Pixel pixel) {
    QImage image(side, side, QImage::Format_ARGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, pixel(x, y));
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QFont sheetFont() {
    QFont font(QString::fromUtf16(family));
    font.setPixelSize(fontSize);
    return font;
}

} // namespace

QtSheet::QtSheet(const Sheet& sheet)
    : extent_(sheet), sheet_(filled(sheet, Qt::white)), source_(filled(sheet, QColor(0x33, 0x66, 0x99))),
      sprite_(square(
          spriteSide,
          [](int x, int y) { return isSprite(x, y) ? qRgba(spriteRed, spriteGreen, spriteBlue, 0xFF) : 0; })),
      icon_(square(iconSide, iconPixel)), painter_(&sheet_), font_(sheetFont()), metrics_(font_),
      text_(QString::fromUtf16(text)), cellText_(QString::fromUtf16(cellText)),
      paragraph_(QString::fromUtf16(paragraph)) {
    painter_.setFont(font_);
    document_.setDefaultFont(QFont("Verdana", 8));
}

Operations QtSheet::operations() {
    return {
        {"fillbox16", repeated<&QtSheet::fillBox16>(*this)},
        {"fillbox256", repeated<&QtSheet::fillBox256>(*this)},
        {"fillbox_full", repeated<&QtSheet::fillWhole>(*this)},
        {"drawbox", repeated<&QtSheet::drawBox>(*this)},
        {"hline100", repeated<&QtSheet::horizontal>(*this)},
        {"diagonal100", repeated<&QtSheet::diagonal>(*this)},
        {"gradient_v_100x20", repeated<&QtSheet::gradient>(*this)},
        {"bitblt_100x20", repeated<&QtSheet::copy>(*this)},
        {"bitblt_full", repeated<&QtSheet::copyWhole>(*this)},
        {"alphablend_100x20", repeated<&QtSheet::blend>(*this)},
        {"text12", repeated<&QtSheet::textOut>(*this)},
        {"extent12", repeated<&QtSheet::textExtent>(*this)},
        {"triangle7", repeated<&QtSheet::triangle>(*this)},
        {"icon16", repeated<&QtSheet::icon>(*this)},
        {"ellipse40", repeated<&QtSheet::ellipse>(*this)},
        {"transparentblt_32", repeated<&QtSheet::sprite>(*this)},
        {"html_paragraph", repeated<&QtSheet::paragraphs>(*this)},
        {"button_cell", repeated<&QtSheet::cell>(*this)},
    };
}

QColor QtSheet::colorOf(const Place& p) {
    return {p.red(), Place::green, Place::blue};
}

void QtSheet::fillBox16(const Place& p) {
    painter_.fillRect(p.x(), p.y(), smallBox, smallBox, colorOf(p));
}

void QtSheet::fillBox256(const Place& p) {
    painter_.fillRect(p.x(), p.y(), largeBox, largeBox, colorOf(p));
}

void QtSheet::fillWhole(const Place& p) {
    painter_.fillRect(0, 0, extent_.width, extent_.height, colorOf(p));
}

void QtSheet::frame(int left, int top, int right, int bottom, const QColor& light, const QColor& shadow) {
    const QPoint lights[] = {{left, bottom}, {left, top}, {right, top}};
    const QPoint shadows[] = {{right, top}, {right, bottom}, {left, bottom}};
    painter_.setPen(light);
    painter_.drawPolyline(lights, 3);
    painter_.setPen(shadow);
    painter_.drawPolyline(shadows, 3);
}

void QtSheet::drawBox(const Place& p) {
    frame(p.x(), p.y(), p.x() + frameWidth - 1, p.y() + frameHeight - 1, colorOf(p), QColor(128, 128, 128));
}

void QtSheet::horizontal(const Place& p) {
    painter_.setPen(colorOf(p));
    painter_.drawLine(p.x(), p.y(), p.x() + lineLength, p.y());
}

void QtSheet::diagonal(const Place& p) {
    painter_.setPen(colorOf(p));
    painter_.drawLine(p.x(), p.y(), p.x() + lineLength, p.y() + lineRise);
}

void QtSheet::fillGradient(const Place& p, int width, int height) {
    QLinearGradient gradient(0, p.y(), 0, p.y() + height);
    gradient.setColorAt(0, Qt::white);
    gradient.setColorAt(1, colorOf(p));
    painter_.fillRect(p.x(), p.y(), width, height, gradient);
}

void QtSheet::gradient(const Place& p) {
    fillGradient(p, bandWidth, bandHeight);
}

void QtSheet::copy(const Place& p) {
    painter_.drawImage(QPoint(p.x(), p.y()), source_, QRect(0, 0, bandWidth, bandHeight));
}

void QtSheet::copyWhole(const Place&) {
    painter_.drawImage(0, 0, source_);
}

void QtSheet::blend(const Place& p) {
    painter_.setOpacity(0.5);
    painter_.drawImage(QPoint(p.x(), p.y()), source_, QRect(0, 0, bandWidth, bandHeight));
    painter_.setOpacity(1);
}

void QtSheet::sprite(const Place& p) {
    painter_.drawImage(QPoint(p.x(), p.y()), sprite_);
}

void QtSheet::icon(const Place& p) {
    painter_.drawImage(QPoint(p.x(), p.y()), icon_);
}

void QtSheet::textOut(const Place& p) {
    painter_.drawText(p.x(), p.y() + fontSize, text_);
}

void QtSheet::textExtent(const Place&) {
    keep(metrics_.horizontalAdvance(text_));
}

void QtSheet::triangle(const Place& p) {
    const int x = p.x() + triangleLines, y = p.y() + triangleLines;
    const QPoint corners[] = {{x - triangleLines, y - 3}, {x + triangleLines, y - 3}, {x, y + 4}};
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colorOf(p));
    painter_.drawConvexPolygon(corners, 3);
}

void QtSheet::ellipse(const Place& p) {
    painter_.setPen(Qt::black);
    painter_.setBrush(colorOf(p));
    painter_.drawEllipse(p.x(), p.y(), ellipseSide - 1, ellipseSide - 1);
}

void QtSheet::paragraphs(const Place& p) {
    document_.setHtml(paragraph_);
    document_.setTextWidth(paragraphWidth);
    painter_.save();
    painter_.translate(p.x(), p.y());
    document_.drawContents(&painter_);
    painter_.restore();
}

void QtSheet::cell(const Place& p) {
    const int x = p.x(), y = p.y(), right = x + cellWidth - 1, bottom = y + cellHeight - 1;
    fillGradient(p, cellWidth, cellHeight);
    frame(x, y, right, bottom, QColor(0xE0, 0xE0, 0xE0), QColor(0x40, 0x40, 0x40));
    frame(x + 1, y + 1, right - 1, bottom - 1, Qt::white, QColor(0x80, 0x80, 0x80));
    painter_.setPen(Qt::black);
    painter_.drawText(x + 24, y + 17, cellText_);
    painter_.drawImage(x + 4, y + 4, icon_);
}

} // namespace bench
