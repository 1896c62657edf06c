#include "drawing/html_layout.h"

#include "automation/Error.h"
#include "automation/Numbers.h"
#include "automation/Strings.h"
#include "drawing/rounding.h"

#include <algorithm>

namespace tesela {

using automation::String;

namespace {

constexpr std::u16string_view lineBreak = u"<BR>";
constexpr std::u16string_view fontTag = u"<FONT ";
constexpr std::size_t tagReach = 10; ///< Characters that are looked at to recognise a tag
constexpr std::size_t shortTagLength = 3;
constexpr std::int32_t pixelUnits = 1, deciPoints = 10;

std::u16string capitals(std::u16string_view text) {
    return automation::UCase(text).string();
}

/// Line ends of all kinds as <BR>, and one at the end in any case.
std::u16string withLineBreaks(const String& text) {
    std::u16string result =
        text.replaced(u"\r\n", u"\r").replaced(u"\n", u"\r").replaced(u"\r", lineBreak).string();
    const std::size_t tail = result.size() - std::min(result.size(), lineBreak.size());
    if (capitals(std::u16string_view(result).substr(tail)) != lineBreak) result += lineBreak;
    return result;
}

/// -1 for what is no hexadecimal digit.
int digitOf(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
    return -1;
}

/// The last six characters of a value, which zeros on the left complete, as red, green and blue; read as
/// blue, green and red up to the first one that is no digit.
std::int32_t colorOf(std::u16string_view value) {
    constexpr std::size_t length = 6, pair = 2;
    const auto unitAt = [&](std::size_t place) {
        return place + value.size() < length ? u'0' : value[place + value.size() - length];
    };
    std::int32_t color = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t place = (length / pair - 1 - i / pair) * pair + i % pair;
        const int digit = digitOf(unitAt(place));
        if (digit < 0) break;
        color = color * 16 + digit;
    }
    return color;
}

} // namespace

HtmlLayout::HtmlLayout(cCanvas& canvas, const cHTML::Setup& setup, bool draws)
    : canvas_(canvas), setup_(setup), draws_(draws), x_(setup.leftMargin), y_(setup.topMargin) {
    styles_[0].name = setup.fontName;
    styles_[0].size = setup.fontSize;
}

void HtmlLayout::begin(std::u16string text) {
    text_ = std::move(text);
    from_ = 0;
    lastEnd_ = text_.rfind(u'>');
}

void HtmlLayout::run(const String& text) {
    begin(withLineBreaks(text));
    selectBaseFont();
    while (from_ < text_.size()) {
        findTag();
        placeChunk();
        if (tag_ == lineBreak) newLine(0);
        advanceText();
        if (lines_ == setup_.maxLines) begin(u"(...)<BR>");
        selectStyle(styles_[depth_]);
    }
    if (tag_ != lineBreak) maxY_ = saturatingSum(y_, lineHeight_);
    selectBaseFont();
}

// --- Fonts -----------------------------------------------------------------------------------------

std::int32_t HtmlLayout::zoomed(std::int32_t size, std::int32_t unitsPerPoint) const {
    return roundToLong(setup_.zoomPercent / 100.0 * size * unitsPerPoint);
}

void HtmlLayout::selectBaseFont() {
    Style base;
    base.name = setup_.fontName;
    base.size = setup_.fontSize;
    selectStyle(base);
}

void HtmlLayout::selectStyle(const Style& style) {
    canvas_.SetTextColor(style.color);
    if (setup_.sizesInPixels) {
        canvas_.SelectFont(style.name, zoomed(style.size, pixelUnits), 0, style.italic, style.underline,
                           false, 0, 0, style.bold ? FontWeight_Bold : FontWeight_Normal);
        return;
    }
    std::int32_t flags = tslFontStyleNormal;
    if (style.bold) flags += tslFontStyleBold;
    if (style.italic) flags += tslFontStyleItalic;
    if (style.underline) flags += tslFontStyleUnderline;
    String name = style.name;
    canvas_.SelectSimpleFont(name, zoomed(style.size, deciPoints), flags);
}

// --- The markup ------------------------------------------------------------------------------------

/// Puts the next tag into `tag_` and its place into `position_`. What looks like a tag and is none stays in
/// the text before it.
void HtmlLayout::findTag() {
    std::size_t literalFrom = from_;
    for (;;) {
        const std::size_t bracket = text_.find(u'<', from_);
        position_ = bracket == std::u16string::npos ? 0 : bracket - from_ + 1;
        if (position_ == 0 || bracket > lastEnd_) break;
        tag_ = capitals(std::u16string_view(text_).substr(bracket, tagReach));
        if (takeTag()) break;
        passLiteral(literalFrom);
    }
    position_ += from_ - literalFrom;
    from_ = literalFrom;
}

/// Acts on the tag in `tag_`; false if it is none.
bool HtmlLayout::takeTag() {
    if (tag_.starts_with(lineBreak)) {
        tag_ = lineBreak;
        return true;
    }
    if (opensStyle()) {
        if (depth_ == deepest)
            complain(u"HTML demasiado complejo");
        else
            openStyle();
        return true;
    }
    if (!closesStyle()) return false;
    if (depth_ == 0)
        complain(u"Error en texto HTML");
    else
        closeStyle();
    return true;
}

bool HtmlLayout::opensStyle() const {
    return tag_.starts_with(u"<B>") || tag_.starts_with(u"<I>") || tag_.starts_with(u"<U>") ||
           tag_.starts_with(fontTag);
}

