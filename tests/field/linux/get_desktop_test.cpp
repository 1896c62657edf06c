// What the field has to do with the desktop: other programs in front, the size of the caret, the designer's
// dialog. The display in memory brings it about.
#include "automation/Conversions.h"
#include "field/FieldTest.h"
#include "host/Screen.h"
#include "host/Timer.h"
#include "platform/linux/headless.h"
#include "support/TemporaryFolder.h"

#include <cmath>
#include <filesystem>
#include <fstream>

using namespace tesela;
using namespace tests;

namespace {

class get_desktop : public tests::FieldTest {
protected:
    /// Another program comes to the front, and goes again.
    void goAway() {
        platform::headless::injectForegroundLoss();
        desk.pump();
    }
    void comeBack() {
        platform::headless::injectForegroundReturn();
        desk.pump();
    }

    /// Of the caret in pixels: where the desktop looks otherwise with it than without.
    static platform::SIZE caretSize() {
        const auto copy = [] {
            const platform::driver::Surface& desktop = platform::headless::desktop();
            return std::vector<std::uint8_t>(desktop.bits,
                                             desktop.bits + std::ptrdiff_t{desktop.stride} * desktop.height);
        };
        const std::ptrdiff_t stride = platform::headless::desktop().stride;
        const auto with = copy();
        platform::HideCaret({});
        const auto without = copy();
        platform::ShowCaret({});
        platform::RECT box{1 << 20, 1 << 20, -1, -1};
        for (std::ptrdiff_t i = 0; i + 3 < static_cast<std::ptrdiff_t>(with.size()); ++i) {
            if (with[static_cast<std::size_t>(i)] == without[static_cast<std::size_t>(i)]) continue;
            const auto x = static_cast<int>(i % stride / 4), y = static_cast<int>(i / stride);
            box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x),
                   std::max(box.bottom, y)};
        }
        return {box.right - box.left + 1, box.bottom - box.top + 1};
    }
};

/// The file beside which new fields ask what they shall be, in a current folder of its own.
class CreationFile {
public:
    CreationFile() : former_(std::filesystem::current_path()) {
        const std::filesystem::path folder = folder_.utf8File("here");
        std::filesystem::create_directories(folder / "C:");
        std::ofstream(folder / "C:" / "Tesela-Control-Creation-ADD-IN.LOG") << "x";
        std::filesystem::current_path(folder);
    }
    ~CreationFile() {
        std::filesystem::current_path(former_);
        std::filesystem::remove_all(folder_.utf8File("here"));
    }
    CreationFile(const CreationFile&) = delete;
    CreationFile& operator=(const CreationFile&) = delete;

private:
    support::TemporaryFolder folder_;
    std::filesystem::path former_;
};

/// A form that is being designed, whose new fields ask what they shall be.
class get_creation : public tests::FieldTest {
protected:
    get_creation() { form->UserMode(false); }

    /// A new field, when its question is answered so.
    get& created(const char16_t* name, std::u16string_view answer) {
        const CreationFile file;
        host::Timer answering;
        answering.Tick.join([&] {
            answering.Interval(0);
            title = host::Screen::ActiveForm()->Caption().utf8();
            desk.type(answer);
            desk.strikeKey(platform::VK_RETURN);
        });
        answering.Interval(20);
        return form->add<get>(name);
    }

    std::string title;
};

} // namespace

TEST_F(get_desktop, AnotherProgramInFrontKeepsTheOriginalValue) {
    field->Text(u"uno");
    enter();
    type(u"x");
    ASSERT_EQ("xuno", text());
    goAway();
    EXPECT_FALSE(field->HasFocus());
    comeBack();
    EXPECT_TRUE(field->HasFocus());
    EXPECT_EQ("uno", field->OriginalValue(false).asString().utf8());
    EXPECT_TRUE(field->ValueHasChanged(false));
    leave();
    FieldTest::press(platform::VK_SHIFT, platform::VK_TAB);
    EXPECT_EQ("xuno", field->OriginalValue(false).asString().utf8()) << "another field in between";
}

TEST_F(get_desktop, TheCaretShowsTheModeAndTheFont) {
    field->Text(u"abc");
    field->Font()->Name(u"Arial");
    enter();
    EXPECT_EQ(1, caretSize().cx) << "inserting";
    press(platform::VK_INSERT);
    EXPECT_EQ(4, caretSize().cx) << "overwriting";
    field->Font()->Name(u"Courier");
    EXPECT_EQ(8, caretSize().cx);
    press(platform::VK_INSERT);
    EXPECT_EQ(1, caretSize().cx);
}

TEST_F(get_desktop, TheCaretIsSeenWhereItIsWantedAndTheFieldCanBeEdited) {
    const auto isSeen = [] { return caretSize().cx > 0; };
    field->Text(u"abc");
    enter();
    EXPECT_TRUE(isSeen());
    field->CaretVisible(false);
    EXPECT_FALSE(isSeen());
    press(platform::VK_END);
    EXPECT_FALSE(isSeen()) << "after the next paint too";
    field->CaretVisible(true);
    EXPECT_TRUE(isSeen());
    field->EnabledGet(false);
    EXPECT_FALSE(isSeen());
    field->EnabledGet(true);
    EXPECT_TRUE(isSeen());
}

