// What a form keeps of a field, and how its properties act on one another.
#include "field/FieldTest.h"
#include "support/MemberNames.h"
#include "support/RecordingSite.h"

#include <algorithm>
#include <cmath>

using namespace tesela;
using namespace tests;

namespace {

class get_properties : public tests::FieldTest {
protected:
    static host::PropertyBag saved(get& field) {
        host::PropertyBag bag;
        field.writeProperties(bag);
        return bag;
    }
    static std::vector<std::string> names(const host::PropertyBag& bag) {
        std::vector<std::string> result;
        for (const auto& item : bag.items())
            result.push_back(item.first.utf8());
        return result;
    }
    /// No property has its default.
    void changeEverything(get& f) {
        f.Scheme(tslSchemeHeader_B);
        f.ShownEnabled(false);
        f.BotonCombo(true);
        f.BotonBuscar(true);
        f.BotonFicha(true);
        f.ButtonWidth(20);
        f.EnabledGet(false);
        f.EnabledCombo(false);
        f.EnabledBuscar(false);
        f.EnabledFicha(false);
        f.Alias(u"clientes");
        f.Campo(u"saldo");
        f.UserFont(true);
        f.TipoDato(tslTipoDatoNumero);
        f.Mascara(u"#,##0.00;;##0.00");
        f.Mayusculas(tslMayusculasUCase);
        f.AutoFormat(tslGetAutoFormatProperCase);
        f.VacioEnBlanco(true);
        f.Seleccionado(tslSeleccionadoSiempre);
        f.Enabled(false);
        f.Text(u"12,5");
        f.ToolTip(u"ayuda");
        f.BackColor(0x123456);
        f.ForeColor(0x654321);
        f.Font(f.Ambient().Font());
        f.Font()->Italic(true);
        f.FontWidth(1.25F);
        f.BorderStyle(tslBorderStyleNone);
        f.Appearance(tslAppearanceFlat);
        f.Locked(true);
        f.MaxLength(9);
        f.AutoSize(tslAutoSize_NO);
        f.AutoTrim(tslAutoTrim_Left);
        f.Alignment(tslAlignmentCenter);
        f.PasswordChar(u"*");
        f.CaracteresValidos(u"0123");
        f.MousePointer(11);
        f.MultiLine(true);
    }
};

const std::vector<std::string> order{
    "Scheme",        "ShownEnabled", "BotonCombo",    "BotonBuscar",  "BotonFicha",   "ButtonWidth",
    "EnabledGet",    "EnabledCombo", "EnabledBuscar", "EnabledFicha", "Alias",        "Campo",
    "UserFont",      "TipoDato",     "Mascara",       "MascaraFocus", "Mayusculas",   "AutoFormat",
    "VacioEnBlanco", "Seleccionado", "Enabled",       "Text",         "ToolTip",      "BackColor",
    "ForeColor",     "Font",         "FontWidth",     "BorderStyle",  "Appearance",   "Locked",
    "MaxLength",     "AutoSize",     "AutoTrim",      "Alignment",    "PasswordChar", "CaracteresValidos",
    "MousePointer",  "MultiLine"};

} // namespace

TEST_F(get_properties, PersistedNamesStandInTheirOrder) {
    changeEverything(*field);
    EXPECT_EQ(order, names(saved(*field)));
}

TEST_F(get_properties, DefaultsCostNoStorage) {
    field->readProperties(*std::make_unique<host::PropertyBag>());
    auto left = names(saved(*field));
    std::erase(left, "ForeColor"); // the table's colour of the moment
    EXPECT_TRUE(left.empty()) << testing::PrintToString(left);
}

TEST_F(get_properties, AnEmptyBagGivesTheDefaults) {
    changeEverything(*field);
    host::PropertyBag empty;
    field->readProperties(empty);
    EXPECT_EQ("Texto a mostrar", text());
    EXPECT_EQ(tslSchemeUseDefault, field->Scheme());
    EXPECT_TRUE(field->ShownEnabled());
    EXPECT_FALSE(field->BotonCombo());
    EXPECT_EQ(15, field->ButtonWidth());
    EXPECT_TRUE(field->EnabledGet());
    EXPECT_EQ(tslTipoDatoCaracter, field->TipoDato());
    EXPECT_EQ("", field->MascaraFocus().utf8());
    EXPECT_EQ(-1, field->BackColor());
    EXPECT_FALSE(field->Locked());
    EXPECT_EQ(0, field->MaxLength());
    EXPECT_EQ(tslAutoSize_Y, field->AutoSize());
    EXPECT_TRUE(field->Font()->equals(*field->Ambient().Font()));
}