bool HtmlLayout::closesStyle() const {
    return tag_.starts_with(u"</B>") || tag_.starts_with(u"</I>") || tag_.starts_with(u"</U>") ||
           tag_.starts_with(u"</FONT>");
}

void HtmlLayout::openStyle() {
    Style& style = styles_[depth_ + 1] = styles_[depth_];
    ++depth_;
    if (tag_.starts_with(fontTag)) return takeFontTag();
    tag_.resize(shortTagLength);
    if (tag_ == u"<B>") style.bold = true;
    if (tag_ == u"<I>") style.italic = true;
    if (tag_ == u"<U>") style.underline = true;
}

void HtmlLayout::closeStyle() {
    --depth_;
    tag_.resize(tag_.starts_with(u"</FONT>") ? 7 : 4);
}

/// The tag reaches up to the first ">" of the whole text, which must not stand before it.
void HtmlLayout::takeFontTag() {
    const std::size_t end = rest().find(u'>') + 1;
    if (end + 1 < position_) automation::throwError(automation::errors::InvalidCall);
    tag_ = capitals(rest().substr(position_ - 1, end + 1 - position_));
    Style& style = styles_[depth_];
    if (const auto face = attribute(u"FACE="); face.data()) style.name = face;
    if (const auto size = attribute(u"SIZE="); size.data()) style.size = roundToLong(automation::Val(size));
    if (const auto color = attribute(u"COLOR="); color.data()) style.color = colorOf(color);
}

/// The value of an attribute: from the character after the opening quote to the closing apostrophe or the end
/// of the tag. A view of nothing where the tag has no such attribute.
std::u16string_view HtmlLayout::attribute(std::u16string_view name) const {
    const std::u16string_view tag = tag_;
    const std::size_t found = tag.find(name);
    if (found == std::u16string_view::npos) return {};
    const std::size_t start = std::min(found + name.size() + 1, tag.size());
    const std::u16string_view value = tag.substr(start);
    return value.substr(0, value.find(u'\''));
}

/// Goes on behind what is no tag. A bracket without an end at the very beginning of the rest drops the
/// literal text before it.
void HtmlLayout::passLiteral(std::size_t& literalFrom) {
    const std::size_t end = tag_.find(u'>');
    if (end == std::u16string::npos && position_ == 1) literalFrom = from_;
    from_ += position_ + (end == std::u16string::npos ? 0 : end);
}

void HtmlLayout::complain(const char16_t* message) {
    canvas_.TextOut(x_, y_, message);
}

/// Takes the chunk and its tag off the text.
void HtmlLayout::advanceText() {
    from_ = std::min(text_.size(), from_ + lengthBeforeTag() + tag_.size());
}

// --- The lines -------------------------------------------------------------------------------------

void HtmlLayout::newLine(std::int32_t height) {
    lineWidth_ = 0;
    x_ = setup_.leftMargin;
    y_ = saturatingSum(y_, lineHeight_);
    maxY_ = std::max(maxY_, y_);
    lineHeight_ = height;
    ++lines_;
}

void HtmlLayout::measureChunk() {
    canvas_.GetTextExtent(chunk_, chunkSize_.cx, chunkSize_.cy);
    lineHeight_ = std::max(lineHeight_, chunkSize_.cy);
}

/// Measures, wraps and draws what stands before the tag.
void HtmlLayout::placeChunk() {
    chunk_ = rest().substr(0, lengthBeforeTag());
    if (tag_ == u"<>") chunk_ += tag_;
    if (chunk_.empty()) {
        // It takes no place, and yet gives the line its height.
        chunk_ = u" ";
        measureChunk();
        chunkSize_.cx = 0;
        chunk_ = String();
    } else {
        measureChunk();
    }
    if (setup_.rightLimit > 0) wrapChunk();
    if (draws_) canvas_.TextOut(x_, y_, chunk_);
    x_ = saturatingSum(x_, chunkSize_.cx);
    lineWidth_ = saturatingSum(lineWidth_, chunkSize_.cx);
    maxX_ = std::max(maxX_, lineWidth_);
}

/// Draws the lines that the chunk fills and leaves the rest of it.
void HtmlLayout::wrapChunk() {
    const std::int32_t limit = setup_.rightLimit;
    while (saturatingSum(x_, chunkSize_.cx) > limit) {
        const auto fit = static_cast<std::size_t>(
            canvas_.GetTextFitInExtent(chunk_, saturatingSum(limit, -std::int64_t{x_}), widths_));
        std::size_t cut = breakPlace(chunk_.left(fit));
        if (cut == 0 && x_ > setup_.leftMargin) {
            newLine(chunkSize_.cy);
            continue;
        }
        if (cut == 0) cut = fit;
        if (cut == 0) break;
        if (draws_) canvas_.TextOut(x_, y_, chunk_.left(cut));
        maxX_ = cut <= chunk_.length() ? std::max(maxX_, widths_[cut - 1]) : limit;
        newLine(0);
        chunk_ = automation::LTrim(chunk_.substring(cut));
        measureChunk();
    }
}

/// How many characters stay on the line: up to the last blank, or else comma, colon, semicolon or point. 0
/// if there is none.
std::size_t HtmlLayout::breakPlace(std::u16string_view fitting) const {
    for (const char16_t separator : {u' ', u',', u':', u';', u'.'}) {
        const std::size_t last = fitting.rfind(separator);
        if (last != std::u16string_view::npos) return last + 1;
    }
    return 0;
}

} // namespace tesela
