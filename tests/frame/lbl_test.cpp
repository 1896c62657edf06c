#include "automation/ClassTable.h"
#include "automation/Conversions.h"
#include "automation/LateBound.h"
#include "data/cFecha.h"
#include "frame/lbl.h"
#include "host/Form.h"
#include "host/MessageLoop.h"
#include "host/PictureBox.h"
#include "support/Desk.h"
#include "support/ErrorOf.h"
#include "support/MemberNames.h"
#include "support/MsgBoxAnswer.h"
#include "support/Started.h"

using automation::Date;
using automation::Variant;
using namespace tesela;

namespace {

constexpr auto ownType = static_cast<tslDataFormatConstants>(-1);
constexpr host::OLE_COLOR defaultBackColor = static_cast<host::OLE_COLOR>(0x8000000Fu);
constexpr host::OLE_COLOR defaultForeColor = static_cast<host::OLE_COLOR>(0x80000008u);

/// A form with one label, `label`, at 300, 300 twips.
class lbl_ : public support::Started {
protected:
    lbl_() {
        form = automation::make<host::Form>(u"Form1");
        form->Move(0, 0, 6000, 4500);
        label = &form->add<lbl>(u"lbl1");
        label->Extender().Move(300, 300, 1500, 450);
    }
    ~lbl_() override { form->unload(); }

    /// Clicks a label near its top left corner.
    void click(const lbl& target) {
        platform::POINT corner{5, 5};
        platform::ClientToScreen(target.hWnd(), &corner);
        desk.click(corner);
        desk.pump();
    }

    support::Desk desk;
    automation::Ref<host::Form> form;
    lbl* label = nullptr;
};

/// The values of all persisted properties as they stand.
host::PropertyBag saved(lbl& label) {
    host::PropertyBag bag;
    label.writeProperties(bag);
    return bag;
}

std::vector<std::string> names(const host::PropertyBag& bag) {
    std::vector<std::string> result;
    for (const auto& item : bag.items())
        result.push_back(item.first.utf8());
    return result;
}

} // namespace

TEST_F(lbl_, ANewLabelShowsItsNameInTheAmbientColours) {
    EXPECT_EQ("lbl1", label->Caption().utf8());
    EXPECT_EQ(label->Ambient().BackColor(), label->BackColor());
    EXPECT_EQ(label->Ambient().ForeColor(), label->ForeColor());
    EXPECT_TRUE(label->Enabled());
    EXPECT_TRUE(label->lInternalPreEnabled);
    EXPECT_EQ(tslTipoDatoCaracter, label->TipoDato());
    EXPECT_EQ(tslSchemeUseDefault, label->Scheme());
    EXPECT_EQ(tslautoSize_X, label->AutoSize());
    EXPECT_EQ(tslBackStyleOpaque, label->BackStyle());
    EXPECT_EQ(tslBorderStyleNone, label->BorderStyle());
    EXPECT_EQ(tslAlignmentLeftJustify, label->Alignment());
    EXPECT_TRUE(label->ToolTip().empty());
    EXPECT_EQ("MS Sans Serif", label->Font()->Name().utf8());
    EXPECT_EQ(8, label->Font()->Size().toDouble());
    EXPECT_FALSE(label->Font()->Bold());
}

TEST_F(lbl_, LiveReadsFalseUntilItIsWritten) {
    EXPECT_FALSE(label->Live());
    EXPECT_TRUE(label->Extender().Visible());
    label->Live(true);
    EXPECT_TRUE(label->Live());
    label->Live(false);
    EXPECT_FALSE(label->Live());
    EXPECT_FALSE(label->Extender().Visible());
    EXPECT_FALSE(label->Enabled());
    label->Live(true);
    EXPECT_TRUE(label->Extender().Visible());
    EXPECT_TRUE(label->Enabled());
    label->lInternalPreEnabled = false;
    label->Live(true);
    EXPECT_FALSE(label->lInternalPreEnabled) << "that is Enabled's";
}