TEST_F(get_properties, EveryPropertyComesBackFromItsBag) {
    changeEverything(*field);
    host::PropertyBag bag = saved(*field);
    get& other = form->add<get>(u"get9");
    other.readProperties(bag);
    EXPECT_EQ(saved(*field).Contents().utf8(), saved(other).Contents().utf8());
    EXPECT_EQ("12,50", other.Text().utf8());
    EXPECT_EQ("##0.00", other.MascaraFocus().utf8());
    EXPECT_EQ(9, other.MaxLength());
    EXPECT_FALSE(other.Extender().TabStop()) << "neither shown enabled nor to be edited";
}

TEST_F(get_properties, AWrongValueInTheBagIsSkippedAndTheNextIsRead) {
    host::PropertyBag bag;
    for (const std::string& name : order)
        if (name != "Text" && name != "ToolTip")
            bag.WriteProperty(automation::String::fromUtf8(name), Variant(u"¿?"));
    bag.WriteProperty(u"Text", Variant(u"uno"));
    field->readProperties(bag);
    EXPECT_EQ("¿?", field->Alias().utf8()) << "a text is a value of these";
    EXPECT_EQ(tslTipoDatoCaracter, field->TipoDato());
    EXPECT_EQ(15, field->ButtonWidth());
}

TEST_F(get_properties, ValuesThatNoPropertyTakesLeaveEachAsItWas) {
    changeEverything(*field);
    const auto former = saved(*field).Contents().utf8();
    const auto readsAs = [&](const Variant& wrong, const std::vector<std::string>& others) {
        host::PropertyBag bag = saved(*field);
        for (const std::string& name : order)
            if (std::find(others.begin(), others.end(), name) == others.end())
                bag.WriteProperty(automation::String::fromUtf8(name), wrong);
        field->readProperties(bag);
        return saved(*field).Contents().utf8();
    };
    EXPECT_EQ(former, readsAs(Variant::null(), {}));
    // A text is a value of these, and the mask writes MaxLength.
    const std::vector<std::string> texts{"Alias",    "Campo",   "Mascara",      "MascaraFocus",
                                         "Text",     "ToolTip", "PasswordChar", "CaracteresValidos",
                                         "MaxLength"};
    EXPECT_EQ(former, readsAs(Variant(u"x"), texts));
    const auto object = automation::Ref<automation::Object>(automation::make<cCanvas>().get());
    EXPECT_EQ(former, readsAs(Variant(object), {}));
}

TEST_F(get_properties, AnIdentifierWhoseTextIsNoneStillPaintsAndResizes) {
    host::PropertyBag bag;
    bag.WriteProperty(u"Campo", Variant(u"TeselaID"));
    bag.WriteProperty(u"Text",
                      Variant(automation::Ref<automation::Object>(automation::make<cFecha>().get())));
    field->Text({});
    field->readProperties(bag);
    const float height = field->Height();
    field->Font()->Size(automation::Currency(18));
    EXPECT_GT(field->Height(), height);
}

TEST_F(get_properties, TabStopIsKeptAcrossTheReading) {
    host::PropertyBag bag;
    field->Extender().TabStop(false);
    field->readProperties(bag);
    EXPECT_FALSE(field->Extender().TabStop());
    field->Extender().TabStop(true);
    field->readProperties(bag);
    EXPECT_TRUE(field->Extender().TabStop());
    for (const char16_t* name : {u"ShownEnabled", u"EnabledGet"}) {
        host::PropertyBag disabled;
        disabled.WriteProperty(name, Variant(false));
        get& other = form->add<get>(automation::String(u"get") + name);
        other.readProperties(disabled);
        EXPECT_FALSE(other.Extender().TabStop()) << automation::String(name).utf8();
    }
}

TEST_F(get_properties, EverySetterReportsItsProperty) {
    const auto alone = automation::make<get>();
    support::RecordingSite site(*alone, form->hWnd(), {0, 0, 1500, 300});
    site.changed.clear();
    changeEverything(*alone);
    for (const std::string& name : order)
        EXPECT_EQ(1, std::min<long>(1, std::count(site.changed.begin(), site.changed.end(), name))) << name;
    site.changed.clear();
    alone->SetText(u"12,50");
    alone->SelStart(1);
    alone->SelLength(2);
    EXPECT_EQ((std::vector<std::string>{"SelStart", "SelLength"}), site.changed);
}

