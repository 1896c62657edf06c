// What fields look like in a container, held to the pictures that the library makes on the other system.

#include "platform/locale.h"
#include "platform/pictures.h"
#include "platform/processes.h"

#include "activex/windows/Container.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace {

using support::Site;

// Where a field stands on the sheet of tests/golden/field.png, in pixels. The frame of the window is around
// it.
constexpr int frameLeft = 4, frameTop = 23;
constexpr int margin = 16, columnWidth = 300, captionWidth = 136, fieldWidth = 140, rowHeight = 27;

using Properties = void (*)(::IDispatch&);

/// A field of the sheet: its place there, and what it is made of.
struct Look {
    const char* name;
    int column;
    int row;
    int height;
    Properties properties;
    bool focused = false;

    friend void PrintTo(const Look& look, std::ostream* out) { *out << look.name; }
};

void put(::IDispatch& field, const wchar_t* name, const ::VARIANT& value) {
    EXPECT_EQ(support::put(field, name, value).result, S_OK);
}

void text(::IDispatch& field) {
    put(field, L"Text", support::text(L"Nombre del cliente"));
}

void amount(::IDispatch& field) {
    put(field, L"TipoDato", support::number(1));
    support::call(field, L"FormatoMascara", {support::text(L"(7,2)")});
    put(field, L"Value", support::text(L"12345,6"));
}

void date(::IDispatch& field) {
    put(field, L"TipoDato", support::number(2));
    put(field, L"Mascara", support::text(L"dd/MM/yyyy;;dd/MM/yy"));
    put(field, L"Value", support::date(46095)); // 14 March 2026
}

void hour(::IDispatch& field) {
    put(field, L"Mascara", support::text(L"##:##"));
    put(field, L"Text", support::text(L"17:45"));
}

void buttons(::IDispatch& field) {
    for (const wchar_t* each : {L"BotonCombo", L"BotonBuscar", L"BotonFicha"})
        put(field, each, support::boolean(true));
    put(field, L"Text", support::text(L"Cliente"));
}

void disabledButtons(::IDispatch& field) {
    for (const wchar_t* each : {L"EnabledCombo", L"EnabledBuscar", L"EnabledFicha"})
        put(field, each, support::boolean(false));
}

/// A field of text with one more property.
void textWith(::IDispatch& field, const wchar_t* property, const ::VARIANT& value) {
    text(field);
    put(field, property, value);
}

const Look looks[] = {
    {"Text", 0, 1, 20, text},
    {"Number", 0, 2, 20, amount},
    {"Date", 0, 3, 20, date},
    {"Hour", 0, 4, 20, hour},
    {"Password", 0, 6, 20,
     [](::IDispatch& field) {
         put(field, L"PasswordChar", support::text(L"*"));
         put(field, L"Text", support::text(L"secreto"));
     }},
    {"ToTheRight", 0, 7, 20, [](::IDispatch& field) { textWith(field, L"Alignment", support::number(1)); }},
    {"Centred", 0, 8, 20, [](::IDispatch& field) { textWith(field, L"Alignment", support::number(2)); }},
    {"Flat", 0, 11, 20, [](::IDispatch& field) { textWith(field, L"Appearance", support::number(0)); }},
    {"WithoutBorder", 0, 12, 20,
     [](::IDispatch& field) { textWith(field, L"BorderStyle", support::number(0)); }},
    {"OfOwnColours", 0, 13, 20,
     [](::IDispatch& field) {
         text(field);
         put(field, L"BackColor", support::number(0xC0FFFF));
         put(field, L"ForeColor", support::number(0x800000));
     }},
    {"Locked", 1, 1, 20, [](::IDispatch& field) { textWith(field, L"Locked", support::boolean(true)); }},
    {"Disabled", 1, 5, 20, [](::IDispatch& field) { textWith(field, L"Enabled", support::boolean(false)); }},
    {"Buttons", 1, 6, 20, buttons},
    {"FlatButtons", 1, 7, 20,
     [](::IDispatch& field) {
         buttons(field);
         put(field, L"Appearance", support::number(0));
     }},
    {"DisabledButtons", 1, 8, 20,
     [](::IDispatch& field) {
         buttons(field);
         disabledButtons(field);
     }},
    {"LargeButtons", 1, 10, 40,
     [](::IDispatch& field) {
         buttons(field);
         put(field, L"ButtonWidth", support::number(34));
     }},
    {"LargeDisabledButtons", 1, 12, 40,
     [](::IDispatch& field) {
         buttons(field);
         put(field, L"ButtonWidth", support::number(34));
         disabledButtons(field);
     }},
    {"Gauge", 1, 14, 20,
     [](::IDispatch& field) {
         put(field, L"Text", support::text(L""));
         support::call(field, L"AutoPaintGauge",
                       {support::number(42), support::number(100), support::boolean(true)});
     }},
    {"SelectedNumber", 2, 2, 20, amount, true},
    {"DateWithTheFocus", 2, 3, 20, date, true},
    {"HourWithTheFocus", 2, 4, 20, hour, true},
};