TEST_F(lbl_, EnabledIsKeptForTheApplication) {
    label->Enabled(false);
    EXPECT_FALSE(label->lInternalPreEnabled);
    EXPECT_FALSE(label->Enabled());
    label->lInternalPreEnabled = true;
    EXPECT_FALSE(label->Enabled()) << "the library only stores it";
}

TEST_F(lbl_, RightAndBottomMoveTheLabelAndKeepItsSize) {
    label->AutoSize(tslAutoSize_NO);
    label->Extender().Move(300, 300, 1500, 450);
    EXPECT_EQ(1799, label->RightPos());
    EXPECT_EQ(749, label->BottomPos());
    label->RightPos(2999);
    EXPECT_EQ(1500, label->Extender().Left());
    EXPECT_EQ(1500, label->Extender().Width());
    label->RightPos(2999);
    EXPECT_EQ(1500, label->Extender().Left()) << "the same value again leaves it in place";
    label->BottomPos(1499);
    EXPECT_EQ(1050, label->Extender().Top());
    EXPECT_EQ(450, label->Extender().Height());
}

TEST_F(lbl_, WithAutoSizeTheControlTakesTheSizeOfItsText) {
    label->Caption(u"Corto");
    const float narrow = label->Extender().Width();
    label->Caption(u"Un texto bastante más largo");
    EXPECT_GT(label->Extender().Width(), narrow);
    EXPECT_EQ(195, label->Extender().Height()) << "one line of 13 pixels";
    label->Caption(u"Corto");
    EXPECT_EQ(narrow, label->Extender().Width());
}

TEST_F(lbl_, WithoutAutoSizeTheSizeStays) {
    label->AutoSize(tslAutoSize_NO);
    label->Extender().Move(300, 300, 450, 195);
    label->Caption(u"Un texto que no cabe en tan poco sitio");
    EXPECT_EQ(450, label->Extender().Width());
    EXPECT_EQ(195, label->Extender().Height());
    EXPECT_EQ(tslAutoSize_NO, label->AutoSize());
}

TEST_F(lbl_, AutoSize2WrapsAndTakesTheHeight) {
    label->AutoSize(tslAutoSize_NO);
    label->Extender().Move(300, 300, 900, 195);
    label->Caption(u"Un texto que ocupa varias líneas de poco ancho");
    label->AutoSize(tslAutoSize_Y);
    EXPECT_EQ(tslAutoSize_Y, label->AutoSize());
    EXPECT_EQ(900, label->Extender().Width());
    EXPECT_GE(label->Extender().Height(), 3 * 195);
}

TEST_F(lbl_, AutoSize3BecomesOneWithoutAWordAtRunTime) {
    support::MsgBoxAnswer answer(desk, platform::VK_RETURN);
    label->AutoSize(tslAutoSize_XY);
    EXPECT_EQ(0, answer.shown());
    EXPECT_EQ(tslautoSize_X, label->AutoSize());
}

TEST_F(lbl_, AutoSize3SaysSoWhileTheFormIsDesigned) {
    form->UserMode(false);
    support::MsgBoxAnswer answer(desk, platform::VK_RETURN);
    label->AutoSize(tslAutoSize_XY);
    EXPECT_EQ(1, answer.shown());
    EXPECT_EQ("Error en el programa: valor de propiedad inválido", answer.title().utf8());
    EXPECT_EQ("La propiedad AutoSize del control LBL no puede tener el valor 'tslAutoSize_XY'.\r\n"
              "Se ajustará automáticamente a 'tslautoSize_X'.",
              answer.text().utf8());
    EXPECT_EQ(tslautoSize_X, label->AutoSize());
}

TEST_F(lbl_, ATransparentLabelIsTransparentInItsControlToo) {
    label->BackStyle(tslBackStyleTransparent);
    EXPECT_EQ(tslBackStyleTransparent, label->BackStyle());
    EXPECT_EQ(host::BackStyle::Transparent, static_cast<host::UserControl&>(*label).BackStyle());
    label->BackStyle(tslBackStyleOpaque);
    EXPECT_EQ(host::BackStyle::Opaque, static_cast<host::UserControl&>(*label).BackStyle());
}

