#include "automation/ClassTable.h"
#include "automation/Clock.h"
#include "automation/DateFunctions.h"
#include "frame/GlobalCtlCfg.h"
#include "frame/Globales.h"
#include "host/Form.h"
#include "host/Screen.h"
#include "host/Session.h"
#include "host/UserControl.h"
#include "platform/clock.h"
#include "platform/windows.h"
#include "support/Desk.h"
#include "support/Started.h"

#include <cmath>

using automation::Array;
using automation::String;
using automation::Variant;
using namespace tesela;

namespace {

class Globales_ : public support::Started {};

std::int32_t handleOf(const host::UserControl& control) {
    return static_cast<std::int32_t>(control.hWnd().value);
}

/// A control that looks at the note when the focus comes, and makes another one.
class Taker : public host::UserControl {
public:
    std::int32_t notedInside = -1;

    const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<Taker>("Taker");
        return table;
    }

protected:
    void onGotFocus() override {
        notedInside = globales().nHWndReclamar;
        NotaFocusReclamar(handleOf(*this) + 1);
    }
};

struct LocaleCase {
    const char* locale;
    const char16_t *idioma, *decimal, *thousands, *date, *time, *order, *pattern;
};

const LocaleCase localeCases[] = {
    {"es-ES", u"0c0a", u",", u".", u"/", u":", u"1", u"dd/MM/yyyy;;dd/MM/yy"},
    {"en-US", u"0409", u".", u",", u"/", u":", u"0", u"MM/dd/yyyy;;MM/dd/yy"},
    {"sv-SE", u"041d", u",", u"\u00A0", u"-", u":", u"2", u"yyyy-MM-dd;;yy-MM-dd"},
};

} // namespace

TEST_F(Globales_, StartReadsTheLocale) {
    for (const LocaleCase& expected : localeCases) {
        SCOPED_TRACE(expected.locale);
        startIn(expected.locale);
        const Globales& g = globales();
        EXPECT_EQ(String(expected.idioma).utf8(), g.cIdioma.utf8());
        EXPECT_EQ(String(expected.decimal).utf8(), g.cSepDecimal.utf8());
        EXPECT_EQ(String(expected.thousands).utf8(), g.cSepMiles.utf8());
        EXPECT_EQ(String(expected.date).utf8(), g.cSepFecha.utf8());
        EXPECT_EQ(String(expected.time).utf8(), g.cSepHora.utf8());
        EXPECT_EQ(String(expected.order).utf8(), g.cOrdenFecha.utf8());
        EXPECT_EQ(String(expected.pattern).utf8(), g.cFmtFecha.utf8());
    }
}

TEST_F(Globales_, StartGivesEachFieldItsValue) {
    Globales& g = globales();
    g.lGraphicsEffects = false;
    g.lVisualStyleAqua = g.lPocketPC = g.lEjecutandoDesdeIDE = true;
    g.nFormZoom = 150;
    g.nEventsDisabled = 3;
    g.nRegion = 1;
    g.nHWndFocus = 77;
    ProcedimientoInicio();
    EXPECT_TRUE(g.oLogFile);
    EXPECT_TRUE(g.oKeyboard);
    EXPECT_TRUE(g.lGraphicsEffects);
    EXPECT_FALSE(g.lVisualStyleAqua);
    EXPECT_FALSE(g.lPocketPC);
    EXPECT_FALSE(g.lEjecutandoDesdeIDE);
    EXPECT_EQ(100, g.nFormZoom);
    EXPECT_EQ(0, g.nEventsDisabled);
    EXPECT_EQ(0, g.nRegion);
    EXPECT_EQ("HH:mm", g.cFmtHora.utf8());
    EXPECT_EQ(0, g.nHWndFocus);
    EXPECT_EQ(-1, g.nAñoCompletar);
    const auto start = g.dInicioEjercicio.split();
    EXPECT_EQ(automation::Year(automation::Today()), start.year);
    EXPECT_EQ(1, start.month);
    EXPECT_EQ(1, start.day);
    EXPECT_EQ(0, g.dInicioEjercicio.value() - std::trunc(g.dInicioEjercicio.value()));
    EXPECT_TRUE(g.lHighColor);
    EXPECT_FALSE(g.lClickTrace);
    EXPECT_FALSE(g.lIgnoreNextCR);
}

TEST_F(Globales_, TheScalableSansSerifFontIsNotedAndTheDefaultFontStays) {
    bool installed = false;
    for (short i = 0; i < host::Screen::FontCount(); ++i)
        installed = installed || host::Screen::Fonts(i) == u"Microsoft Sans Serif";
    EXPECT_EQ(installed, globales().lSansSerifScalable);
    EXPECT_EQ("MS Sans Serif", globales().cFontDefault.utf8());
}

TEST_F(Globales_, TheScalableSansSerifFontIsFoundWhereverItStands) {
    const struct {
        std::vector<std::u16string> fonts;
        bool found;
    } systems[] = {
        {{u"Arial", u"MS Sans Serif", u"microsoft sans serif"}, false},
        {{u"Microsoft Sans Serif", u"Arial"}, true},
        {{u"Arial", u"MS Sans Serif", u"Microsoft Sans Serif"}, true},
    };
    for (const auto& system : systems) {
        host::session().fontNames = system.fonts;
        ProcedimientoInicio();
        EXPECT_EQ(system.found, globales().lSansSerifScalable);
        EXPECT_EQ("MS Sans Serif", globales().cFontDefault.utf8());
    }
    host::session().fontNames.clear(); // read again from the system
}

TEST_F(Globales_, TheFontListEndsQuietlyAtItsCount) {
    EXPECT_TRUE(host::Screen::Fonts(host::Screen::FontCount()).empty());
}