TEST_F(get_properties, WhatStaysTheSameIsNotReported) {
    const auto alone = automation::make<get>();
    support::RecordingSite site(*alone, form->hWnd(), {0, 0, 1500, 300});
    changeEverything(*alone);
    site.changed.clear();
    alone->MaxLength(alone->MaxLength());
    alone->ButtonWidth(alone->ButtonWidth());
    alone->Appearance(alone->Appearance());
    alone->Alignment(alone->Alignment());
    alone->UserDrawnMode(alone->UserDrawnMode());
    alone->TipoDato(alone->TipoDato());
    alone->EnabledGet(alone->EnabledGet());
    alone->EnabledCombo(alone->EnabledCombo());
    EXPECT_TRUE(site.changed.empty()) << testing::PrintToString(site.changed);
    alone->BorderStyle(alone->BorderStyle());
    EXPECT_EQ((std::vector<std::string>{"BorderStyle"}), site.changed);
}

TEST_F(get_properties, WhatShowsIsPaintedWhenItIsWritten) {
    field->Alignment(tslAlignmentRightJustify);
    field->BotonCombo(true);
    show();
    field->UserDrawnMode(tslCtlUserDrawnMode_Foreground);
    int paints = 0;
    field->UserDrawn.join([&](automation::Ref<cCanvas>&) { ++paints; });
    const auto paintsOf = [&](const auto& write) {
        paints = 0;
        write(*field);
        return paints;
    };
    using Writer = void (*)(get&);
    const std::pair<const char*, Writer> painted[] = {
        {"Text", [](get& f) { f.Text(u"uno"); }},
        {"SetText", [](get& f) { f.SetText(u"dos"); }},
        {"Value", [](get& f) { f.Value(u"tres"); }},
        {"SelStart", [](get& f) { f.SelStart(1); }},
        {"SelLength", [](get& f) { f.SelLength(1); }},
        {"MaxLength", [](get& f) { f.MaxLength(9); }},
        {"PasswordChar", [](get& f) { f.PasswordChar(u"*"); }},
        {"Locked", [](get& f) { f.Locked(true); }},
        {"VacioEnBlanco", [](get& f) { f.VacioEnBlanco(true); }},
        {"Mascara", [](get& f) { f.Mascara(u"XXXX"); }},
        {"Mascara of the same length", [](get& f) { f.Mascara(u"AAAA"); }},
        {"MultiLine", [](get& f) { f.MultiLine(true); }},
        {"BackColor", [](get& f) { f.BackColor(0xFF); }},
        {"ForeColor", [](get& f) { f.ForeColor(0xFF); }},
        {"BorderStyle", [](get& f) { f.BorderStyle(tslBorderStyleNone); }},
        {"BorderStyle as it is", [](get& f) { f.BorderStyle(tslBorderStyleNone); }},
        {"Appearance", [](get& f) { f.Appearance(tslAppearanceFlat); }},
        {"AlwaysLeft", [](get& f) { f.AlwaysLeft(true); }},
        {"AutoSize", [](get& f) { f.AutoSize(tslAutoSize_NO); }},
        {"FontWidth", [](get& f) { f.FontWidth(1.5F); }},
        {"ButtonWidth", [](get& f) { f.ButtonWidth(20); }},
        {"BotonBuscar", [](get& f) { f.BotonBuscar(true); }},
        {"EnabledCombo", [](get& f) { f.EnabledCombo(false); }},
        {"EnabledGet", [](get& f) { f.EnabledGet(false); }},
        {"ShownEnabled", [](get& f) { f.ShownEnabled(false); }},
        {"Enabled", [](get& f) { f.Enabled(false); }},
        {"ValorHora", [](get& f) { f.ValorHora(Date(0.5)); }},
        {"AutoPaintGauge", [](get& f) { f.AutoPaintGauge(1, 2); }},
        {"Alignment", [](get& f) { f.Alignment(tslAlignmentLeftJustify); }},
    };
    for (const auto& [name, write] : painted)
        EXPECT_LT(0, paintsOf(write)) << name;
    const std::pair<const char*, Writer> unseen[] = {
        {"Alignment as it is", [](get& f) { f.Alignment(tslAlignmentLeftJustify); }},
        {"Appearance as it is", [](get& f) { f.Appearance(tslAppearanceFlat); }},
        {"AlwaysLeft of what is left", [](get& f) { f.AlwaysLeft(false); }},
        {"MaxLength as it is", [](get& f) { f.MaxLength(4); }},
        {"EnabledFicha without the button", [](get& f) { f.EnabledFicha(false); }},
        {"Seleccionado", [](get& f) { f.Seleccionado(tslSeleccionadoSiempre); }},
        {"CaracteresValidos", [](get& f) { f.CaracteresValidos(u"0"); }},
        {"MascaraFocus", [](get& f) { f.MascaraFocus(u"XX"); }},
        {"RowCombo", [](get& f) { f.RowCombo(3); }},
    };
    field->MaxLength(4);
    for (const auto& [name, write] : unseen)
        EXPECT_EQ(0, paintsOf(write)) << name;
}