TEST_F(lbl_, TheFontIsCopiedNotTaken) {
    const auto mine = automation::make<host::StdFont>();
    mine->Name(u"Arial");
    mine->Size(automation::Currency(12));
    mine->Bold(true);
    const auto own = label->Font();
    label->Font(mine);
    EXPECT_EQ(own.get(), label->Font().get());
    EXPECT_NE(mine.get(), label->Font().get());
    EXPECT_TRUE(label->Font()->equals(*mine));
    mine->Size(automation::Currency(20));
    EXPECT_EQ(12, label->Font()->Size().toDouble());
}

TEST_F(lbl_, AChangeOfTheOwnFontFitsTheControl) {
    label->Caption(u"Texto");
    const float height = label->Extender().Height();
    label->Font()->Size(automation::Currency(18));
    EXPECT_GT(label->Extender().Height(), height);
}

TEST_F(lbl_, SchemesSetColoursFontAndLayout) {
    const struct {
        tslSchemeConstants scheme;
        const char* font;
        double size;
        bool bold;
    } cases[] = {{tslSchemeUseDefault, "MS Sans Serif", 8, false},
                 {tslSchemeHeader_A, "Arial", 12, true},
                 {tslSchemeHeader_B, "Arial", 10, true}};
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.scheme);
        label->BackColor(0x112233);
        label->ForeColor(0x445566);
        label->TipoDato(tslTipoDatoFecha);
        label->BackStyle(tslBackStyleTransparent);
        label->BorderStyle(tslBorderStyleFixedSingle);
        label->Alignment(tslAlignmentCenter);
        label->AutoSize(tslAutoSize_NO);
        label->Font()->Italic(true);
        label->Font()->Underline(true);
        label->Font()->Strikethrough(true);
        label->Scheme(expected.scheme);
        EXPECT_EQ(defaultBackColor, label->BackColor());
        EXPECT_EQ(defaultForeColor, label->ForeColor());
        EXPECT_EQ(expected.font, label->Font()->Name().utf8());
        EXPECT_EQ(expected.size, label->Font()->Size().toDouble());
        EXPECT_EQ(expected.bold, label->Font()->Bold());
        EXPECT_FALSE(label->Font()->Italic());
        EXPECT_FALSE(label->Font()->Underline());
        EXPECT_FALSE(label->Font()->Strikethrough());
        EXPECT_EQ(tslTipoDatoCaracter, label->TipoDato());
        EXPECT_EQ(tslBackStyleOpaque, label->BackStyle());
        EXPECT_EQ(tslBorderStyleNone, label->BorderStyle());
        EXPECT_EQ(tslAlignmentLeftJustify, label->Alignment());
        EXPECT_EQ(tslautoSize_X, label->AutoSize());
        EXPECT_EQ(expected.scheme, label->Scheme());
    }
}

TEST_F(lbl_, TheAmbientSchemeTakesTheContainersColoursAndFont) {
    form->BackColor(0x00C0FF);
    form->ForeColor(0x800000);
    form->Font()->Size(automation::Currency(14));
    label->Scheme(tslSchemeUseAmbient);
    EXPECT_EQ(0x00C0FF, label->BackColor());
    EXPECT_EQ(0x800000, label->ForeColor());
    EXPECT_TRUE(label->Font()->equals(*form->Font()));
    EXPECT_EQ(tslSchemeUseAmbient, label->Scheme());
}

TEST_F(lbl_, Scheme0ChangesNothingAndIsSaved) {
    label->BackColor(0x112233);
    label->Font()->Name(u"Arial");
    label->BorderStyle(tslBorderStyleFixedSingle);
    label->Scheme(tslSchemeUseActual);
    EXPECT_EQ(0x112233, label->BackColor());
    EXPECT_EQ("Arial", label->Font()->Name().utf8());
    EXPECT_EQ(tslBorderStyleFixedSingle, label->BorderStyle());
    EXPECT_EQ(0, saved(*label).ReadProperty(u"Scheme").asLong());
}

