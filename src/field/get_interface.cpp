// The field's member table.

#include "field/get.h"

namespace tesela {

using automation::String;
using automation::Variant;

namespace {

// The overloads of a property, by the type of its value.
template <class T>
using Read = T (get::*)() const;
template <class T>
using Write = void (get::*)(T);
template <class T>
using ReadShared = T (LibraryControl::*)() const;
template <class T>
using WriteShared = void (LibraryControl::*)(T);
using Object = automation::Ref<automation::Object>;
using FontObject = automation::Ref<host::StdFont>;

void addShared(automation::ClassTable::Builder<get>& table) {
    table.field("lInternalPreEnabled", &get::lInternalPreEnabled)
        .field("lInternalPreEnabledGet", &get::lInternalPreEnabledGet)
        .field("lInternalPreEnabledBtnCombo", &get::lInternalPreEnabledBtnCombo)
        .field("lInternalPreEnabledBtnBuscar", &get::lInternalPreEnabledBtnBuscar)
        .field("lInternalPreEnabledFicha", &get::lInternalPreEnabledFicha)
        .method("UserControl_InitProperties", &get::UserControl_InitProperties)
        .get("hWND", &LibraryControl::hWND)
        .property("RightPos", ReadShared<float>(&LibraryControl::RightPos),
                  WriteShared<float>(&LibraryControl::RightPos))
        .property("BottomPos", ReadShared<float>(&LibraryControl::BottomPos),
                  WriteShared<float>(&LibraryControl::BottomPos))
        .property("Enabled", Read<bool>(&get::Enabled), Write<bool>(&get::Enabled))
        .property("Live", ReadShared<bool>(&LibraryControl::Live), Write<bool>(&get::Live))
        .property("Alias", ReadShared<const String&>(&LibraryControl::Alias),
                  WriteShared<const String&>(&LibraryControl::Alias))
        .property("Campo", ReadShared<const String&>(&LibraryControl::Campo),
                  WriteShared<const String&>(&LibraryControl::Campo))
        .property("TipoDato", ReadShared<tslTipoDatoConstants>(&LibraryControl::TipoDato),
                  Write<tslTipoDatoConstants>(&get::TipoDato))
        .property("Scheme", ReadShared<tslSchemeConstants>(&LibraryControl::Scheme),
                  Write<tslSchemeConstants>(&get::Scheme))
        .get("UncompletedEvents", &LibraryControl::UncompletedEvents)
        .method("EventsEnabled", &LibraryControl::EventsEnabled, {"lEnabled"});
}

void addValue(automation::ClassTable::Builder<get>& table) {
    using automation::optional;
    table.property("Text", Read<const String&>(&get::Text), Write<const String&>(&get::Text))
        .method("SetText", &get::SetText, {"cNewText"})
        .property("Value", static_cast<Variant (get::*)()>(&get::Value), Write<const Variant&>(&get::Value))
        .defaultMember()
        .method("ValorVerdadero",
                static_cast<Variant (get::*)(std::int32_t&, const Variant&)>(&get::ValorVerdadero),
                {optional("nFormato", std::int32_t{-1}), optional("xNuevoValor", false)})
        .property("HasChanged", Read<bool>(&get::HasChanged), Write<bool>(&get::HasChanged))
        .get("OriginalValue", &get::OriginalValue, {optional("lDesdeModificacionFicha", false)})
        .method("ValueHasChanged", &get::ValueHasChanged, {optional("lDesdeModificacionFicha", false)})
        .method("ResetValue", &get::ResetValue, {optional("lDesdeModificacionFicha", false)})
        .method("Reset", &get::Reset)
        .property("Locked", Read<bool>(&get::Locked), Write<bool>(&get::Locked))
        .property("SelStart", Read<std::int32_t>(&get::SelStart), Write<std::int32_t>(&get::SelStart))
        .property("SelLength", Read<std::int32_t>(&get::SelLength), Write<std::int32_t>(&get::SelLength))
        .property("MaxLength", Read<std::int32_t>(&get::MaxLength), Write<std::int32_t>(&get::MaxLength))
        .property("PasswordChar", Read<const String&>(&get::PasswordChar),
                  Write<const String&>(&get::PasswordChar))
        .property("AutoTrim", Read<tslAutoTrimConstants>(&get::AutoTrim),
                  Write<tslAutoTrimConstants>(&get::AutoTrim))
        .property("Mayusculas", Read<tslMayusculasConstants>(&get::Mayusculas),
                  Write<tslMayusculasConstants>(&get::Mayusculas))
        .property("AutoFormat", Read<tslGetAutoFormatConstants>(&get::AutoFormat),
                  Write<tslGetAutoFormatConstants>(&get::AutoFormat))
        .property("VacioEnBlanco", Read<bool>(&get::VacioEnBlanco), Write<bool>(&get::VacioEnBlanco))
        .property("Seleccionado", Read<tslSeleccionadoConstants>(&get::Seleccionado),
                  Write<tslSeleccionadoConstants>(&get::Seleccionado))
        .property("CaracteresValidos", Read<const String&>(&get::CaracteresValidos),
                  Write<const String&>(&get::CaracteresValidos))
        .get("HasFocus", &get::HasFocus)
        .property("Mascara", Read<const String&>(&get::Mascara), Write<const String&>(&get::Mascara))
        .property("MascaraFocus", Read<const String&>(&get::MascaraFocus),
                  Write<const String&>(&get::MascaraFocus))
        .method("FormatoMascara", &get::FormatoMascara, {"cCombinado"})
        .property("UserFont", Read<bool>(&get::UserFont), Write<bool>(&get::UserFont))
        .method("FntNumbers", &get::FntNumbers);
}

void addValidation(automation::ClassTable::Builder<get>& table) {
    using automation::Date;
    using automation::optional;
    table.method("ValidateFecha", &get::ValidateFecha)
        .method("ValidateHora", static_cast<bool (get::*)(Date&)>(&get::ValidateHora), {optional("dHora")})
        .property("ValorHora", static_cast<Date (get::*)()>(&get::ValorHora), Write<Date>(&get::ValorHora))
        .method("FechaYHora", &get::FechaYHora, {"dFecha"})
        .method("ValidateFltCodigos", &get::ValidateFltCodigos)
        .property("Validado", Read<bool>(&get::Validado), Write<bool>(&get::Validado))
        .method("RegisterValidate", &get::RegisterValidate, {"nHWNDForm"})
        .method("UnRegisterValidate", &get::UnRegisterValidate);
}

void addFocus(automation::ClassTable::Builder<get>& table) {
    using automation::optional;
    table.method("ShowCaret", &get::ShowCaret, {optional("nHWND", std::int32_t{0})})
        .method("HideCaret", &get::HideCaret, {optional("nHWND", std::int32_t{0})})
        .property("CaretVisible", Read<bool>(&get::CaretVisible), Write<bool>(&get::CaretVisible))
        .method("PreserveCaretPos", &get::PreserveCaretPos)
        .method("SetCaretPosition", &get::SetCaretPosition, {"nNewPos"})
        .get("LastKey", &get::LastKey)
        .property("MultiLine", Read<bool>(&get::MultiLine), Write<bool>(&get::MultiLine))
        .method("ProcesarTeclaFromOnScreenKeyboard", &get::ProcesarTeclaFromOnScreenKeyboard,
                {"cKeyASCII", "nKeyCode", "nShiftKeys"})
        .property("EnabledGet", Read<bool>(&get::EnabledGet), Write<bool>(&get::EnabledGet))
        .property("EnabledCombo", Read<bool>(&get::EnabledCombo), Write<bool>(&get::EnabledCombo))
        .property("EnabledBuscar", Read<bool>(&get::EnabledBuscar), Write<bool>(&get::EnabledBuscar))
        .property("EnabledFicha", Read<bool>(&get::EnabledFicha), Write<bool>(&get::EnabledFicha))
        .property("BotonCombo", Read<bool>(&get::BotonCombo), Write<bool>(&get::BotonCombo))
        .property("BotonBuscar", Read<bool>(&get::BotonBuscar), Write<bool>(&get::BotonBuscar))
        .property("BotonFicha", Read<bool>(&get::BotonFicha), Write<bool>(&get::BotonFicha))
        .property("ButtonWidth", Read<std::int32_t>(&get::ButtonWidth),
                  Write<std::int32_t>(&get::ButtonWidth))
        .property("RowCombo", Read<std::int32_t>(&get::RowCombo), Write<std::int32_t>(&get::RowCombo))
        .property("CtrlFocus", Read<std::int32_t>(&get::CtrlFocus), Write<std::int32_t>(&get::CtrlFocus))
        .property("ControlAsociado", Read<const Object&>(&get::ControlAsociado),
                  Write<const Object&>(&get::ControlAsociado))
        .property("OnScreenKeyboardAsociado", Read<const Object&>(&get::OnScreenKeyboardAsociado),
                  Write<const Object&>(&get::OnScreenKeyboardAsociado))
        .property("StatusBarAsociado", Read<const Object&>(&get::StatusBarAsociado),
                  Write<const Object&>(&get::StatusBarAsociado))
        .get("IsGoingToChangeFocus", &get::IsGoingToChangeFocus)
        .get("IsForwarding", &get::IsForwarding)
        .method("NoReclamarFocus", &get::NoReclamarFocus)
        .method("SetFocusToCtl", &get::SetFocusToCtl, {"oNewCtl"})
        .method("SetFocusIfEnabled", &get::SetFocusIfEnabled, {optional("oBtn"), optional("nLastCtlHWND")})
        .method("SetMsgForStatusBar", &get::SetMsgForStatusBar, {"cMsg"});
}

void addLook(automation::ClassTable::Builder<get>& table) {
    using automation::optional;
    table.method("Render", &get::Render)
        .method("Refresh", &get::Refresh)
        .method("BeginRefresh", &get::BeginRefresh)
        .method("EndRefresh", &get::EndRefresh)
        .property("ToolTip", Read<String>(&get::ToolTip), Write<const String&>(&get::ToolTip))
        .property("BackColor", Read<host::OLE_COLOR>(&get::BackColor),
                  Write<host::OLE_COLOR>(&get::BackColor))
        .property("ForeColor", Read<host::OLE_COLOR>(&get::ForeColor),
                  Write<host::OLE_COLOR>(&get::ForeColor))
        .property("Font", static_cast<const FontObject& (get::*)()>(&get::Font),
                  Write<const FontObject&>(&get::Font))
        .property("FontWidth", Read<float>(&get::FontWidth), Write<float>(&get::FontWidth))
        .property("BorderStyle", Read<tslBorderStyleConstants>(&get::BorderStyle),
                  Write<tslBorderStyleConstants>(&get::BorderStyle))
        .property("Appearance", Read<tslAppearanceConstants>(&get::Appearance),
                  Write<tslAppearanceConstants>(&get::Appearance))
        .property("Alignment", Read<tslAlignmentConstants>(&get::Alignment),
                  Write<tslAlignmentConstants>(&get::Alignment))
        .property("AlwaysLeft", Read<bool>(&get::AlwaysLeft), Write<bool>(&get::AlwaysLeft))
        .property("AutoSize", Read<tslAutoSizeConstants>(&get::AutoSize),
                  Write<tslAutoSizeConstants>(&get::AutoSize))
        .property("UserDrawnMode", Read<tslCtlUserDrawnModeConstants>(&get::UserDrawnMode),
                  Write<tslCtlUserDrawnModeConstants>(&get::UserDrawnMode))
        .property("ShownEnabled", Read<bool>(&get::ShownEnabled), Write<bool>(&get::ShownEnabled))
        .property("MousePointer", Read<std::int32_t>(&get::MousePointer),
                  Write<std::int32_t>(&get::MousePointer))
        .property("GlobalCtlCfg",
                  static_cast<Variant (get::*)(tslCtlGlobalCfgConstants) const>(&get::GlobalCtlCfg),
                  static_cast<void (get::*)(tslCtlGlobalCfgConstants, const Variant&)>(&get::GlobalCtlCfg),
                  {"nIndex"})
        .method("LoadStockIcon", &get::LoadStockIcon, {"nID"})
        .method("PaintHGradient", &get::PaintHGradient,
                {optional("nChars", std::int32_t{5}), optional("nColor1", std::int32_t{-1}),
                 optional("nColor2", std::int32_t{-1})})
        .method("PaintGauge", &get::PaintGauge,
                {"nCurrent", "nMax", optional("lShowPorcentaje", false), optional("nNumDec", std::int32_t{0}),
                 optional("nBaseColor", std::int32_t{-1})})
        .method("AutoPaintGauge", &get::AutoPaintGauge,
                {"nCurrent", "nMax", optional("lShowPorcentaje", false), optional("nNumDec", std::int32_t{0}),
                 optional("nBaseColor", std::int32_t{-1})});
}

void addEvents(automation::ClassTable::Builder<get>& table) {
    table.event("Change", &get::Change)
        .event("Click", &get::Click)
        .event("DblClick", &get::DblClick)
        .event("KeyWatch", &get::KeyWatch, {"KeyCode", "Shift"})
        .event("KeyDown", &get::KeyDown, {"KeyCode", "Shift"})
        .event("KeyPress", &get::KeyPress, {"KeyAscii"})
        .event("KeyUp", &get::KeyUp, {"KeyCode", "Shift"})
        .event("MouseDown", &get::MouseDown, {"Button", "Shift", "X", "Y"})
        .event("MouseMove", &get::MouseMove, {"Button", "Shift", "X", "Y"})
        .event("MouseUp", &get::MouseUp, {"Button", "Shift", "X", "Y"})
        .event("KeySearch", &get::KeySearch, {"lCancel", "lCheckOnly"})
        .event("KeyViewForm", &get::KeyViewForm, {"lCancel", "lCheckOnly"})
        .event("KeyAdd", &get::KeyAdd, {"lCancel", "lCheckOnly", "lAdd"})
        .event("EVCombo", &get::EVCombo, {"lForzarLista", "lCancel"})
        .event("EVBuscar", &get::EVBuscar)
        .event("EVFicha", &get::EVFicha)
        .event("PaintBackground", &get::PaintBackground, {"oCanvas"})
        .event("UserDrawn", &get::UserDrawn, {"oCanvas"});
}

} // namespace

const automation::ClassTable& get::table() {
    static const automation::ClassTable table =
        automation::ClassTable::of<get>("get")
            .help("A typed data-entry field with masks, its own caret and three companion buttons.")
            .with(addShared)
            .with(addValue)
            .with(addValidation)
            .with(addFocus)
            .with(addLook)
            .with(addEvents);
    return table;
}

} // namespace tesela
