// The label's member table and its persisted properties.

#include "automation/Conversions.h"
#include "frame/PersistedProperty.h"
#include "frame/lbl.h"

namespace tesela {

using automation::String;
using automation::Variant;

namespace {

using Persisted = PersistedProperty<lbl>;

template <class E>
E enumFrom(const Variant& value) {
    return static_cast<E>(automation::CLng(value));
}

constexpr host::OLE_COLOR savedBackColor = host::systemColor(15);
constexpr host::OLE_COLOR savedForeColor = host::systemColor(8);

/// In the order in which they are read and written: the scheme first, so that the others override it.
const PersistedProperties<lbl> persisted = {
    {u"Scheme", Persisted::constant<std::int32_t{tslSchemeUseDefault}>,
     [](const lbl& c) { return Variant(c.Scheme()); },
     [](lbl& c, const Variant& v) { c.Scheme(enumFrom<tslSchemeConstants>(v)); }},
    {u"Alias", Persisted::emptyText, [](const lbl& c) { return Variant(c.Alias()); },
     [](lbl& c, const Variant& v) { c.Alias(automation::CStr(v)); }},
    {u"Campo", Persisted::emptyText, [](const lbl& c) { return Variant(c.Campo()); },
     [](lbl& c, const Variant& v) { c.Campo(automation::CStr(v)); }},
    {u"TipoDato", Persisted::constant<std::int32_t{tslTipoDatoCaracter}>,
     [](const lbl& c) { return Variant(c.TipoDato()); },
     [](lbl& c, const Variant& v) { c.TipoDato(enumFrom<tslTipoDatoConstants>(v)); }},
    {u"Enabled", Persisted::constant<true>, [](const lbl& c) { return Variant(c.Enabled()); },
     [](lbl& c, const Variant& v) { c.Enabled(automation::CBool(v)); }},
    {u"Caption", [](const lbl&) { return Variant(u"Texto a mostrar"); },
     [](const lbl& c) { return Variant(c.Caption()); },
     [](lbl& c, const Variant& v) { c.Caption(automation::CStr(v)); }},
    {u"ToolTip", Persisted::emptyText, [](const lbl& c) { return Variant(c.ToolTip()); },
     [](lbl& c, const Variant& v) { c.ToolTip(automation::CStr(v)); }},
    {u"BackColor", Persisted::constant<savedBackColor>, [](const lbl& c) { return Variant(c.BackColor()); },
     [](lbl& c, const Variant& v) { c.BackColor(automation::CLng(v)); }},
    {u"ForeColor", Persisted::constant<savedForeColor>, [](const lbl& c) { return Variant(c.ForeColor()); },
     [](lbl& c, const Variant& v) { c.ForeColor(automation::CLng(v)); }},
    {u"BackStyle", Persisted::constant<std::int32_t{tslBackStyleOpaque}>,
     [](const lbl& c) { return Variant(c.BackStyle()); },
     [](lbl& c, const Variant& v) { c.BackStyle(enumFrom<tslBackStyleConstants>(v)); }},
    {u"BorderStyle", Persisted::constant<std::int32_t{tslBorderStyleNone}>,
     [](const lbl& c) { return Variant(c.BorderStyle()); },
     [](lbl& c, const Variant& v) { c.BorderStyle(enumFrom<tslBorderStyleConstants>(v)); }},
    {u"Font", [](const lbl& c) { return Variant(c.Ambient().Font()); },
     [](const lbl& c) { return Variant(c.Font()); },
     [](lbl& c, const Variant& v) { c.Font(automation::fromVariant<automation::Ref<host::StdFont>>(v)); }},
    {u"Alignment", Persisted::constant<std::int32_t{tslAlignmentLeftJustify}>,
     [](const lbl& c) { return Variant(c.Alignment()); },
     [](lbl& c, const Variant& v) { c.Alignment(enumFrom<tslAlignmentConstants>(v)); }},
    {u"AutoSize", Persisted::constant<std::int32_t{tslautoSize_X}>,
     [](const lbl& c) { return Variant(c.AutoSize()); },
     [](lbl& c, const Variant& v) { c.AutoSize(enumFrom<tslAutoSizeConstants>(v)); }},
};

} // namespace

void lbl::onReadProperties(host::PropertyBag& bag) {
    const float width = Width();
    persisted.load(*this, bag);
    if (AutoSize() == tslAutoSize_Y) wrapAt(width);
}

void lbl::onWriteProperties(host::PropertyBag& bag) {
    persisted.save(*this, bag);
}

const automation::ClassTable& lbl::table() {
    using automation::optional;
    using Position = float (LibraryControl::*)() const;
    using SetPosition = void (LibraryControl::*)(float);
    using Text = const String& (LibraryControl::*)() const;
    using SetText = void (LibraryControl::*)(const String&);
    using OwnText = const String& (lbl::*)() const;
    using SetOwnText = void (lbl::*)(const String&);
    using Flag = bool (lbl::*)() const;
    using SetFlag = void (lbl::*)(bool);
    using Colour = host::OLE_COLOR (lbl::*)() const;
    using SetColour = void (lbl::*)(host::OLE_COLOR);
    using Value = Variant (lbl::*)(tslDataFormatConstants&) const;
    static const automation::ClassTable table =
        automation::ClassTable::of<lbl>("lbl")
            .help("A label that reads like a data field.")
            .field("lInternalPreEnabled", &lbl::lInternalPreEnabled)
            .method("UserControl_InitProperties", &lbl::UserControl_InitProperties)
            .get("hWND", &LibraryControl::hWND)
            .property("RightPos", Position(&LibraryControl::RightPos), SetPosition(&LibraryControl::RightPos))
            .property("BottomPos", Position(&LibraryControl::BottomPos),
                      SetPosition(&LibraryControl::BottomPos))
            .property("Enabled", Flag(&lbl::Enabled), SetFlag(&lbl::Enabled))
            .property("Live", static_cast<bool (LibraryControl::*)() const>(&LibraryControl::Live),
                      SetFlag(&lbl::Live))
            .property("Alias", Text(&LibraryControl::Alias), SetText(&LibraryControl::Alias))
            .property("Campo", Text(&LibraryControl::Campo), SetText(&LibraryControl::Campo))
            .property(
                "TipoDato",
                static_cast<tslTipoDatoConstants (LibraryControl::*)() const>(&LibraryControl::TipoDato),
                static_cast<void (LibraryControl::*)(tslTipoDatoConstants)>(&LibraryControl::TipoDato))
            .property("Caption", OwnText(&lbl::Caption), SetOwnText(&lbl::Caption))
            .defaultMember()
            .get("ValorVerdadero", Value(&lbl::ValorVerdadero), {optional("nFormato", std::int32_t{-1})})
            .property("ToolTip", OwnText(&lbl::ToolTip), SetOwnText(&lbl::ToolTip))
            .property("BackColor", Colour(&lbl::BackColor), SetColour(&lbl::BackColor))
            .property("ForeColor", Colour(&lbl::ForeColor), SetColour(&lbl::ForeColor))
            .property("BackStyle", static_cast<tslBackStyleConstants (lbl::*)() const>(&lbl::BackStyle),
                      static_cast<void (lbl::*)(tslBackStyleConstants)>(&lbl::BackStyle))
            .property("BorderStyle", static_cast<tslBorderStyleConstants (lbl::*)() const>(&lbl::BorderStyle),
                      static_cast<void (lbl::*)(tslBorderStyleConstants)>(&lbl::BorderStyle))
            .property("Font", static_cast<const automation::Ref<host::StdFont>& (lbl::*)() const>(&lbl::Font),
                      static_cast<void (lbl::*)(const automation::Ref<host::StdFont>&)>(&lbl::Font))
            .property("Alignment", static_cast<tslAlignmentConstants (lbl::*)() const>(&lbl::Alignment),
                      static_cast<void (lbl::*)(tslAlignmentConstants)>(&lbl::Alignment))
            .property("AutoSize", static_cast<tslAutoSizeConstants (lbl::*)() const>(&lbl::AutoSize),
                      static_cast<void (lbl::*)(tslAutoSizeConstants)>(&lbl::AutoSize))
            .method("Refresh", &lbl::Refresh)
            .property("Scheme",
                      static_cast<tslSchemeConstants (LibraryControl::*)() const>(&LibraryControl::Scheme),
                      static_cast<void (lbl::*)(tslSchemeConstants)>(&lbl::Scheme))
            .get("UncompletedEvents", &LibraryControl::UncompletedEvents)
            .method("EventsEnabled", &LibraryControl::EventsEnabled, {"lEnabled"})
            .event("Click", &lbl::Click);
    return table;
}

} // namespace tesela