TEST_F(lbl_, TheValueComesInTheTypeAskedFor) {
    label->Caption(u"12,5");
    EXPECT_EQ("12,5", label->ValorVerdadero().asString().utf8());
    auto format = tslDataFormatNumero;
    EXPECT_EQ(12.5, label->ValorVerdadero(format).asDouble());
    label->Caption(u"29/02/2024");
    format = tslDataFormatFecha;
    EXPECT_EQ(Date::join(2024, 2, 29), label->ValorVerdadero(format).asDate());
    format = tslDataFormatHora;
    EXPECT_EQ(Date::join(2024, 2, 29), label->ValorVerdadero(format).asDate());
    label->Caption(u"10:30");
    EXPECT_EQ(Date(10.5 / 24), label->ValorVerdadero(format).asDate());
    format = static_cast<tslDataFormatConstants>(4);
    EXPECT_FALSE(label->ValorVerdadero(format).asBoolean());
    format = static_cast<tslDataFormatConstants>(-2);
    EXPECT_FALSE(label->ValorVerdadero(format).asBoolean());
}

TEST_F(lbl_, TextThatIsNoNumberIsTheInteger0) {
    label->Caption(u"abc");
    label->TipoDato(tslTipoDatoNumero);
    const Variant value = label->ValorVerdadero();
    EXPECT_EQ(automation::VT_I2, value.type());
    EXPECT_EQ(0, value.asInteger());
}

TEST_F(lbl_, TextThatIsNoDateIsAnObjectOnTheEmptyDate) {
    label->Caption({});
    label->TipoDato(tslTipoDatoFecha);
    auto format = ownType;
    const Variant value = label->ValorVerdadero(format);
    EXPECT_EQ(tslDataFormatFecha, format) << "the caller's variable receives the type";
    ASSERT_TRUE(value.isObject());
    EXPECT_EQ(-53688.0, automation::value(value).asDate().value());
    format = tslDataFormatHora;
    EXPECT_EQ(-53688.0, label->ValorVerdadero(format).asDate().value()) << "a plain date for the hour format";
}

TEST_F(lbl_, TheTypeOfTheOwnDatumStandsForMinus1) {
    label->Caption(u"7");
    for (const auto type : {tslTipoDatoCaracter, tslTipoDatoNumero}) {
        label->TipoDato(type);
        auto format = ownType;
        label->ValorVerdadero(format);
        EXPECT_EQ(static_cast<int>(type), static_cast<int>(format));
    }
}

TEST_F(lbl_, PersistedNamesStandInTheirOrder) {
    label->Scheme(tslSchemeUseActual);
    label->Alias(u"a");
    label->Campo(u"c");
    label->TipoDato(tslTipoDatoNumero);
    label->Enabled(false);
    label->Caption(u"x");
    label->ToolTip(u"t");
    label->BackColor(1);
    label->ForeColor(2);
    label->BackStyle(tslBackStyleTransparent);
    label->BorderStyle(tslBorderStyleFixedSingle);
    label->Font()->Bold(true);
    label->Alignment(tslAlignmentCenter);
    label->AutoSize(tslAutoSize_NO);
    const std::vector<std::string> expected{"Scheme",      "Alias",   "Campo",     "TipoDato",  "Enabled",
                                            "Caption",     "ToolTip", "BackColor", "ForeColor", "BackStyle",
                                            "BorderStyle", "Font",    "Alignment", "AutoSize"};
    EXPECT_EQ(expected, names(saved(*label)));
}

TEST_F(lbl_, DefaultsCostNoStorage) {
    label->Caption(u"Texto a mostrar");
    label->BackColor(defaultBackColor);
    label->ForeColor(defaultForeColor);
    label->Font(label->Ambient().Font());
    EXPECT_TRUE(names(saved(*label)).empty()) << testing::PrintToString(names(saved(*label)));
}

