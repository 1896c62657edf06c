// What a form keeps of a field.

#include "automation/Conversions.h"
#include "field/get.h"
#include "frame/PersistedProperty.h"

namespace tesela {

using automation::String;
using automation::Variant;

namespace {

using Persisted = PersistedProperty<get>;

// Readers and writers of one kind of property, for its pair of overloads.

template <bool (get::*Read)() const>
Variant flag(const get& field) {
    return (field.*Read)();
}
template <void (get::*Write)(bool)>
void setFlag(get& field, const Variant& value) {
    (field.*Write)(automation::CBool(value));
}
template <std::int32_t (get::*Read)() const>
Variant number(const get& field) {
    return (field.*Read)();
}
template <void (get::*Write)(std::int32_t)>
void setNumber(get& field, const Variant& value) {
    (field.*Write)(automation::CLng(value));
}
template <class E, E (get::*Read)() const>
Variant choice(const get& field) {
    return Variant((field.*Read)());
}
template <class E, void (get::*Write)(E)>
void setChoice(get& field, const Variant& value) {
    (field.*Write)(static_cast<E>(automation::CLng(value)));
}
template <const String& (get::*Read)() const>
Variant text(const get& field) {
    return Variant((field.*Read)());
}
template <void (get::*Write)(const String&)>
void setText(get& field, const Variant& value) {
    (field.*Write)(automation::CStr(value));
}

constexpr std::int32_t zero = 0, one = 1;

const Persisted textProperty{u"Text", [](const get&) { return Variant(u"Texto a mostrar"); },
                             text<&get::Text>, setText<&get::Text>};

/// In the order in which they are read and written: the scheme first, so that the others override it.
const PersistedProperties<get> persisted = {
    {u"Scheme", Persisted::constant<std::int32_t{tslSchemeUseDefault}>,
     [](const get& f) { return Variant(f.Scheme()); }, setChoice<tslSchemeConstants, &get::Scheme>},
    {u"ShownEnabled", Persisted::constant<true>, flag<&get::ShownEnabled>, setFlag<&get::ShownEnabled>},
    {u"BotonCombo", Persisted::constant<false>, flag<&get::BotonCombo>, setFlag<&get::BotonCombo>},
    {u"BotonBuscar", Persisted::constant<false>, flag<&get::BotonBuscar>, setFlag<&get::BotonBuscar>},
    {u"BotonFicha", Persisted::constant<false>, flag<&get::BotonFicha>, setFlag<&get::BotonFicha>},
    {u"ButtonWidth", Persisted::constant<std::int32_t{15}>, number<&get::ButtonWidth>,
     setNumber<&get::ButtonWidth>},
    {u"EnabledGet", Persisted::constant<true>, flag<&get::EnabledGet>, setFlag<&get::EnabledGet>},
    {u"EnabledCombo", Persisted::constant<true>, flag<&get::EnabledCombo>, setFlag<&get::EnabledCombo>},
    {u"EnabledBuscar", Persisted::constant<true>, flag<&get::EnabledBuscar>, setFlag<&get::EnabledBuscar>},
    {u"EnabledFicha", Persisted::constant<true>, flag<&get::EnabledFicha>, setFlag<&get::EnabledFicha>},
    {u"Alias", Persisted::emptyText, [](const get& f) { return Variant(f.Alias()); },
     [](get& f, const Variant& v) { f.Alias(automation::CStr(v)); }},
    {u"Campo", Persisted::emptyText, [](const get& f) { return Variant(f.Campo()); },
     [](get& f, const Variant& v) { f.Campo(automation::CStr(v)); }},
    {u"UserFont", Persisted::constant<false>, flag<&get::UserFont>, setFlag<&get::UserFont>},
    {u"TipoDato", Persisted::constant<zero>, [](const get& f) { return Variant(f.TipoDato()); },
     setChoice<tslTipoDatoConstants, &get::TipoDato>},
    {u"Mascara", Persisted::emptyText, text<&get::Mascara>, setText<&get::Mascara>},
    {u"MascaraFocus", Persisted::emptyText, text<&get::MascaraFocus>, setText<&get::MascaraFocus>},
    {u"Mayusculas", Persisted::constant<zero>, choice<tslMayusculasConstants, &get::Mayusculas>,
     setChoice<tslMayusculasConstants, &get::Mayusculas>},
    {u"AutoFormat", Persisted::constant<zero>, choice<tslGetAutoFormatConstants, &get::AutoFormat>,
     setChoice<tslGetAutoFormatConstants, &get::AutoFormat>},
    {u"VacioEnBlanco", Persisted::constant<false>, flag<&get::VacioEnBlanco>, setFlag<&get::VacioEnBlanco>},
    {u"Seleccionado", Persisted::constant<one>, choice<tslSeleccionadoConstants, &get::Seleccionado>,
     setChoice<tslSeleccionadoConstants, &get::Seleccionado>},
    {u"Enabled", Persisted::constant<true>, flag<&get::Enabled>, setFlag<&get::Enabled>},
    textProperty,
    {u"ToolTip", Persisted::emptyText, [](const get& f) { return Variant(f.ToolTip()); },
     setText<&get::ToolTip>},
    {u"BackColor", Persisted::constant<std::int32_t{-1}>, number<&get::BackColor>,
     setNumber<&get::BackColor>},
    {u"ForeColor", Persisted::constant<std::int32_t{-1}>, number<&get::ForeColor>,
     setNumber<&get::ForeColor>},
    {u"Font", [](const get& f) { return Variant(f.Ambient().Font()); },
     [](const get& f) { return Variant(f.copyOfFont()); },
     [](get& f, const Variant& v) { f.Font(automation::fromVariant<automation::Ref<host::StdFont>>(v)); }},
    {u"FontWidth", [](const get&) { return Variant(0.0F); },
     [](const get& f) { return Variant(f.FontWidth()); },
     [](get& f, const Variant& v) { f.FontWidth(automation::CSng(v)); }},
    {u"BorderStyle", Persisted::constant<one>, choice<tslBorderStyleConstants, &get::BorderStyle>,
     setChoice<tslBorderStyleConstants, &get::BorderStyle>},
    {u"Appearance", Persisted::constant<one>, choice<tslAppearanceConstants, &get::Appearance>,
     setChoice<tslAppearanceConstants, &get::Appearance>},
    {u"Locked", Persisted::constant<false>, flag<&get::Locked>, setFlag<&get::Locked>},
    {u"MaxLength", Persisted::constant<zero>, number<&get::MaxLength>, setNumber<&get::MaxLength>},
    {u"AutoSize", Persisted::constant<std::int32_t{tslAutoSize_Y}>,
     choice<tslAutoSizeConstants, &get::AutoSize>, setChoice<tslAutoSizeConstants, &get::AutoSize>},
    {u"AutoTrim", Persisted::constant<std::int32_t{tslAutoTrim_Both}>,
     choice<tslAutoTrimConstants, &get::AutoTrim>, setChoice<tslAutoTrimConstants, &get::AutoTrim>},
    {u"Alignment", Persisted::constant<zero>, choice<tslAlignmentConstants, &get::Alignment>,
     setChoice<tslAlignmentConstants, &get::Alignment>},
    {u"PasswordChar", Persisted::emptyText, text<&get::PasswordChar>, setText<&get::PasswordChar>},
    {u"CaracteresValidos", Persisted::emptyText, text<&get::CaracteresValidos>,
     setText<&get::CaracteresValidos>},
    {u"MousePointer", Persisted::constant<zero>, number<&get::MousePointer>, setNumber<&get::MousePointer>},
    {u"MultiLine", Persisted::constant<false>, flag<&get::MultiLine>, setFlag<&get::MultiLine>},
};

} // namespace

void get::onReadProperties(host::PropertyBag& bag) {
    beginReading();
    const bool stopped = tabStop();
    persisted.load(*this, bag, [&](const Persisted& property) {
        if (property.write == setFlag<&get::EnabledFicha>)
            setTabStop(stopped && lShownEnabled && lEnabledGet);
    });
    try {
        if (isRecordIdentifier() && cTexto.empty())
            textProperty.take(*this, bag.ReadProperty(textProperty.name, textProperty.defaultValue(*this)));
    } catch (const automation::Error&) {
        // A container that tells no name: the field holds no identifier.
    }
    finishReading();
}

void get::onWriteProperties(host::PropertyBag& bag) {
    persisted.save(*this, bag);
}

} // namespace tesela
