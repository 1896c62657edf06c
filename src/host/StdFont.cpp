#include "host/StdFont.h"

#include "automation/ClassTable.h"
#include "automation/Error.h"
#include "host/ScaleMode.h"
#include "host/Session.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr short BoldFromWeight = 551;
constexpr double TwipsPerPoint = 20.0;

/// What FontChanged tells.
const struct {
    automation::String bold = u"Bold", charset = u"Charset", italic = u"Italic", name = u"Name",
                       size = u"Size", strikethrough = u"Strikethrough", underline = u"Underline",
                       weight = u"Weight";
} attributes;

} // namespace

/// One for all fonts.
const automation::String& StdFont::usualName() {
    static const automation::String name = u"MS Sans Serif";
    return name;
}

StdFont::~StdFont() {
    drop();
}

bool StdFont::Bold() const {
    return weight_ >= BoldFromWeight;
}

void StdFont::Bold(bool value) {
    if (value == Bold()) return;
    weight_ = value ? FontWeightBold : FontWeightNormal;
    changed(attributes.bold);
}

void StdFont::Charset(short value) {
    if (value == charset_) return;
    charset_ = value;
    changed(attributes.charset);
}

void StdFont::Italic(bool value) {
    if (value == italic_) return;
    italic_ = value;
    changed(attributes.italic);
}

void StdFont::Name(const automation::String& value) {
    if (value == name_) return;
    name_ = value;
    changed(attributes.name);
}

void StdFont::Size(automation::Currency value) {
    if (value < automation::Currency(0)) throw automation::Error(automation::errors::InvalidPropertyValue);
    if (value == size_) return;
    size_ = value;
    changed(attributes.size);
}

void StdFont::Strikethrough(bool value) {
    if (value == strikethrough_) return;
    strikethrough_ = value;
    changed(attributes.strikethrough);
}

void StdFont::Underline(bool value) {
    if (value == underline_) return;
    underline_ = value;
    changed(attributes.underline);
}

void StdFont::Weight(short value) {
    if (value == weight_) return;
    weight_ = value;
    changed(attributes.weight);
}

void StdFont::assign(const StdFont& other) {
    if (&other == this) return;
    Bold(other.Bold());
    Charset(other.Charset());
    Italic(other.Italic());
    Name(other.Name());
    Size(other.Size());
    Strikethrough(other.Strikethrough());
    Underline(other.Underline());
    Weight(other.Weight());
}

bool StdFont::equals(const StdFont& other) const {
    return name_ == other.name_ && size_ == other.size_ && weight_ == other.weight_ &&
           charset_ == other.charset_ && italic_ == other.italic_ && underline_ == other.underline_ &&
           strikethrough_ == other.strikethrough_;
}

automation::Ref<StdFont> StdFont::clone() const {
    auto copy = automation::make<StdFont>();
    copy->assign(*this);
    return copy;
}

platform::HFONT StdFont::hFont() const {
    if (font_) return font_;
    platform::LOGFONTW wanted;
    wanted.lfHeight = -static_cast<platform::LONG>(
        std::lround(size_.toDouble() * TwipsPerPoint / twipsPerPixel(Axis::Vertical)));
    wanted.lfWeight = weight_;
    wanted.lfItalic = italic_;
    wanted.lfUnderline = underline_;
    wanted.lfStrikeOut = strikethrough_;
    wanted.lfCharSet = static_cast<platform::BYTE>(charset_);
    const std::u16string_view name = name_.view().substr(0, platform::LF_FACESIZE - 1);
    std::copy(name.begin(), name.end(), wanted.lfFaceName);
    font_ = session().fonts.acquire(wanted);
    return font_;
}

const automation::ClassTable& StdFont::table() {
    static const automation::ClassTable table =
        automation::ClassTable::of<StdFont>("StdFont")
            .property("Name", &StdFont::Name, &StdFont::Name)
            .defaultMember()
            .property("Size", &StdFont::Size, &StdFont::Size)
            .property("Bold", &StdFont::Bold, &StdFont::Bold)
            .property("Italic", &StdFont::Italic, &StdFont::Italic)
            .property("Underline", &StdFont::Underline, &StdFont::Underline)
            .property("Strikethrough", &StdFont::Strikethrough, &StdFont::Strikethrough)
            .property("Weight", &StdFont::Weight, &StdFont::Weight)
            .property("Charset", &StdFont::Charset, &StdFont::Charset)
            .event("FontChanged", &StdFont::FontChanged, {"PropertyName"});
    return table;
}

void StdFont::changed(const automation::String& attribute) {
    // The former GDI font may be selected somewhere until the handlers have taken the new one.
    const automation::Ref<StdFont> alive(this);
    const platform::HFONT former = std::exchange(font_, {});
    FontChanged.raise(attribute);
    if (former) session().fonts.release(former);
}

void StdFont::drop() const {
    if (font_) session().fonts.release(std::exchange(font_, {}));
}

} // namespace host