TEST_F(get_properties, WhatACheckRepairsIsPainted) {
    show();
    const auto shows = [this](const char16_t* typed, const auto& check) {
        field->SetText(typed);
        const auto former = desk.look(field->hWnd());
        check();
        return desk.look(field->hWnd()) != former;
    };
    EXPECT_TRUE(shows(u"1:5", [this] { field->ValidateHora(); }));
    EXPECT_TRUE(shows(u"3,1-2", [this] { field->ValidateFltCodigos(); }));
    field->TipoDato(tslTipoDatoFecha);
    EXPECT_TRUE(shows(u"1/2/24", [this] { field->ValidateFecha(); }));
}

TEST_F(get_properties, NarrowButtonsAreRefused) {
    field->ButtonWidth(14);
    EXPECT_EQ(15, field->ButtonWidth());
    field->ButtonWidth(31);
    EXPECT_EQ(31, field->ButtonWidth());
    field->ButtonWidth(15);
    EXPECT_EQ(15, field->ButtonWidth());
}

TEST_F(get_properties, BackColorFollowsTheTableAndForeColorDoesNot) {
    field->ForeColor(-1);
    const auto text = field->ForeColor();
    EXPECT_NE(-1, text);
    field->GlobalCtlCfg(tslCtlGlobalCfg_Get_ForeColor, Variant(std::int32_t{0x123456}));
    EXPECT_EQ(text, field->ForeColor());
    field->BackColor(-1);
    EXPECT_EQ(-1, field->BackColor());
    field->BackColor(host::colorButtonFace);
    EXPECT_EQ(automation::fromVariant<std::int32_t>(GlobalCtlCfg(tslCtlGlobalCfg_Get_DisabledBackColor)),
              field->BackColor());
}

TEST_F(get_properties, ShownEnabledLocksTheFieldAndLeavesItEnabled) {
    field->BackColor(0x112233);
    field->ShownEnabled(false);
    EXPECT_TRUE(field->Locked());
    EXPECT_TRUE(field->Enabled());
    EXPECT_FALSE(field->Extender().TabStop());
    EXPECT_EQ(-1, field->BackColor());
    field->ShownEnabled(true);
    EXPECT_FALSE(field->Locked());
    EXPECT_TRUE(field->Extender().TabStop());
    field->EnabledGet(false);
    field->ShownEnabled(true);
    EXPECT_FALSE(field->Extender().TabStop()) << "it is not to be edited";
    field->ShownEnabled(false);
    field->EnabledGet(true);
    EXPECT_FALSE(field->Extender().TabStop()) << "it shows as disabled";
}

TEST_F(get_properties, AFieldShownAsDisabledStillGetsTheMouse) {
    field->ShownEnabled(false);
    show();
    int presses = 0;
    field->MouseDown.join([&](short&, short&, float&, float&) { ++presses; });
    platform::POINT point{10, 8};
    platform::ClientToScreen(field->hWnd(), &point);
    desk.click(point);
    desk.pump();
    EXPECT_EQ(1, presses);
}

TEST_F(get_properties, BackColorMinusOneFollowsTheTableAtTheNextPaint) {
    const Variant former = GlobalCtlCfg(tslCtlGlobalCfg_Get_BackColor);
    field->BackColor(-1);
    show();
    const auto plain = desk.look(field->hWnd()).at(20, 8);
    GlobalCtlCfg(tslCtlGlobalCfg_Get_BackColor, Variant(std::int32_t{0x40C0E0}));
    EXPECT_EQ(plain, desk.look(field->hWnd()).at(20, 8)) << "not before";
    field->Render();
    EXPECT_EQ(0x40C0E0u, desk.look(field->hWnd()).at(20, 8));
    field->BackColor(0x102030);
    EXPECT_EQ(0x102030u, desk.look(field->hWnd()).at(20, 8));
    GlobalCtlCfg(tslCtlGlobalCfg_Get_BackColor, former);
}