TEST_F(lbl_, AnEmptyBagGivesTheDefaults) {
    host::PropertyBag empty;
    label->Scheme(tslSchemeHeader_A);
    label->Enabled(false);
    label->readProperties(empty);
    EXPECT_EQ("Texto a mostrar", label->Caption().utf8());
    EXPECT_EQ(tslSchemeUseDefault, label->Scheme());
    EXPECT_TRUE(label->Enabled());
    EXPECT_EQ(defaultBackColor, label->BackColor());
    EXPECT_EQ(defaultForeColor, label->ForeColor());
    EXPECT_TRUE(label->Font()->equals(*label->Ambient().Font()));
    EXPECT_EQ(tslautoSize_X, label->AutoSize());
}

TEST_F(lbl_, EveryPropertyComesBackFromItsBag) {
    label->Scheme(tslSchemeHeader_B);
    label->Alias(u"clientes");
    label->Campo(u"nombre");
    label->TipoDato(tslTipoDatoFecha);
    label->Enabled(false);
    label->Caption(u"Ñandú & Cía.");
    label->ToolTip(u"ayuda");
    label->BackColor(0x123456);
    label->ForeColor(0x654321);
    label->BackStyle(tslBackStyleTransparent);
    label->BorderStyle(tslBorderStyleFixedSingle);
    label->Font()->Name(u"Courier New");
    label->Font()->Italic(true);
    label->Alignment(tslAlignmentRightJustify);
    label->AutoSize(tslAutoSize_NO);
    host::PropertyBag bag = saved(*label);
    lbl& other = form->add<lbl>(u"lbl2");
    other.readProperties(bag);
    EXPECT_EQ(tslSchemeHeader_B, other.Scheme());
    EXPECT_EQ("clientes", other.Alias().utf8());
    EXPECT_EQ("nombre", other.Campo().utf8());
    EXPECT_EQ(tslTipoDatoFecha, other.TipoDato());
    EXPECT_FALSE(other.Enabled());
    EXPECT_EQ("Ñandú & Cía.", other.Caption().utf8());
    EXPECT_EQ("ayuda", other.ToolTip().utf8());
    EXPECT_EQ(0x123456, other.BackColor());
    EXPECT_EQ(0x654321, other.ForeColor());
    EXPECT_EQ(tslBackStyleTransparent, other.BackStyle());
    EXPECT_EQ(tslBorderStyleFixedSingle, other.BorderStyle());
    EXPECT_TRUE(other.Font()->equals(*label->Font()));
    EXPECT_EQ(tslAlignmentRightJustify, other.Alignment());
    EXPECT_EQ(tslAutoSize_NO, other.AutoSize());
    EXPECT_FALSE(other.Live());
}

TEST_F(lbl_, AWrongValueInTheBagIsSkippedAndTheNextIsRead) {
    host::PropertyBag bag;
    bag.WriteProperty(u"TipoDato", Variant(u"fecha"));
    bag.WriteProperty(u"Enabled", Variant(u"quizás"));
    bag.WriteProperty(u"BackColor", Variant::null());
    bag.WriteProperty(u"Font", Variant(std::int32_t{5}));
    bag.WriteProperty(u"Alignment", Variant(std::int32_t{tslAlignmentCenter}));
    label->Enabled(false);
    label->BackColor(0x112233);
    label->readProperties(bag);
    EXPECT_EQ(tslTipoDatoCaracter, label->TipoDato());
    EXPECT_FALSE(label->Enabled());
    EXPECT_EQ(defaultBackColor, label->BackColor()) << "as the scheme, which is read first, left it";
    EXPECT_EQ("MS Sans Serif", label->Font()->Name().utf8());
    EXPECT_EQ(8, label->Font()->Size().toDouble());
    EXPECT_EQ(tslAlignmentCenter, label->Alignment());
}