TEST_F(Globales_, EnsureInicioRunsOnlyOnce) {
    globales().nRegion = 5;
    EnsureInicio();
    EXPECT_EQ(5, globales().nRegion);
    globales().cSepDecimal = {};
    EnsureInicio();
    EXPECT_EQ(0, globales().nRegion);
    EXPECT_FALSE(globales().cSepDecimal.empty());
}

TEST_F(Globales_, ShortDatePatternsAreNormalised) {
    const struct {
        const char16_t *pattern, *expected;
    } cases[] = {
        {u"d/M/yy", u"dd/MM/yyyy;;dd/MM/yy"},
        {u"dd/MM/yyyy", u"dd/MM/yyyy;;dd/MM/yy"},
        {u"yyyy-MM-dd", u"yyyy-MM-dd;;yy-MM-dd"},
        {u"M/d/yyyy", u"MM/dd/yyyy;;MM/dd/yy"},
        {u"dddd dd MMMM yyyy", u"dd dd MM yyyy;;dd dd MM yy"},
        {u"ddd-MMM-yy", u"dd-MM-yyyy;;dd-MM-yy"},
        {u"d.M.y", u"dd.MM.yyyy;;dd.MM.yy"},
        {u"D/m/YY", u"D/m/YY;;D/m/YY"},
        {u"", u";;"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(String(each.expected).utf8(), NormalizarFmtFecha(each.pattern).utf8())
            << String(each.pattern).utf8();
}

TEST_F(Globales_, LocaleStringsOfUnknownTypesAreEmpty) {
    EXPECT_TRUE(GetLocaleString(0x0FFF).empty());
    EXPECT_EQ("lunes", GetLocaleString(platform::LOCALE_SDAYNAME1).utf8());
}

TEST_F(Globales_, ValuesAreFoundInArraysByEquality) {
    const Variant list = Array::of({Variant(std::int32_t{9}), Variant(u"b"), Variant(2.5), Variant::null()});
    EXPECT_TRUE(ValorEnArray(std::int16_t{9}, list));
    EXPECT_TRUE(ValorEnArray(2.5, list));
    EXPECT_TRUE(ValorEnArray(u"b", list));
    EXPECT_FALSE(ValorEnArray(u"B", list));
    EXPECT_FALSE(ValorEnArray(std::int32_t{10}, list));
    EXPECT_FALSE(ValorEnArray(Variant::null(), list));
    EXPECT_FALSE(ValorEnArray(std::int32_t{9}, Variant(std::int32_t{9})));
    EXPECT_FALSE(ValorEnArray(std::int32_t{9}, Array::of({})));
}

TEST_F(Globales_, TheShortClockReadsTheLocalTime) {
    const auto seconds = [] {
        platform::SYSTEMTIME now;
        platform::GetLocalTime(&now);
        const int days = now.wMonth * 31 + now.wDay;
        return ((days * 24.0 + now.wHour) * 60 + now.wMinute) * 60 + now.wSecond + now.wMilliseconds / 1000.0;
    };
    const double before = seconds(), read = TimerSegundos(), after = seconds();
    EXPECT_LE(before - 1e-6, read);
    EXPECT_LE(read, after + 1e-6);
}

TEST_F(Globales_, TheFocusIsReclaimedOnceAndOnlyByAnotherWindow) {
    EXPECT_FALSE(ReclamarFocus(1));
    NotaFocusReclamar(25);
    EXPECT_EQ(25, globales().nHWndReclamar);
    EXPECT_FALSE(ReclamarFocus(25)) << "the window that noted itself";
    EXPECT_EQ(0, globales().nHWndReclamar);
    NotaFocusReclamar(25);
    EXPECT_TRUE(ReclamarFocus(26));
    EXPECT_FALSE(ReclamarFocus(26)) << "a note serves once";
}

TEST_F(Globales_, ReclaimingGivesTheFocusToTheNotedWindow) {
    support::Desk desk;
    const auto form = automation::make<host::Form>(u"Form1");
    auto& first = form->add<Taker>(u"first");
    auto& second = form->add<Taker>(u"second");
    form->Show();
    desk.pump();
    ASSERT_EQ(first.hWnd(), platform::GetFocus());
    NotaFocusReclamar(handleOf(second));
    EXPECT_TRUE(ReclamarFocus(handleOf(first)));
    EXPECT_EQ(second.hWnd(), platform::GetFocus());
    EXPECT_EQ(handleOf(second), second.notedInside) << "the note stands until the focus has moved";
    EXPECT_EQ(0, globales().nHWndReclamar) << "what was noted while the focus moved is gone";
    EXPECT_FALSE(ReclamarFocus(handleOf(second)));
    EXPECT_EQ(second.hWnd(), platform::GetFocus());
    form->unload();
}

TEST_F(Globales_, AnOldNoteDoesNotReclaimTheFocus) {
    NotaFocusReclamar(25);
    globales().nTimerReclamar -= 0.1;
    EXPECT_FALSE(ReclamarFocus(26));
    EXPECT_EQ(0, globales().nHWndReclamar);
}

TEST_F(Globales_, ResourcesThatAreNotThereGiveNoIcon) {
    std::int32_t width = 5, height = 5;
    EXPECT_FALSE(LoadResIcon(Variant(u""), 1, width, height));
    EXPECT_EQ(0, width);
    EXPECT_EQ(0, height);
    width = 5;
    EXPECT_FALSE(LoadResIcon(std::int32_t{9999}, 1, width, height));
    EXPECT_EQ(0, width);
    EXPECT_FALSE(LoadResIcon(Variant(u"NO_SUCH_NAME"), 0, width, height));
    EXPECT_FALSE(LoadResIcon(Variant::null(), 1, width, height));
}
