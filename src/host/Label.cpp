#include "host/Label.h"

#include "automation/Argument.h"
#include "automation/ClassTable.h"
#include "host/PropertyBag.h"
#include "host/ScaleMode.h"
#include "platform/gdi.h"

namespace host {

namespace {

constexpr float DefaultWidth = 1215;
constexpr float DefaultHeight = 495;

float twipsX(int pixels) {
    return static_cast<float>(pixels * twipsPerPixel(Axis::Horizontal));
}

float twipsY(int pixels) {
    return static_cast<float>(pixels * twipsPerPixel(Axis::Vertical));
}

/// Error 380 for a value outside of an enumeration that counts from 0 to `last`.
template <class E>
void checkEnumeration(E value, E last) {
    const auto number = static_cast<int>(value);
    if (number < 0 || number > static_cast<int>(last))
        automation::throwError(automation::errors::InvalidPropertyValue);
}

} // namespace

Label::Label() : font_(automation::make<StdFont>()) {
    setBounds({0, 0, DefaultWidth, DefaultHeight});
    fontChanges_ = font_->FontChanged.subscribe([this](const automation::String&) { changed(); });
}

Label::~Label() {
    if (home_) home_->removeLabel(*this);
}

void Label::placeIn(DrawingWindow& container) {
    if (home_) home_->removeLabel(*this);
    home_ = &container;
    home_->addLabel(*this);
    changed();
}

void Label::Caption(const automation::String& value) {
    if (value == caption_) return;
    caption_ = value;
    if (site()) site()->accessKeysChanged();
    changed();
}

void Label::BackColor(OLE_COLOR value) {
    backColor_ = value;
    invalidate();
}

void Label::ForeColor(OLE_COLOR value) {
    foreColor_ = value;
    invalidate();
}

void Label::BackStyle(host::BackStyle value) {
    checkEnumeration(value, host::BackStyle::Opaque);
    backStyle_ = value;
    invalidate();
}

void Label::BorderStyle(host::BorderStyle value) {
    checkEnumeration(value, host::BorderStyle::FixedSingle);
    borderStyle_ = value;
    changed();
}

void Label::Appearance(host::Appearance value) {
    checkEnumeration(value, host::Appearance::ThreeD);
    appearance_ = value;
    changed();
}

void Label::Alignment(host::Alignment value) {
    checkEnumeration(value, host::Alignment::Center);
    alignment_ = value;
    invalidate();
}

void Label::AutoSize(bool value) {
    autoSize_ = value;
    changed();
}

void Label::WordWrap(bool value) {
    wordWrap_ = value;
    changed();
}

void Label::Font(const StdFont& value) {
    font_->assign(value);
}

void Label::Enabled(bool value) {
    enabled_ = value;
    invalidate();
}

void Label::Visible(bool value) {
    if (value == visible_) return;
    visible_ = value;
    invalidate();
    if (site()) site()->setExtenderValue(ExtenderValue::Visible, value);
}

void Label::ToolTipText(const automation::String& value) {
    if (value == toolTip_) return;
    toolTip_ = value;
    if (site()) site()->setExtenderValue(ExtenderValue::ToolTipText, value);
}

void Label::UseMnemonic(bool value) {
    useMnemonic_ = value;
    changed();
}

// Place.

float Label::unit(Axis axis) const {
    return static_cast<float>(home_ ? home_->unitTwips(axis) : 1.0);
}

float Label::Left() const {
    return bounds().left / unit(Axis::Horizontal) + (home_ ? home_->ScaleLeft() : 0);
}

void Label::Left(float value) {
    Move(value, Top(), Width(), Height());
}

float Label::Top() const {
    return bounds().top / unit(Axis::Vertical) + (home_ ? home_->ScaleTop() : 0);
}

void Label::Top(float value) {
    Move(Left(), value, Width(), Height());
}

float Label::Width() const {
    return bounds().width / unit(Axis::Horizontal);
}

void Label::Width(float value) {
    Move(Left(), Top(), value, Height());
}

float Label::Height() const {
    return bounds().height / unit(Axis::Vertical);
}

void Label::Height(float value) {
    Move(Left(), Top(), Width(), value);
}

void Label::Move(float left, float top, float width, float height) {
    const float x = unit(Axis::Horizontal);
    const float y = unit(Axis::Vertical);
    const float originX = home_ ? home_->ScaleLeft() : 0;
    const float originY = home_ ? home_->ScaleTop() : 0;
    applyBounds({(left - originX) * x, (top - originY) * y, width * x, height * y});
}

void Label::applyBounds(const Bounds& place) {
    if (place == bounds()) return;
    invalidate();
    setBounds(place);
    fit();
    invalidate();
}

void Label::applyVisible(bool value) {
    visible_ = value;
    invalidate();
}

void Label::Refresh() {
    if (!home_) return;
    invalidate();
    platform::UpdateWindow(home_->hWnd());
}

void Label::changed() {
    invalidate();
    fit();
    invalidate();
}

void Label::invalidate() const {
    if (home_) home_->invalidate(bounds().pixels());
}

int Label::borderWidth() const {
    if (borderStyle_ == host::BorderStyle::None) return 0;
    return appearance_ == host::Appearance::ThreeD ? 2 : 1;
}

platform::UINT Label::textFormat() const {
    platform::UINT format = platform::DT_EXPANDTABS;
    if (alignment_ == host::Alignment::RightJustify) format |= platform::DT_RIGHT;
    if (alignment_ == host::Alignment::Center) format |= platform::DT_CENTER;
    // A label that isn't sized by its text wraps in the room it has.
    if (wordWrap_ || !autoSize_) format |= platform::DT_WORDBREAK;
    if (!useMnemonic_) format |= platform::DT_NOPREFIX;
    return format;
}

platform::SIZE Label::textSize(int width) const {
    const platform::HDC screen = platform::CreateCompatibleDC({});
    const platform::HGDIOBJ former = platform::SelectObject(screen, font_->hFont());
    // An empty caption still stands one line high.
    const automation::String text = caption_.empty() ? automation::String(u" ") : caption_;
    platform::RECT area{0, 0, width, 0};
    platform::DrawTextW(screen, text.c_str(), static_cast<int>(text.length()), &area,
                        textFormat() | platform::DT_CALCRECT);
    platform::SelectObject(screen, former);
    platform::DeleteDC(screen);
    return {caption_.empty() ? 0 : area.right - area.left, area.bottom - area.top};
}

void Label::fit() {
    if (!autoSize_) return;
    const int border = 2 * borderWidth();
    Bounds place = bounds();
    if (wordWrap_) {
        const platform::RECT now = place.pixels();
        const platform::SIZE size = textSize(now.right - now.left - border);
        place.height = twipsY(size.cy + border);
    } else {
        const platform::SIZE size = textSize(0);
        const float width = twipsX(size.cx + border);
        // The edge that the text leans on stays.
        if (alignment_ == host::Alignment::RightJustify) place.left += place.width - width;
        if (alignment_ == host::Alignment::Center) place.left += (place.width - width) / 2;
        place.width = width;
        place.height = twipsY(size.cy + border);
    }
    if (place != bounds()) setBounds(place);
}

void Label::paint(platform::HDC dc) const {
    if (!visible_) return;
    platform::RECT area = bounds().pixels();
    const int state = platform::SaveDC(dc);
    platform::IntersectClipRect(dc, area.left, area.top, area.right, area.bottom);
    if (backStyle_ == host::BackStyle::Opaque) {
        const platform::HBRUSH brush = platform::CreateSolidBrush(rgbFromOle(backColor_));
        platform::FillRect(dc, &area, brush);
        platform::DeleteObject(brush);
    }
    paintBorder(dc, area);
    paintText(dc, area);
    platform::RestoreDC(dc, state);
}

void Label::paintBorder(platform::HDC dc, platform::RECT& area) const {
    if (borderStyle_ == host::BorderStyle::None) return;
    if (appearance_ == host::Appearance::ThreeD) {
        platform::DrawEdge(dc, &area, platform::EDGE_SUNKEN, platform::BF_RECT | platform::BF_ADJUST);
        return;
    }
    platform::FrameRect(dc, &area, platform::GetSysColorBrush(platform::COLOR_WINDOWFRAME));
    area = {area.left + 1, area.top + 1, area.right - 1, area.bottom - 1};
}

void Label::paintText(platform::HDC dc, const platform::RECT& area) const {
    platform::SelectObject(dc, font_->hFont());
    platform::SetBkMode(dc, platform::TRANSPARENT);
    const auto draw = [&](int shift, platform::COLORREF color) {
        platform::RECT place{area.left + shift, area.top + shift, area.right + shift, area.bottom + shift};
        platform::SetTextColor(dc, color);
        platform::DrawTextW(dc, caption_.c_str(), static_cast<int>(caption_.length()), &place, textFormat());
    };
    if (enabled_) {
        draw(0, rgbFromOle(foreColor_));
    } else {
        draw(1, platform::GetSysColor(platform::COLOR_3DHIGHLIGHT));
        draw(0, platform::GetSysColor(platform::COLOR_GRAYTEXT));
    }
}

automation::String Label::accessKeys() const {
    return useMnemonic_ ? mnemonicOf(caption_) : automation::String();
}

automation::String mnemonicOf(const automation::String& caption) {
    for (std::size_t i = 0; i + 1 < caption.length(); ++i) {
        if (caption[i] != u'&') continue;
        if (caption[i + 1] != u'&') return caption.substring(i + 1, 1);
        ++i;
    }
    return {};
}

// On a form.

void Label::enter(ControlSite& newSite, DrawingWindow* container, platform::HWND parent,
                  const Bounds& place) {
    Bounds own = place;
    if (own.width == 0 && own.height == 0) {
        own.width = bounds().width;
        own.height = bounds().height;
    }
    Control::enter(newSite, container, parent, own);
    if (container) placeIn(*container);
}

void Label::leave() {
    if (home_) {
        invalidate();
        home_->removeLabel(*this);
        home_ = nullptr;
    }
    Control::leave();
}

void Label::initProperties() {
    Caption(Extender().Name());
    BackColor(Ambient().BackColor());
    ForeColor(Ambient().ForeColor());
    Font(*Ambient().Font());
}

void Label::readProperties(PropertyBag& bag) {
    const auto read = [&bag]<class T>(const char16_t* name, T fallback) {
        return automation::fromVariant<T>(bag.ReadProperty(name, automation::toVariant(fallback)));
    };
    Font(*Ambient().Font());
    if (const automation::Variant font = bag.ReadProperty(u"Font"); font.isObject())
        Font(*automation::fromVariant<automation::Ref<StdFont>>(font));
    Caption(read(u"Caption", automation::String()));
    // A value that the property can't take is passed over.
    const auto take = [&]<class T>(const char16_t* name, T fallback, void (Label::*write)(T)) {
        try {
            (this->*write)(read(name, fallback));
        } catch (const automation::Error&) {
        }
    };
    take(u"BackColor", colorButtonFace, &Label::BackColor);
    take(u"ForeColor", colorButtonText, &Label::ForeColor);
    take(u"BackStyle", host::BackStyle::Opaque, &Label::BackStyle);
    take(u"BorderStyle", host::BorderStyle::None, &Label::BorderStyle);
    take(u"Appearance", host::Appearance::ThreeD, &Label::Appearance);
    take(u"Alignment", host::Alignment::LeftJustify, &Label::Alignment);
    take(u"Enabled", true, &Label::Enabled);
    take(u"UseMnemonic", true, &Label::UseMnemonic);
    take(u"WordWrap", false, &Label::WordWrap);
    take(u"AutoSize", false, &Label::AutoSize);
}

void Label::writeProperties(PropertyBag& bag) {
    bag.WriteProperty(u"Caption", caption_, u"");
    bag.WriteProperty(u"BackColor", backColor_, colorButtonFace);
    bag.WriteProperty(u"ForeColor", foreColor_, colorButtonText);
    bag.WriteProperty(u"BackStyle", backStyle_, host::BackStyle::Opaque);
    bag.WriteProperty(u"BorderStyle", borderStyle_, host::BorderStyle::None);
    bag.WriteProperty(u"Appearance", appearance_, host::Appearance::ThreeD);
    bag.WriteProperty(u"Alignment", alignment_, host::Alignment::LeftJustify);
    bag.WriteProperty(u"Enabled", enabled_, true);
    bag.WriteProperty(u"UseMnemonic", useMnemonic_, true);
    bag.WriteProperty(u"WordWrap", wordWrap_, false);
    bag.WriteProperty(u"AutoSize", autoSize_, false);
    bag.WriteProperty(u"Font", font_, Ambient().Font());
}

void Label::ambientChanged(const automation::String&) {
    invalidate();
}

const automation::ClassTable& Label::table() {
    using automation::optional;
    static const automation::ClassTable table =
        automation::ClassTable::of<Label>("Label")
            .property("Caption", &Label::Caption, &Label::Caption)
            .defaultMember()
            .property("BackColor", &Label::BackColor, &Label::BackColor)
            .property("ForeColor", &Label::ForeColor, &Label::ForeColor)
            .property("BackStyle", &Label::BackStyle, &Label::BackStyle)
            .property("BorderStyle", &Label::BorderStyle, &Label::BorderStyle)
            .property("Appearance", &Label::Appearance, &Label::Appearance)
            .property("Alignment", &Label::Alignment, &Label::Alignment)
            .property("AutoSize", &Label::AutoSize, &Label::AutoSize)
            .property("WordWrap", &Label::WordWrap, &Label::WordWrap)
            .get("Font", &Label::Font)
            .let("Font", &Label::copyFont)
            .property("Enabled", &Label::Enabled, &Label::Enabled)
            .property("UseMnemonic", &Label::UseMnemonic, &Label::UseMnemonic)
            .method("Refresh", &Label::Refresh)
            .event("Click", &Label::Click)
            .event("DblClick", &Label::DblClick);
    return table;
}

void Label::copyFont(const automation::Ref<StdFont>& value) {
    if (value) Font(*value);
}

} // namespace host