/// The golden picture, as the system's colours.
const platform::PictureData& sheet() {
    static const platform::PictureData picture = [] {
        const std::string folder = platform::utf8FromWide(platform::environmentVariable(u"TESELA_TEST_DATA"));
        std::ifstream file(folder + "/golden/field.png", std::ios::binary);
        const std::vector<char> bytes((std::istreambuf_iterator<char>(file)),
                                      std::istreambuf_iterator<char>());
        platform::PictureData decoded;
        platform::decodePicture({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, decoded);
        return decoded;
    }();
    return picture;
}

std::vector<::COLORREF> golden(const Look& look) {
    std::vector<::COLORREF> pixels;
    const int left = frameLeft + margin + look.column * columnWidth + captionWidth;
    const int top = frameTop + margin + look.row * rowHeight;
    for (int y = top; y < top + look.height; ++y)
        for (int x = left; x < left + fieldWidth; ++x) {
            const auto at = static_cast<std::size_t>(y) * static_cast<std::size_t>(sheet().width) +
                            static_cast<std::size_t>(x);
            const std::uint32_t argb = at < sheet().argb.size() ? sheet().argb[at] : 0;
            pixels.push_back(RGB(argb >> 16 & 0xFF, argb >> 8 & 0xFF, argb & 0xFF));
        }
    return pixels;
}

/// What stands in its window, without the caret.
std::vector<::COLORREF> shown(const Site& site, int height) {
    ::UpdateWindow(site.controlWindow());
    ::HideCaret(site.controlWindow());
    const ::HDC dc = ::GetDC(site.controlWindow());
    auto result = support::pixels(dc, fieldWidth, height);
    ::ReleaseDC(site.controlWindow(), dc);
    ::ShowCaret(site.controlWindow());
    return result;
}

class Looks : public ::testing::TestWithParam<Look> {
protected:
    void expectGolden(const std::vector<::COLORREF>& picture) const {
        const auto expected = golden(GetParam());
        ASSERT_EQ(picture.size(), expected.size());
        std::size_t different = 0;
        for (std::size_t i = 0; i < picture.size(); ++i)
            different += picture[i] != expected[i];
        EXPECT_EQ(different, 0u) << "pixels of " << picture.size();
    }
};

TEST_P(Looks, InAContainerAreTheSameAsOnTheOtherSystem) {
    const Look& look = GetParam();
    const support::ContainerWindow window;
    Site site(window.handle(), {20, 20, 20 + fieldWidth, 20 + look.height}, u"get");
    site.as<::IPersistStreamInit>()->InitNew();
    put(site.control(), L"AutoSize", support::number(0));
    site.as<::IOleInPlaceObject>()->SetObjectRects(&site.place, &site.place);
    look.properties(site.control());
    if (!look.focused) {
        expectGolden(support::drawn(site, fieldWidth, look.height));
        expectGolden(support::drawn(site, fieldWidth, look.height, support::Way::ThroughMetafile));
    }
    ASSERT_EQ(site.activate(look.focused), S_OK);
    expectGolden(shown(site, look.height));
    site.as<::IOleInPlaceObject>()->InPlaceDeactivate();
}

INSTANTIATE_TEST_SUITE_P(OfFields, Looks, ::testing::ValuesIn(looks),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
