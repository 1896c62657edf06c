#include "activex/windows/Look.h"

#include "activex/windows/ControlObject.h"
#include "platform/pictures.h"
#include "platform/processes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>

namespace support {

namespace {

constexpr int dotsPerInch = 96;

void set(::IDispatch& control, const wchar_t* name, const ::VARIANT& value) {
    EXPECT_EQ(support::put(control, name, value).result, S_OK)
        << automation::String(reinterpret_cast<const char16_t*>(name)).utf8();
}

void resize(::IDispatch& control, int width, int height) {
    ::SIZEL size{activex::himetricFromPixels(width, dotsPerInch),
                 activex::himetricFromPixels(height, dotsPerInch)};
    EXPECT_EQ(ComPointer<::IOleObject>::of(&control)->SetExtent(DVASPECT_CONTENT, &size), S_OK);
}

void text(::IDispatch& field) {
    set(field, L"Text", support::text(L"Nombre del cliente"));
}

void amount(::IDispatch& field) {
    set(field, L"TipoDato", support::number(1));
    support::call(field, L"FormatoMascara", {support::text(L"(7,2)")});
    set(field, L"Value", support::text(L"12345,6"));
}

void date(::IDispatch& field) {
    set(field, L"TipoDato", support::number(2));
    set(field, L"Mascara", support::text(L"dd/MM/yyyy;;dd/MM/yy"));
    set(field, L"Value", support::date(46095)); // 14 March 2026
}

void hour(::IDispatch& field) {
    set(field, L"Mascara", support::text(L"##:##"));
    set(field, L"Text", support::text(L"17:45"));
}

void buttons(::IDispatch& field) {
    for (const wchar_t* each : {L"BotonCombo", L"BotonBuscar", L"BotonFicha"})
        set(field, each, support::boolean(true));
    set(field, L"Text", support::text(L"Cliente"));
}

void disabledButtons(::IDispatch& field) {
    for (const wchar_t* each : {L"EnabledCombo", L"EnabledBuscar", L"EnabledFicha"})
        set(field, each, support::boolean(false));
}

/// A field of text with one more property.
void textWith(::IDispatch& field, const wchar_t* property, const ::VARIANT& value) {
    text(field);
    set(field, property, value);
}

// Labels

void caption(::IDispatch& label, const wchar_t* words) {
    set(label, L"Caption", support::text(words));
}

/// A label with one more property.
void labelWith(::IDispatch& label, const wchar_t* property, std::int32_t value, const wchar_t* words) {
    set(label, property, support::number(value));
    caption(label, words);
}

void bordered(::IDispatch& label) {
    set(label, L"BorderStyle", support::number(1));
}

constexpr wchar_t sum[] = L"Importe: 1.234,56 €";

constexpr SheetPlace onFieldSheet(int column, int row, int height) {
    constexpr int margin = 16, columnWidth = 300, captionWidth = 136, fieldWidth = 140, rowHeight = 27;
    return {margin + column * columnWidth + captionWidth, margin + row * rowHeight, fieldWidth, height};
}

constexpr SheetPlace onLabelSheet(int column, int top, int height) {
    constexpr int margin = 16, columnWidth = 240, labelWidth = 208;
    return {margin + column * columnWidth, top, labelWidth, height};
}

const Look all[] = {
    {"FieldText", u"get", onFieldSheet(0, 1, 20), text},
    {"FieldNumber", u"get", onFieldSheet(0, 2, 20), amount},
    {"FieldDate", u"get", onFieldSheet(0, 3, 20), date},
    {"FieldHour", u"get", onFieldSheet(0, 4, 20), hour},
    {"FieldPassword", u"get", onFieldSheet(0, 6, 20),
     [](::IDispatch& field) {
         set(field, L"PasswordChar", support::text(L"*"));
         set(field, L"Text", support::text(L"secreto"));
     }},
    {"FieldToTheRight", u"get", onFieldSheet(0, 7, 20),
     [](::IDispatch& field) { textWith(field, L"Alignment", support::number(1)); }},
    {"FieldCentred", u"get", onFieldSheet(0, 8, 20),
     [](::IDispatch& field) { textWith(field, L"Alignment", support::number(2)); }},
    {"FieldFlat", u"get", onFieldSheet(0, 11, 20),
     [](::IDispatch& field) { textWith(field, L"Appearance", support::number(0)); }},
    {"FieldWithoutBorder", u"get", onFieldSheet(0, 12, 20),
     [](::IDispatch& field) { textWith(field, L"BorderStyle", support::number(0)); }},
    {"FieldOfOwnColours", u"get", onFieldSheet(0, 13, 20),
     [](::IDispatch& field) {
         text(field);
         set(field, L"BackColor", support::number(0xC0FFFF));
         set(field, L"ForeColor", support::number(0x800000));
     }},
    {"FieldLocked", u"get", onFieldSheet(1, 1, 20),
     [](::IDispatch& field) { textWith(field, L"Locked", support::boolean(true)); }},
    {"FieldDisabled", u"get", onFieldSheet(1, 5, 20),
     [](::IDispatch& field) { textWith(field, L"Enabled", support::boolean(false)); }},
    {"FieldButtons", u"get", onFieldSheet(1, 6, 20), buttons},
    {"FieldFlatButtons", u"get", onFieldSheet(1, 7, 20),
     [](::IDispatch& field) {
         buttons(field);
         set(field, L"Appearance", support::number(0));
     }},
    {"FieldDisabledButtons", u"get", onFieldSheet(1, 8, 20),
     [](::IDispatch& field) {
         buttons(field);
         disabledButtons(field);
     }},
    {"FieldLargeButtons", u"get", onFieldSheet(1, 10, 40),
     [](::IDispatch& field) {
         buttons(field);
         set(field, L"ButtonWidth", support::number(34));
     }},
    {"FieldLargeDisabledButtons", u"get", onFieldSheet(1, 12, 40),
     [](::IDispatch& field) {
         buttons(field);
         set(field, L"ButtonWidth", support::number(34));
         disabledButtons(field);
     }},
    {"FieldGauge", u"get", onFieldSheet(1, 14, 20),
     [](::IDispatch& field) {
         set(field, L"Text", support::text(L""));
         support::call(field, L"AutoPaintGauge",
                       {support::number(42), support::number(100), support::boolean(true)});
     }},
    {"SelectedNumberInAField", u"get", onFieldSheet(2, 2, 20), amount, Look::focused},
    {"DateWithTheFocus", u"get", onFieldSheet(2, 3, 20), date, Look::focused},
    {"HourWithTheFocus", u"get", onFieldSheet(2, 4, 20), hour, Look::focused},
    {"PressedListButton", u"get", onFieldSheet(2, 10, 20), buttons, 40},
    {"PressedSearchButton", u"get", onFieldSheet(2, 11, 20), buttons, 25},
    {"PressedCardButton", u"get", onFieldSheet(2, 12, 20), buttons, 10},

    {"Label", u"lbl", onLabelSheet(0, 43, 17), [](::IDispatch& label) { caption(label, sum); }},
    {"LabelWithBorder", u"lbl", onLabelSheet(0, 66, 21),
     [](::IDispatch& label) { labelWith(label, L"BorderStyle", 1, sum); }},
    {"LabelToTheRight", u"lbl", onLabelSheet(0, 93, 17),
     [](::IDispatch& label) { labelWith(label, L"Alignment", 1, sum); }},
    {"LabelToTheRightWithBorder", u"lbl", onLabelSheet(0, 116, 21),
     [](::IDispatch& label) {
         bordered(label);
         labelWith(label, L"Alignment", 1, sum);
     }},
    {"CentredLabel", u"lbl", onLabelSheet(0, 143, 17),
     [](::IDispatch& label) { labelWith(label, L"Alignment", 2, sum); }},
    {"CentredLabelWithBorder", u"lbl", onLabelSheet(0, 166, 21),
     [](::IDispatch& label) {
         bordered(label);
         labelWith(label, L"Alignment", 2, sum);
     }},
    {"LabelOfTheWindowsColour", u"lbl", onLabelSheet(0, 193, 21),
     [](::IDispatch& label) {
         bordered(label);
         labelWith(label, L"BackColor", static_cast<std::int32_t>(0x80000005), L"Fondo de ventana");
     }},
    {"LabelOfOwnColours", u"lbl", onLabelSheet(0, 220, 21),
     [](::IDispatch& label) {
         bordered(label);
         set(label, L"BackColor", support::number(0xC0FFFF));
         labelWith(label, L"ForeColor", 0x800000, L"Fondo amarillo, texto azul");
     }},
    {"TransparentLabel", u"lbl", onLabelSheet(0, 247, 21),
     [](::IDispatch& label) { labelWith(label, L"BackStyle", 0, L"Transparente"); }},
    {"LabelThatIsCut", u"lbl", onLabelSheet(0, 274, 17),
     [](::IDispatch& label) { caption(label, L"Un texto demasiado largo para su sitio se corta"); }},
    {"DisabledLabel", u"lbl", onLabelSheet(1, 66, 17),
     [](::IDispatch& label) { labelWith(label, L"Enabled", 0, L"Desactivada"); }},
    {"DisabledLabelWithBorder", u"lbl", onLabelSheet(1, 89, 21),
     [](::IDispatch& label) {
         bordered(label);
         labelWith(label, L"Enabled", 0, L"Desactivada, con borde");
     }},
    {"LabelWithAKey", u"lbl", onLabelSheet(1, 116, 17),
     [](::IDispatch& label) { caption(label, L"&Nombre del cliente"); }},
    {"LabelWithAnAmpersand", u"lbl", onLabelSheet(1, 139, 17),
     [](::IDispatch& label) { caption(label, L"Pérez && Hijos"); }},
    {"LabelWithAccents", u"lbl", onLabelSheet(1, 162, 17),
     [](::IDispatch& label) { caption(label, L"áéíóú ñ ü ç ¿¡ €"); }},
    {"LabelOfTwoLines", u"lbl", onLabelSheet(1, 185, 30),
     [](::IDispatch& label) { labelWith(label, L"BorderStyle", 1, L"dos\r\nlíneas"); }},
    {"WrappedLabel", u"lbl", onLabelSheet(1, 221, 0),
     [](::IDispatch& label) {
         bordered(label);
         set(label, L"AutoSize", support::number(0));
         resize(label, 120, 17);
         labelWith(label, L"AutoSize", 2,
                   L"Línea que se parte sola porque lleva bastante más texto del que cabe");
     }},
    {"LabelAsWideAsItsText", u"lbl", onLabelSheet(1, 270, 0),
     [](::IDispatch& label) { labelWith(label, L"BorderStyle", 1, L"Tan ancha como su texto"); }},
};

/// The golden picture of the class's sheet.
const platform::PictureData& sheet(const std::string& name) {
    static std::map<std::string, platform::PictureData> pictures;
    const auto [found, isNew] = pictures.try_emplace(name);
    if (isNew) {
        const std::string folder = platform::utf8FromWide(platform::environmentVariable(u"TESELA_TEST_DATA"));
        std::ifstream file(folder + "/golden/" + name + ".png", std::ios::binary);
        const std::vector<char> bytes((std::istreambuf_iterator<char>(file)),
                                      std::istreambuf_iterator<char>());
        platform::decodePicture({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()},
                                found->second);
    }
    return found->second;
}

} // namespace

std::span<const Look> looks() {
    return all;
}

ComPointer<::IDispatch> Look::make() const {
    auto control = create(className);
    EXPECT_EQ(ComPointer<::IPersistStreamInit>::of(control.get())->InitNew(), S_OK);
    if (place.height > 0) {
        set(*control.get(), L"AutoSize", support::number(0));
        resize(*control.get(), place.width, place.height);
    }
    properties(*control.get());
    return control;
}

std::vector<::COLORREF> Look::golden(::SIZE size) const {
    constexpr int frameLeft = 4, frameTop = 23; // of the window, which is on the picture too
    const platform::PictureData& picture =
        sheet(className == std::u16string_view(u"get") ? "field" : "label");
    std::vector<::COLORREF> pixels;
    for (int y = 0; y < size.cy; ++y)
        for (int x = 0; x < size.cx; ++x) {
            const auto at =
                static_cast<std::size_t>(frameTop + place.top + y) * static_cast<std::size_t>(picture.width) +
                static_cast<std::size_t>(frameLeft + place.left + x);
            const std::uint32_t argb = at < picture.argb.size() ? picture.argb[at] : 0;
            pixels.push_back(RGB(argb >> 16 & 0xFF, argb >> 8 & 0xFF, argb & 0xFF));
        }
    return pixels;
}

::SIZE sizeOf(::IUnknown& control) {
    ::SIZEL size{};
    ComPointer<::IOleObject>::of(&control)->GetExtent(DVASPECT_CONTENT, &size);
    return {activex::pixelsFromHimetric(size.cx, dotsPerInch),
            activex::pixelsFromHimetric(size.cy, dotsPerInch)};
}

} // namespace support
