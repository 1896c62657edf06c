#pragma once
// The operations as a program that draws with Qt's raster painter calls them; shapes and lines without
// smoothing, which is that painter's default.

#include "operations.h"

#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QTextDocument>

namespace bench {

class QtSheet {
public:
    explicit QtSheet(const Sheet& sheet);

    Operations operations();
    const Sheet& sheet() const { return extent_; }

private:
    void fillBox16(const Place& place);
    void fillBox256(const Place& place);
    void fillWhole(const Place& place);
    void drawBox(const Place& place);
    void horizontal(const Place& place);
    void diagonal(const Place& place);
    void fillGradient(const Place& place, int width, int height);
    void gradient(const Place& place);
    void copy(const Place& place);
    void copyWhole(const Place& place);
    void blend(const Place& place);
    void sprite(const Place& place);
    void icon(const Place& place);
    void textOut(const Place& place);
    void textExtent(const Place& place);
    void triangle(const Place& place);
    void ellipse(const Place& place);
    void paragraphs(const Place& place);
    void cell(const Place& place);

    static QColor colorOf(const Place& place);
    void frame(int left, int top, int right, int bottom, const QColor& light, const QColor& shadow);

    const Sheet& extent_;
    QImage sheet_;
    QImage source_;
    QImage sprite_;
    QImage icon_;
    QPainter painter_;
    QFont font_;
    QFontMetrics metrics_;
    QString text_;
    QString cellText_;
    QString paragraph_;
    QTextDocument document_;
};

} // namespace bench