TEST_F(get_properties, TheGroundTellsFocusAndEnabling) {
    show();
    const auto ground = [this] { return static_cast<std::int32_t>(desk.look(field->hWnd()).at(20, 8)); };
    const auto slot = [](tslCtlGlobalCfgConstants index) {
        return automation::fromVariant<std::int32_t>(GlobalCtlCfg(index));
    };
    EXPECT_EQ(slot(tslCtlGlobalCfg_Get_BackColor), ground());
    field->ShownEnabled(false);
    EXPECT_EQ(slot(tslCtlGlobalCfg_Get_DisabledBackColor), ground());
    field->Extender().SetFocus();
    EXPECT_EQ(slot(tslCtlGlobalCfg_Get_DisabledBackColor), ground()) << "with the focus too";
    field->ShownEnabled(true);
    EXPECT_EQ(slot(tslCtlGlobalCfg_Get_FocusBackColor), ground());
    field->BackColor(0x102030);
    EXPECT_EQ(slot(tslCtlGlobalCfg_Get_FocusBackColor), ground()) << "the own colour waits";
    field->EnabledGet(false);
    EXPECT_EQ(slot(tslCtlGlobalCfg_Get_BackColor), ground());
    after->Extender().SetFocus();
    EXPECT_EQ(0x102030, ground());
}

TEST_F(get_properties, ALockedFieldFadesAsLongAsTabStopsAtIt) {
    show();
    const auto column = [this] {
        const auto picture = desk.look(field->hWnd());
        std::vector<platform::COLORREF> colors;
        for (int y = 2; y < picture.height - 2; ++y)
            colors.push_back(picture.at(20, y));
        return colors;
    };
    const auto isFlat = [](const std::vector<platform::COLORREF>& colors) {
        return std::count(colors.begin(), colors.end(), colors[0]) == static_cast<long>(colors.size());
    };
    const auto plain = column();
    EXPECT_TRUE(isFlat(plain));
    field->Locked(true);
    EXPECT_FALSE(isFlat(column()));
    field->Extender().TabStop(false);
    field->Render();
    EXPECT_EQ(plain, column()) << "without the stop it looks as ever";
    field->Extender().TabStop(true);
    field->Extender().SetFocus();
    desk.pump();
    EXPECT_FALSE(isFlat(column())) << "with the focus too";
    field->Extender().TabStop(false);
    field->Render();
    EXPECT_TRUE(isFlat(column()));
}

TEST_F(get_properties, IconsAreLargeFromButtonsOf32PixelsOn) {
    field->AutoSize(tslAutoSize_NO);
    field->BotonBuscar(true);
    field->BorderStyle(tslBorderStyleNone);
    field->Height(40 * 15);
    show();
    // An icon's pixels differ from the edge of the button, which fades from top to bottom only.
    const auto iconWidth = [this](int buttonWidth) {
        field->ButtonWidth(buttonWidth);
        const auto picture = desk.look(field->hWnd());
        const int left = picture.width - buttonWidth - 1;
        int first = picture.width, last = 0;
        for (int y = 3; y < picture.height - 3; ++y)
            for (int x = left + 3; x < picture.width - 4; ++x)
                if (picture.at(x, y) != picture.at(left + 2, y)) {
                    first = std::min(first, x);
                    last = std::max(last, x);
                }
        return last - first + 1;
    };
    EXPECT_GE(16, iconWidth(31));
    EXPECT_LT(16, iconWidth(32));
    field->Height(31 * 15);
    EXPECT_GE(16, iconWidth(40)) << "a low field has small ones";
}

TEST_F(get_properties, ALockedFieldShowsItsOwnColourFlat) {
    field->BackColor(0x102030);
    field->Locked(true);
    show();
    const auto picture = desk.look(field->hWnd());
    for (int y = 3; y < picture.height - 3; ++y)
        EXPECT_EQ(0x102030u, picture.at(40, y)) << y;
}