TEST_F(lbl_, ANumberOutsideOfAnEnumerationIsRefused) {
    const auto refused = [this](auto write) { return tests::errorOf([&] { write(*label); }); };
    label->BackStyle(tslBackStyleTransparent);
    EXPECT_EQ(380, refused([](lbl& l) { l.BackStyle(static_cast<tslBackStyleConstants>(2)); }));
    EXPECT_EQ(tslBackStyleTransparent, label->BackStyle());
    EXPECT_EQ(host::BackStyle::Transparent, static_cast<host::UserControl&>(*label).BackStyle());
    EXPECT_EQ(380, refused([](lbl& l) { l.BorderStyle(static_cast<tslBorderStyleConstants>(-1)); }));
    EXPECT_EQ(tslBorderStyleNone, label->BorderStyle());
    EXPECT_EQ(380, refused([](lbl& l) { l.Alignment(static_cast<tslAlignmentConstants>(3)); }));
    EXPECT_EQ(tslAlignmentLeftJustify, label->Alignment());
}

TEST_F(lbl_, ANumberOutsideOfAnEnumerationInTheBagIsSkipped) {
    host::PropertyBag bag;
    bag.WriteProperty(u"BackStyle", Variant(std::int32_t{7}));
    bag.WriteProperty(u"BorderStyle", Variant(std::int32_t{tslBorderStyleFixedSingle}));
    bag.WriteProperty(u"Alignment", Variant(std::int32_t{9}));
    bag.WriteProperty(u"AutoSize", Variant(std::int32_t{tslAutoSize_NO}));
    label->readProperties(bag);
    EXPECT_EQ(tslBackStyleOpaque, label->BackStyle());
    EXPECT_EQ(tslBorderStyleFixedSingle, label->BorderStyle());
    EXPECT_EQ(tslAlignmentLeftJustify, label->Alignment());
    EXPECT_EQ(tslAutoSize_NO, label->AutoSize());
}

TEST(lbl_alone, StartsTheLibrary) {
    ProcedimientoInicio();
    globales().cSepDecimal = {};
    globales().nFormZoom = 0;
    automation::make<lbl>();
    EXPECT_FALSE(globales().cSepDecimal.empty());
    EXPECT_EQ(100, globales().nFormZoom);
}

TEST(lbl_alone, HasItsFontBeforeItStandsOnAForm) {
    EnsureInicio();
    const auto alone = automation::make<lbl>();
    const auto mine = automation::make<host::StdFont>();
    mine->Name(u"Arial");
    alone->Font(mine);
    EXPECT_EQ("Arial", alone->Font()->Name().utf8());
    alone->Scheme(tslSchemeHeader_A);
    EXPECT_EQ(12, alone->Font()->Size().toDouble());
    EXPECT_EQ(defaultBackColor, alone->BackColor());
    alone->Scheme(tslSchemeUseAmbient);
    alone->Scheme(tslSchemeUseDefault);
    EXPECT_FALSE(alone->Font()->Bold());
}

TEST_F(lbl_, AfterItsEndWritingTheFontIsAnError) {
    const automation::Ref<lbl> held(label);
    const auto font = label->Font();
    form->remove(*label);
    EXPECT_FALSE(held->Font());
    EXPECT_EQ(91, tests::errorOf([&] { held->Font(font); }));
    for (const auto scheme : {tslSchemeUseAmbient, tslSchemeUseDefault, tslSchemeHeader_A, tslSchemeHeader_B})
        EXPECT_EQ(91, tests::errorOf([&] { held->Scheme(scheme); })) << scheme;
    font->Size(automation::Currency(20)); // nobody listens any more
    held->Scheme(tslSchemeUseActual);
    EXPECT_EQ(tslSchemeUseActual, held->Scheme());
}

TEST_F(lbl_, AnArrayOfLabelsGrows) {
    lbl& first = form->add<lbl>(u"lblDato", 0);
    first.Caption(u"Ñandú");
    first.AutoSize(tslAutoSize_NO);
    first.Extender().Move(600, 900, 1800, 300);
    auto& made = dynamic_cast<lbl&>(form->array(u"lblDato").Load(1));
    EXPECT_EQ("Ñandú", made.Caption().utf8());
    EXPECT_EQ(tslAutoSize_NO, made.AutoSize());
    EXPECT_EQ(first.bounds(), made.bounds());
    EXPECT_FALSE(made.Extender().Visible());
}

