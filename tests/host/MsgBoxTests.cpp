#include "HostTest.h"

#include "host/App.h"
#include "host/DialogEdit.h"
#include "host/InputBox.h"
#include "host/MessageForm.h"
#include "host/MsgBox.h"
#include "host/Screen.h"
#include "platform/locale.h"

namespace host {

class MsgBoxTest : public HostTest {
protected:
    MsgBoxTest() { platform::overrideUserLocale("es-ES"); }
    ~MsgBoxTest() override { platform::overrideUserLocale(""); }

    /// Answers the next box with keys.
    void answer(std::vector<int> keys, int modifier = 0) {
        later([this, keys = std::move(keys), modifier] {
            if (modifier) desk.pressKey(modifier);
            for (const int each : keys)
                desk.strikeKey(each);
            if (modifier) desk.releaseKey(modifier);
        });
    }
    static std::vector<std::string> captions() {
        std::vector<std::string> list;
        for (Control* control : Screen::ActiveForm()->controls()) {
            if (auto* button = dynamic_cast<DialogButton*>(control)) list.push_back(button->Caption().utf8());
        }
        return list;
    }
};

TEST_F(MsgBoxTest, EnterAnswersTheDefaultButton) {
    answer({platform::VK_RETURN});
    EXPECT_EQ(MsgBox(u"Hola"), MsgBoxResult::Ok);
    answer({platform::VK_RETURN});
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::YesNoCancel | MsgBoxStyle::DefaultButton2), MsgBoxResult::No);
    answer({platform::VK_RETURN});
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::YesNoCancel | MsgBoxStyle::DefaultButton3), MsgBoxResult::Cancel);
}

TEST_F(MsgBoxTest, EscAnswersCancelWhereThereIsSuchAButtonAndOkAlone) {
    answer({platform::VK_ESCAPE});
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::OkCancel), MsgBoxResult::Cancel);
    answer({platform::VK_ESCAPE});
    EXPECT_EQ(MsgBox(u"¿?"), MsgBoxResult::Ok);
    answer({platform::VK_ESCAPE, 'N'});
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::YesNo), MsgBoxResult::No) << "Esc has no answer here";
}

TEST_F(MsgBoxTest, LettersAnswerWithAndWithoutAlt) {
    answer({'R'});
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::AbortRetryIgnore), MsgBoxResult::Retry);
    answer({'O'}, platform::VK_MENU);
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::AbortRetryIgnore), MsgBoxResult::Ignore);
    answer({'S'});
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::YesNo | MsgBoxStyle::DefaultButton2), MsgBoxResult::Yes);
}

TEST_F(MsgBoxTest, TabAndArrowsChooseAndSpaceAnswers) {
    answer({platform::VK_TAB, platform::VK_SPACE});
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::YesNoCancel), MsgBoxResult::No);
    answer({platform::VK_LEFT, platform::VK_RETURN});
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::YesNoCancel), MsgBoxResult::Cancel);
}

TEST_F(MsgBoxTest, TheMouseAnswers) {
    later([this] {
        auto* button = dynamic_cast<UserControl*>(Screen::ActiveForm()->find(u"Button", 1));
        desk.click(middle(button->hWnd()));
    });
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::RetryCancel), MsgBoxResult::Cancel);
}

TEST_F(MsgBoxTest, TheCloseBoxCancelsOrDoesNothing) {
    later([] { platform::PostMessageA(Screen::ActiveForm()->hWnd(), platform::WM_CLOSE, 0, 0); });
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::RetryCancel), MsgBoxResult::Cancel);
    later([this] {
        platform::SendMessageA(Screen::ActiveForm()->hWnd(), platform::WM_CLOSE, 0, 0);
        EXPECT_TRUE(Screen::ActiveForm()->Visible());
        desk.strikeKey('S');
    });
    EXPECT_EQ(MsgBox(u"¿?", MsgBoxStyle::YesNo), MsgBoxResult::Yes);
}

TEST_F(MsgBoxTest, CaptionsAreInTheUsersLanguage) {
    const struct {
        MsgBoxStyle style;
        Log spanish;
        Log english;
    } sets[] = {
        {MsgBoxStyle::OkCancel, {"Aceptar", "Cancelar"}, {"OK", "Cancel"}},
        {MsgBoxStyle::AbortRetryIgnore,
         {"&Anular", "&Reintentar", "&Omitir"},
         {"&Abort", "&Retry", "&Ignore"}},
        {MsgBoxStyle::YesNoCancel, {"&Sí", "&No", "Cancelar"}, {"&Yes", "&No", "Cancel"}},
    };
    for (const auto& set : sets) {
        for (const bool spanish : {true, false}) {
            platform::overrideUserLocale(spanish ? "es-ES" : "en-US");
            Log seen;
            later([&] {
                seen = captions();
                Screen::ActiveForm()->unload();
            });
            MsgBox(u"¿?", set.style);
            EXPECT_EQ(seen, spanish ? set.spanish : set.english);
        }
    }
}