TEST_F(get_properties, WhatIsAlwaysLeftLooksLeftAlignedWithoutTheFocusToo) {
    field->Text(u"abc");
    show();
    const auto left = desk.look(field->hWnd());
    field->Alignment(tslAlignmentRightJustify);
    EXPECT_NE(left, desk.look(field->hWnd()));
    field->AlwaysLeft(true);
    EXPECT_EQ(left, desk.look(field->hWnd()));
}

TEST_F(get_properties, TheTextOfWhatIsNotToBeEditedIsFaint) {
    field->Text(u"abc");
    show();
    const auto plain = desk.look(field->hWnd());
    field->EnabledGet(false);
    const auto faint = desk.look(field->hWnd());
    EXPECT_NE(plain, faint);
    field->EnabledGet(true);
    field->Enabled(false);
    EXPECT_EQ(faint, desk.look(field->hWnd()));
}

TEST_F(get_properties, PhantomDigitsStandWhereDecimalsWould) {
    moveTo("en-US");
    field->TipoDato(tslTipoDatoNumero);
    show();
    const auto inked = [this](const char16_t* mask) {
        field->SetText({});
        const auto ground = desk.look(field->hWnd());
        field->FormatoMascara(mask);
        field->Value(std::int32_t{17});
        const auto picture = desk.look(field->hWnd());
        std::vector<int> columns;
        for (int x = 0; x < picture.width; ++x)
            for (int y = 0; y < picture.height; ++y)
                if (picture.at(x, y) != ground.at(x, y)) {
                    columns.push_back(x);
                    break;
                }
        return columns;
    };
    const auto decimals = inked(u"(4,3)");
    EXPECT_EQ(decimals, inked(u"(4,1,2)"));
    EXPECT_EQ(decimals, inked(u"(4,0,3)"));
    const auto rightmost = decimals.back();
    field->Locked(true);
    EXPECT_GT(rightmost, inked(u"(4,0,3)").back()) << "none on a ground that fades";
}

TEST_F(get_properties, ALineIsAsLongAsTheFieldWithoutBorderAndAMarginOfNine) {
    field->AutoSize(tslAutoSize_NO);
    field->Height(900);
    field->MultiLine(true);
    constexpr std::u16string_view words = u"uno dos";
    field->Text(automation::String(words));
    cCanvas& screen = *globales().oCanvasGlobal;
    screen.SelectVBStdFont(field->Font());
    std::int32_t textWidth = 0, textHeight = 0;
    screen.GetTextExtent(words, textWidth, textHeight);
    constexpr int borders = 4, margin = 9, lastPixel = 1;
    const int needed = textWidth + borders + margin + lastPixel;
    enter();
    const auto isBroken = [&](int pixels) {
        field->Width(static_cast<float>(pixels * 15));
        field->SetCaretPosition(0);
        press(platform::VK_DOWN);
        const bool stayed = field->HasFocus();
        field->Extender().SetFocus();
        return stayed;
    };
    EXPECT_TRUE(isBroken(needed - 1));
    EXPECT_FALSE(isBroken(needed));
}

TEST_F(get_properties, ADateDoesNotScrollWithItsCaret) {
    field->AutoSize(tslAutoSize_NO);
    field->TipoDato(tslTipoDatoFecha);
    field->Text(u"14/03/2026");
    field->Width(500);
    enter();
    const auto first = desk.look(field->hWnd());
    press(platform::VK_END);
    EXPECT_EQ(first, desk.look(field->hWnd()));
    field->TipoDato(tslTipoDatoCaracter);
    field->Text(u"14/03/2026");
    press(platform::VK_HOME);
    press(platform::VK_END);
    EXPECT_NE(first, desk.look(field->hWnd())) << "a text does";
}

TEST_F(get_properties, TheArrowOfAListIsAQuarterOfTheSmallerSide) {
    field->AutoSize(tslAutoSize_NO);
    field->BorderStyle(tslBorderStyleNone);
    field->Height(20 * 15);
    field->BotonCombo(true);
    show();
    const auto arrowWidth = [this](int buttonWidth) {
        field->ButtonWidth(buttonWidth);
        const auto picture = desk.look(field->hWnd());
        const int left = picture.width - buttonWidth - 1;
        int first = picture.width, last = 0;
        for (int y = 3; y < picture.height - 3; ++y)
            for (int x = left + 3; x < picture.width - 4; ++x)
                if (picture.at(x, y) != picture.at(left + 2, y)) {
                    first = std::min(first, x);
                    last = std::max(last, x);
                }
        return last - first + 1;
    };
    const int wide = arrowWidth(80);
    EXPECT_EQ(arrowWidth(20), wide);
    field->Height(40 * 15);
    EXPECT_LT(wide, arrowWidth(80));
}

