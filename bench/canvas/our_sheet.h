#pragma once
// The operations as a program that uses the library calls them: members of a canvas. It is compiled for both
// systems.

#include "operations.h"

#include "drawing/cHTML.h"

namespace bench {

class OurSheet {
public:
    explicit OurSheet(const Sheet& sheet);

    Operations operations();
    const Sheet& sheet() const { return extent_; }

private:
    void fillBox16(const Place& place);
    void fillBox256(const Place& place);
    void fillWhole(const Place& place);
    void drawBox(const Place& place);
    void horizontal(const Place& place);
    void diagonal(const Place& place);
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

    static int colorOf(const Place& place);
    void makeIcon();
    void makeSprite();

    const Sheet& extent_;
    using CanvasRef = automation::Ref<tesela::cCanvas>;
    CanvasRef canvas_ = automation::make<tesela::cCanvas>();
    CanvasRef source_ = automation::make<tesela::cCanvas>();
    CanvasRef sprite_ = automation::make<tesela::cCanvas>();
    automation::Ref<tesela::cHTML> html_ = automation::make<tesela::cHTML>();
    automation::Ref<host::Picture> icon_;
    automation::String text_ = text;
    automation::String cellText_ = cellText;
};

} // namespace bench