TEST_F(MsgBoxTest, TheTitleDefaultsToTheProgramsAndTheTextIsShownWhole) {
    App::Title(u"Tienda");
    automation::String title;
    float width = 0;
    later([&] {
        title = Screen::ActiveForm()->Caption();
        width = Screen::ActiveForm()->get<Label>(u"Text").Width();
        desk.strikeKey(platform::VK_RETURN);
    });
    MsgBox(u"A & B\r\nuna segunda línea más larga");
    App::Title(u"");
    EXPECT_EQ(title, u"Tienda");
    auto form = makeForm();
    form->ScaleMode(ScaleMode::Pixels);
    EXPECT_EQ(width, form->TextWidth(u"una segunda línea más larga"));
}

TEST_F(MsgBoxTest, AnEndlessTextWrapsWithinTheScreen) {
    later([this] {
        platform::RECT r;
        platform::GetWindowRect(Screen::ActiveForm()->hWnd(), &r);
        EXPECT_LT(r.right - r.left, platform::GetSystemMetrics(platform::SM_CXSCREEN));
        EXPECT_GT(Screen::ActiveForm()->get<Label>(u"Text").Height(), 20);
        desk.strikeKey(platform::VK_RETURN);
    });
    automation::String text;
    for (int i = 0; i < 200; ++i)
        text += u"palabras y ";
    EXPECT_EQ(MsgBox(text, MsgBoxStyle::Information), MsgBoxResult::Ok);
}

TEST_F(MsgBoxTest, ItsFormIsDisabledMeanwhileAndActiveAgainAfterwards) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    show(*form);
    later([&] {
        EXPECT_FALSE(platform::IsWindowEnabled(form->hWnd()));
        desk.strikeKey(platform::VK_RETURN);
    });
    MsgBox(u"Hola");
    desk.pump();
    EXPECT_TRUE(platform::IsWindowEnabled(form->hWnd()));
    EXPECT_TRUE(control.hasFocus());
}

TEST_F(MsgBoxTest, InputBoxGivesTheTypedTextAndCancelTheEmptyOne) {
    later([this] {
        desk.type(u"Ñandú 5€");
        desk.strikeKey(platform::VK_RETURN);
    });
    EXPECT_EQ(InputBox(u"Nombre:", u"Pregunta", u"se borra"), u"Ñandú 5€");
    answer({platform::VK_RETURN});
    EXPECT_EQ(InputBox(u"Nombre:", u"Pregunta", u"propuesto"), u"propuesto");
    answer({platform::VK_ESCAPE});
    EXPECT_EQ(InputBox(u"Nombre:", u"Pregunta", u"propuesto"), u"");
    later([] { platform::PostMessageA(Screen::ActiveForm()->hWnd(), platform::WM_CLOSE, 0, 0); });
    EXPECT_EQ(InputBox(u"Nombre:", u"Pregunta", u"propuesto"), u"");
}

TEST_F(MsgBoxTest, InputBoxStandsWhereItIsTold) {
    platform::RECT r;
    later([&] {
        platform::GetWindowRect(Screen::ActiveForm()->hWnd(), &r);
        desk.strikeKey(platform::VK_RETURN);
    });
    InputBox(u"Nombre:", u"", u"", 750.0F, 1500.0F);
    EXPECT_EQ(r.left, 50);
    EXPECT_EQ(r.top, 100);
}

TEST_F(MsgBoxTest, TheInputFieldEditsMovesAndUsesTheClipboard) {
    struct Case {
        std::vector<std::pair<int, int>> keys; ///< Modifier and key
        const char16_t* result;
    };
    using K = std::pair<int, int>;
    const K end{0, platform::VK_END};
    const K home{0, platform::VK_HOME};
    const Case cases[] = {
        {{end, {0, platform::VK_BACK}}, u"uno do"},
        {{home, {0, platform::VK_DELETE}}, u"no dos"},
        {{end, {platform::VK_CONTROL, platform::VK_BACK}}, u"uno "},
        {{home, {platform::VK_CONTROL, platform::VK_DELETE}}, u"dos"},
        {{end, {platform::VK_SHIFT, platform::VK_LEFT}, {0, 'X'}}, u"uno dox"},
        {{{platform::VK_CONTROL, 'A'},
          {platform::VK_CONTROL, 'X'},
          {platform::VK_CONTROL, 'V'},
          {platform::VK_CONTROL, 'V'}},
         u"uno dosuno dos"},
        {{end, {platform::VK_CONTROL, platform::VK_LEFT}, {0, 'Z'}}, u"uno zdos"},
        {{home, {0, platform::VK_LEFT}, {0, platform::VK_BACK}, {0, 'A'}}, u"auno dos"},
    };
    for (const Case& each : cases) {
        later([&] {
            for (const auto& [modifier, virtualKey] : each.keys) {
                if (modifier) desk.pressKey(modifier);
                desk.strikeKey(virtualKey);
                if (modifier) desk.releaseKey(modifier);
            }
            desk.strikeKey(platform::VK_RETURN);
        });
        EXPECT_EQ(InputBox(u"", u"t", u"uno dos").utf8(), automation::String(each.result).utf8());
    }
}

} // namespace host