TEST_F(get_properties, AMaskThatStaysMayStillChangeTheLook) {
    field->AutoSize(tslAutoSize_NO);
    field->TipoDato(tslTipoDatoNumero);
    field->FormatoMascara(u"(4)");
    field->Text(u"12");
    show();
    const auto plain = desk.look(field->hWnd());
    field->FormatoMascara(u"(4,0,2)");
    EXPECT_EQ("#,##0", field->Mascara().utf8());
    EXPECT_NE(plain, desk.look(field->hWnd())) << "two phantom decimals";
    field->FormatoMascara(u"(4)");
    EXPECT_EQ(plain, desk.look(field->hWnd()));
}

TEST_F(get_properties, TheMouseFindsTheTextOfThePictureWhilePaintingIsHeld) {
    field->AutoSize(tslAutoSize_NO);
    field->Text(u"abcdefgh");
    enter();
    const auto plain = desk.look(field->hWnd());
    field->BeginRefresh();
    field->Width(2 * field->Width());
    platform::POINT point{20, 8};
    platform::ClientToScreen(field->hWnd(), &point);
    desk.click(point);
    desk.pump();
    EXPECT_LT(0, field->caretPosition());
    EXPECT_GT(8, field->caretPosition());
    EXPECT_EQ(plain.at(4, 8), desk.look(field->hWnd()).at(4, 8)) << "the former picture stays";
    field->EndRefresh();
}

TEST_F(get_properties, WhatEnabledWasSetToIsKeptForTheApplication) {
    field->EnabledGet(false);
    field->EnabledCombo(true);
    EXPECT_FALSE(field->lInternalPreEnabledGet);
    EXPECT_TRUE(field->lInternalPreEnabledBtnCombo);
    EXPECT_FALSE(field->Extender().TabStop());
    field->EnabledGet(true);
    EXPECT_TRUE(field->lInternalPreEnabledGet);
    EXPECT_TRUE(field->Extender().TabStop());
    field->EnabledBuscar(true);
    field->EnabledFicha(true);
    EXPECT_TRUE(field->lInternalPreEnabledBtnBuscar) << "though nothing has changed";
    EXPECT_TRUE(field->lInternalPreEnabledFicha);
}

TEST_F(get_properties, TheInitialValuesAreThoseOfANewField) {
    field->Enabled(false);
    field->Alias(u"a");
    field->Campo(u"c");
    field->ToolTip(u"t");
    field->BackColor(0xFF);
    field->TipoDato(tslTipoDatoNumero);
    field->UserControl_InitProperties();
    EXPECT_TRUE(field->Enabled());
    EXPECT_EQ("", field->Alias().utf8() + field->Campo().utf8() + field->ToolTip().utf8());
    EXPECT_EQ(-1, field->BackColor());
    EXPECT_EQ(tslTipoDatoCaracter, field->TipoDato());
    EXPECT_EQ("get1", text());
}

TEST_F(get_properties, WidthsOfLettersAreNotNegative) {
    field->FontWidth(-2);
    EXPECT_EQ(0, field->FontWidth());
}

TEST_F(get_properties, ALineOfTextIsAsHighAsItsFontNeeds) {
    const float height = field->Height();
    field->Font()->Size(automation::Currency(18));
    EXPECT_GT(field->Height(), height);
    field->AutoSize(tslAutoSize_NO);
    field->Height(900);
    EXPECT_EQ(900, field->Height());
    field->AutoSize(tslAutoSize_XY);
    EXPECT_EQ(900, field->Height()) << "the next change of its size makes it fit";
}