TEST_F(get_desktop, TheCaretIsGoneWhileAButtonsEventRuns) {
    field->BotonBuscar(true);
    int seen = 0;
    field->EVBuscar.join([&] { seen = caretSize().cx; });
    enter();
    EXPECT_LT(0, caretSize().cx);
    FieldTest::press(platform::VK_MENU, platform::VK_RIGHT);
    EXPECT_GT(0, seen);
    EXPECT_LT(0, caretSize().cx);
}

TEST_F(get_desktop, TheCaretIsAsHighAsALine) {
    field->Text(u"abc");
    enter();
    const int low = caretSize().cy;
    field->Font()->Size(automation::Currency(16));
    EXPECT_LT(low, caretSize().cy) << "under the focus too";
    EXPECT_GT(field->Height() / 15, caretSize().cy);
}

TEST_F(get_desktop, TheCaretKeepsWithinTheText) {
    field->AutoSize(tslAutoSize_NO);
    field->Mascara(u"XXXXXXXXXX");
    field->Text(u"0123456789");
    enter();
    press(platform::VK_HOME);
    EXPECT_EQ(8, caretSize().cx);
    field->Width(900);
    int x = 0;
    while (x < 10 && caretSize().cx == 8)
        field->SetCaretPosition(++x);
    EXPECT_GT(8, caretSize().cx) << "as wide as there is room";
    press(platform::VK_HOME);
    EXPECT_EQ(8, caretSize().cx);
}

TEST_F(get_creation, ANewFieldAsksWhatItShallBe) {
    get& number = created(u"getA", u"1,8,\"12\"");
    EXPECT_EQ("¿Qué tipo de GET debe crearse?", title);
    EXPECT_EQ(tslTipoDatoNumero, number.TipoDato());
    EXPECT_EQ("Verdana", number.Font()->Name().utf8());
    EXPECT_EQ(8, number.Font()->Size().toDouble());
    EXPECT_EQ("##,###,##0", number.Mascara().utf8());
    EXPECT_EQ("12", number.Text().utf8());
}

TEST_F(get_creation, ANewFieldMayBeAText) {
    get& text = created(u"getA", u"0,20,\"hola\"");
    EXPECT_EQ(tslTipoDatoCaracter, text.TipoDato());
    EXPECT_EQ(20, text.MaxLength());
    EXPECT_EQ("hola", text.Text().utf8());
    EXPECT_EQ("MS Sans Serif", text.Font()->Name().utf8());
}

TEST_F(get_creation, ANewFieldMayBeADate) {
    get& date = created(u"getA", u"2");
    EXPECT_EQ(tslTipoDatoFecha, date.TipoDato());
    EXPECT_EQ("Courier", date.Font()->Name().utf8());
    EXPECT_EQ(10, date.Font()->Size().toDouble());
    EXPECT_EQ("  /  /    ", date.Text().utf8());
    EXPECT_EQ(10, date.MaxLength());
    EXPECT_EQ(tslAutoSize_XY, date.AutoSize());
}

TEST_F(get_creation, ANewFieldMayBeAnHour) {
    get& hour = created(u"getA", u"H");
    EXPECT_EQ("##:##", hour.Mascara().utf8());
    EXPECT_EQ("Courier", hour.Font()->Name().utf8());
    EXPECT_EQ("  :  ", hour.Text().utf8());
    EXPECT_EQ(5, hour.MaxLength());
    EXPECT_EQ(tslAutoSize_XY, hour.AutoSize());
}

TEST_F(get_creation, AnAnswerThatIsNoneLeavesAPlainField) {
    for (const auto* answer : {u"", u"1,99999999999", u"x,y,z"}) {
        get& plain = created(u"getA", answer);
        EXPECT_EQ(tslTipoDatoCaracter, plain.TipoDato());
        plain.Text(u"uno");
        EXPECT_EQ("uno", plain.Text().utf8());
        form->remove(plain);
    }
}

TEST_F(get_desktop, AFailedValidationIsNotedToTheNearestSecond) {
    const double now = TimerSegundos();
    const double second = std::floor(now) + 1;
    const auto milliseconds = static_cast<platform::DWORD>(std::lround((second - now) * 1000));
    platform::headless::advanceClock(milliseconds + 400);
    field->RegisterValidate(1);
    field->UnRegisterValidate();
    EXPECT_EQ(std::nearbyint(TimerSegundos() - 0.4), globales().nValidateTimer) << "down";
    platform::headless::advanceClock(200);
    field->RegisterValidate(1);
    field->UnRegisterValidate();
    EXPECT_EQ(std::nearbyint(TimerSegundos() + 0.4), globales().nValidateTimer) << "up";
}
