#include "HostTest.h"

#include "host/App.h"
#include "host/Clipboard.h"
#include "host/Screen.h"
#include "platform/processes.h"

namespace host {

class SurroundingsTest : public HostTest {};

TEST_F(SurroundingsTest, ScreenCountsItsFontsAndNamesThemFromZero) {
    const short count = Screen::FontCount();
    ASSERT_GT(count, 0);
    for (short i = 0; i < count; ++i)
        EXPECT_FALSE(Screen::Fonts(i).empty()) << i;
    EXPECT_EQ(Screen::Fonts(count), u"");
    EXPECT_EQ(Screen::Fonts(-1), u"");
}

TEST_F(SurroundingsTest, ScreenMeasuresItselfInTwips) {
    EXPECT_EQ(Screen::Width(), platform::GetSystemMetrics(platform::SM_CXSCREEN) * 15);
    EXPECT_EQ(Screen::Height(), platform::GetSystemMetrics(platform::SM_CYSCREEN) * 15);
}

TEST_F(SurroundingsTest, ScreenKnowsTheActiveFormAndControl) {
    EXPECT_EQ(Screen::ActiveForm(), nullptr);
    EXPECT_EQ(Screen::ActiveControl(), nullptr);
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    show(*form);
    EXPECT_EQ(Screen::ActiveForm(), form.get());
    EXPECT_EQ(Screen::ActiveControl(), &control);
}

TEST_F(SurroundingsTest, ThePointerIsTheControlsUnlessTheProgramHasOne) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    control.MousePointer(MousePointer::IBeam);
    show(*form);
    desk.moveMouse(middle(control.hWnd()));
    desk.pump();
    EXPECT_EQ(platform::GetCursor(), platform::LoadCursorA({}, platform::IDC_IBEAM));
    Screen::MousePointer(MousePointer::Hourglass);
    desk.moveMouse({middle(control.hWnd()).x + 1, middle(control.hWnd()).y});
    desk.pump();
    EXPECT_EQ(platform::GetCursor(), platform::LoadCursorA({}, platform::IDC_WAIT));
    Screen::MousePointer(MousePointer::Default);
}

TEST_F(SurroundingsTest, AppTellsFolderAndNameOfTheProgram) {
    const std::u16string file = platform::modulePath({});
    EXPECT_EQ(App::EXEName(), u"tests_host");
    EXPECT_EQ(file.find(App::Path().string()), 0u);
    EXPECT_EQ(App::Path().string().find_last_of(u"\\/"),
              file.find_last_of(u"\\/", file.find_last_of(u"\\/") - 1));
    EXPECT_EQ(App::Title(), u"tests_host");
    EXPECT_EQ(App::hInstance(), platform::moduleInstance());
}

TEST_F(SurroundingsTest, TheClipboardHoldsText) {
    Clipboard::SetText(u"Año €");
    EXPECT_TRUE(Clipboard::GetFormat(ClipboardFormat::Text));
    EXPECT_FALSE(Clipboard::GetFormat(ClipboardFormat::Bitmap));
    EXPECT_EQ(Clipboard::GetText(), u"Año €");
    Clipboard::Clear();
    EXPECT_FALSE(Clipboard::GetFormat(ClipboardFormat::Text));
    EXPECT_EQ(Clipboard::GetText(), u"");
}

} // namespace host