TEST_F(get_properties, TheSizeIsThatOfLettersBorderAndButtons) {
    form->UserMode(false);
    get& designed = form->add<get>(u"getMedida");
    designed.AutoSize(tslAutoSize_XY);
    const auto width = [&](std::int32_t letters, tslBorderStyleConstants border, int buttons) {
        designed.BorderStyle(border);
        designed.BotonCombo(buttons > 0);
        designed.BotonFicha(buttons > 1);
        designed.MaxLength(letters + 1); // which makes it resize when it changes
        designed.MaxLength(letters);
        return static_cast<int>(std::lround(designed.Width() / 15));
    };
    const int ten = width(20, tslBorderStyleFixedSingle, 0) - width(10, tslBorderStyleFixedSingle, 0);
    EXPECT_EQ(ten + 2 + 6, width(10, tslBorderStyleFixedSingle, 0));
    EXPECT_EQ(ten + 2 + 2, width(10, tslBorderStyleNone, 0));
    EXPECT_EQ(ten + 2 + 6 + 15 + 3, width(10, tslBorderStyleFixedSingle, 1));
    EXPECT_EQ(ten + 2 + 6 + 30 + 3, width(10, tslBorderStyleFixedSingle, 2));
    EXPECT_EQ(ten + 2 + 2 + 15 + 1, width(10, tslBorderStyleNone, 1));
    const float bordered = designed.Height();
    designed.BorderStyle(tslBorderStyleFixedSingle);
    designed.MaxLength(11);
    EXPECT_EQ(4 * 15, designed.Height() - bordered);
    designed.TipoDato(tslTipoDatoNumero);
    designed.FormatoMascara(u"(4)");
    const float plain = designed.Width();
    designed.FormatoMascara(u"(4,0,2)");
    const float point = designed.Width();
    designed.FormatoMascara(u"(4,0,5)");
    EXPECT_EQ(designed.Width() - point, point - plain) << "three letters each time";
    EXPECT_LT(plain, point);
}

TEST_F(get_properties, SchemesSetColoursFontAndLayout) {
    field->BackColor(0x112233);
    field->BorderStyle(tslBorderStyleNone);
    field->TipoDato(tslTipoDatoFecha);
    field->Scheme(tslSchemeHeader_A);
    EXPECT_EQ(-1, field->BackColor());
    EXPECT_EQ("Arial", field->Font()->Name().utf8());
    EXPECT_EQ(12, field->Font()->Size().toDouble());
    EXPECT_TRUE(field->Font()->Bold());
    EXPECT_TRUE(field->UserFont());
    EXPECT_EQ(tslBorderStyleFixedSingle, field->BorderStyle());
    EXPECT_EQ(tslTipoDatoCaracter, field->TipoDato());
    form->BackColor(0x00C0FF);
    field->Scheme(tslSchemeUseAmbient);
    EXPECT_EQ(0x00C0FF, field->BackColor());
    field->Scheme(tslSchemeUseActual);
    EXPECT_EQ(0x00C0FF, field->BackColor());
    EXPECT_EQ(tslSchemeUseActual, field->Scheme());
}

TEST_F(get_properties, TheSecondHeaderIsSmaller) {
    field->Scheme(tslSchemeHeader_B);
    EXPECT_EQ("Arial", field->Font()->Name().utf8());
    EXPECT_EQ(10, field->Font()->Size().toDouble());
    EXPECT_TRUE(field->Font()->Bold());
}

TEST_F(get_properties, LiveHidesAndDisables) {
    field->Live(false);
    EXPECT_FALSE(field->Extender().Visible());
    EXPECT_FALSE(field->Enabled());
    field->Live(true);
    EXPECT_TRUE(field->Extender().Visible());
}

TEST_F(get_properties, AfterItsEndAFieldPaintsNothingAndRefusesFonts) {
    const automation::Ref<get> held(field);
    const auto font = field->Font();
    form->remove(*field);
    EXPECT_FALSE(held->Font());
    EXPECT_EQ(91, tests::errorOf([&] { held->Font(font); }));
    held->Text(u"uno");
    held->Render();
    EXPECT_EQ("uno", held->Text().utf8());
}

TEST_F(get_properties, AllMembersAreReachedByName) {
    const auto members = tests::memberNames(get::table());
    for (const char* name : {"Text", "Value", "ValorVerdadero", "Mascara", "FormatoMascara", "ValidateFecha",
                             "ValidateFltCodigos", "IsForwarding", "SetFocusIfEnabled", "PaintHGradient",
                             "AutoPaintGauge", "Change", "EVCombo", "UserDrawn"})
        EXPECT_EQ(1, std::count(members.begin(), members.end(), name)) << name;
}

TEST_F(get_properties, AFieldIsMadeWhateverTheColourTableHolds) {
    const Variant face = GlobalCtlCfg(tslCtlGlobalCfg_Btn_Face);
    GlobalCtlCfg(tslCtlGlobalCfg_Btn_Face, Variant(u"x"));
    EXPECT_EQ(0, tests::errorOf([&] { form->add<get>(u"get8"); }));
    GlobalCtlCfg(tslCtlGlobalCfg_Btn_Face, face);
}