TEST_F(lbl_, TheGateCountsAndNeverGoesBelowOpen) {
    label->EventsEnabled(true);
    EXPECT_EQ(0, globales().nEventsDisabled);
    label->EventsEnabled(false);
    EXPECT_EQ(1, globales().nEventsDisabled);
    label->EventsEnabled(false);
    label->EventsEnabled(true);
    EXPECT_EQ(1, globales().nEventsDisabled) << "calls nest";
    label->EventsEnabled(true);
    EXPECT_EQ(0, globales().nEventsDisabled);
}

TEST_F(lbl_, AClickIsRaisedWithTheGateOpenOnly) {
    form->Show();
    host::DoEvents();
    int clicks = 0, inside = -1;
    label->Click.join([&] {
        ++clicks;
        inside = label->UncompletedEvents();
    });
    click(*label);
    EXPECT_EQ(1, clicks);
    EXPECT_EQ(1, inside);
    EXPECT_EQ(0, label->UncompletedEvents());
    lbl& other = form->add<lbl>(u"lbl2");
    other.EventsEnabled(false);
    click(*label);
    EXPECT_EQ(1, clicks) << "one control's call closes the gate of all";
    EXPECT_EQ(0, label->UncompletedEvents());
    other.EventsEnabled(true);
    click(*label);
    EXPECT_EQ(2, clicks);
}

TEST_F(lbl_, TheFocusPassesLabelsBy) {
    auto& before = form->add<host::PictureBox>(u"before");
    form->add<lbl>(u"between");
    auto& after = form->add<host::PictureBox>(u"after");
    for (auto* box : {&before, &after})
        box->Extender().Move(3000, box == &before ? 300.0F : 1500.0F, 600, 600);
    form->Show();
    desk.pump();
    EXPECT_EQ(&before, form->ActiveControl()) << "the first label of the Tab order is none";
    desk.strikeKey(platform::VK_TAB);
    desk.pump();
    EXPECT_EQ(&after, form->ActiveControl());
    click(*label);
    EXPECT_EQ(&after, form->ActiveControl());
    EXPECT_EQ(after.hWnd(), platform::GetFocus());
    EXPECT_EQ(5, tests::errorOf([this] { label->Extender().SetFocus(); }));
}

TEST_F(lbl_, TheLabelMayBeRemovedInItsOwnClick) {
    form->Show();
    host::DoEvents();
    label->Click.join([&] { form->remove(*label); });
    click(*label);
    EXPECT_EQ(nullptr, form->find(u"lbl1"));
}

TEST_F(lbl_, AnswersByNameWithTheCaptionAsDefault) {
    automation::letProperty(*label, u"caption", Variant(u"uno"));
    EXPECT_EQ("uno", automation::value(Variant(static_cast<automation::Object*>(label))).asString().utf8());
    Variant format(std::int32_t{-1});
    label->TipoDato(tslTipoDatoNumero);
    automation::callMethod(*label, u"ValorVerdadero", Variant::byRef(format));
    EXPECT_EQ(1, format.asLong());
    EXPECT_EQ("uno",
              automation::getProperty(*label, u"ValorVerdadero", Variant(std::int32_t{0})).asString().utf8());
    automation::callMethod(*label, u"UserControl_InitProperties");
    EXPECT_EQ("lbl1", label->Caption().utf8());
}

TEST_F(lbl_, TheInterfaceStandsInItsOrder) {
    const std::vector<std::string> order{"lInternalPreEnabled",
                                         "UserControl_InitProperties",
                                         "hWND",
                                         "RightPos",
                                         "BottomPos",
                                         "Enabled",
                                         "Live",
                                         "Alias",
                                         "Campo",
                                         "TipoDato",
                                         "Caption",
                                         "ValorVerdadero",
                                         "ToolTip",
                                         "BackColor",
                                         "ForeColor",
                                         "BackStyle",
                                         "BorderStyle",
                                         "Font",
                                         "Alignment",
                                         "AutoSize",
                                         "Refresh",
                                         "Scheme",
                                         "UncompletedEvents",
                                         "EventsEnabled",
                                         "Click"};
    EXPECT_EQ(order, tests::memberNames(lbl::table()));
}
