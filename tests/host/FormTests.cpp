#include "HostTest.h"

#include "host/Label.h"
#include "host/MessageLoop.h"
#include "host/Screen.h"
#include "host/ToolTipWindow.h"

namespace host {

class FormTest : public HostTest {
protected:
    void watch(Form& form) {
        form.Load.join([this] { log.push_back("Load"); });
        form.Activate.join([this] { log.push_back("Activate"); });
        form.Deactivate.join([this] { log.push_back("Deactivate"); });
        form.Resize.join([this] { log.push_back("Resize"); });
        form.Paint.join([this] { log.push_back("Paint"); });
        form.QueryUnload.join([this](short&, UnloadMode mode) {
            log.push_back("QueryUnload " + std::to_string(static_cast<int>(mode)));
        });
        form.Unload.join([this](short&) { log.push_back("Unload"); });
    }

    Log log;
};

TEST_F(FormTest, ShowingLoadsSizesActivatesAndPaints) {
    auto form = makeForm();
    watch(*form);
    show(*form);
    EXPECT_EQ(log, (Log{"Load", "Resize", "Activate", "Paint"}));
    EXPECT_TRUE(form->Visible());
    EXPECT_EQ(Screen::ActiveForm(), form.get());
}

TEST_F(FormTest, ItsPlaceAndSizeAreTheWindowsInTwips) {
    auto form = makeForm();
    show(*form);
    EXPECT_EQ(form->Left(), 1500);
    EXPECT_EQ(form->Top(), 1500);
    EXPECT_EQ(form->Width(), 6000);
    EXPECT_EQ(form->Height(), 4500);
    platform::RECT r;
    platform::GetWindowRect(form->hWnd(), &r);
    EXPECT_EQ(r, (platform::RECT{100, 100, 500, 400}));
}

TEST_F(FormTest, SetClientSizeLeavesRoomForTheFrame) {
    auto form = makeForm();
    form->SetClientSize(3000, 1500);
    show(*form);
    EXPECT_EQ(form->clientSize(), (platform::SIZE{200, 100}));
    EXPECT_EQ(form->ScaleWidth(), 3000);
    EXPECT_GT(form->Height(), 1500);
}

TEST_F(FormTest, ResizeIsRaisedOncePerSize) {
    auto form = makeForm();
    show(*form);
    int resized = 0;
    form->Resize.join([&] { ++resized; });
    form->Width(7500);
    form->Left(0);
    form->Width(7500);
    desk.pump();
    EXPECT_EQ(resized, 1);
}

TEST_F(FormTest, TheUserCannotMakeItSmallerThanItsMinimum) {
    auto form = makeForm();
    form->MinWidth(3000);
    form->MaxHeight(6000);
    show(*form);
    platform::MINMAXINFO limits;
    platform::SendMessageA(form->hWnd(), platform::WM_GETMINMAXINFO, 0,
                           reinterpret_cast<platform::LPARAM>(&limits));
    EXPECT_EQ(limits.ptMinTrackSize.x, 200);
    EXPECT_EQ(limits.ptMaxTrackSize.y, 400);
}

TEST_F(FormTest, CentredOnTheScreenAndOnItsOwner) {
    auto form = makeForm();
    form->StartUpPosition(StartUpPosition::CenterScreen);
    show(*form);
    platform::RECT work;
    platform::SystemParametersInfoA(platform::SPI_GETWORKAREA, 0, &work, 0);
    platform::RECT r;
    platform::GetWindowRect(form->hWnd(), &r);
    EXPECT_NEAR(r.left - work.left, work.right - r.right, 1);
    EXPECT_NEAR(r.top - work.top, work.bottom - r.bottom, 1);
    auto owned = makeForm(u"owned");
    owned->Move(0, 0, 3000, 2250);
    owned->StartUpPosition(StartUpPosition::CenterOwner);
    owned->Show(false, form.get());
    platform::RECT inner;
    platform::GetWindowRect(owned->hWnd(), &inner);
    EXPECT_NEAR(inner.left - r.left, r.right - inner.right, 1);
}

TEST_F(FormTest, TheCloseBoxAsksAndUnloads) {
    auto form = makeForm();
    watch(*form);
    show(*form);
    log.clear();
    platform::PostMessageA(form->hWnd(), platform::WM_CLOSE, 0, 0);
    desk.pump();
    ASSERT_GE(log.size(), 2u);
    EXPECT_EQ(log[0], "QueryUnload 0");
    EXPECT_EQ(log[1], "Unload");
    EXPECT_FALSE(form->loaded());
    EXPECT_FALSE(form->hWnd());
}

TEST_F(FormTest, EitherHandlerMayKeepItOpen) {
    auto form = makeForm();
    show(*form);
    bool keepEarly = true;
    bool keepLate = true;
    form->QueryUnload.join([&](short& cancel, UnloadMode mode) {
        EXPECT_EQ(mode, UnloadMode::FormCode);
        cancel = keepEarly;
    });
    form->Unload.join([&](short& cancel) { cancel = keepLate; });
    EXPECT_FALSE(form->unload());
    keepEarly = false;
    EXPECT_FALSE(form->unload());
    EXPECT_TRUE(form->Visible());
    keepLate = false;
    EXPECT_TRUE(form->unload());
    EXPECT_FALSE(form->Visible());
}

TEST_F(FormTest, ItMayUnloadItselfInItsOwnEvents) {
    for (const char* event : {"Click", "KeyDown", "Activate", "Load"}) {
        auto form = makeForm();
        const std::string wanted = event;
        const auto go = [&, wanted](const char* name) {
            if (wanted == name) form->unload();
        };
        form->Click.join([&] { go("Click"); });
        form->KeyDown.join([&](short&, short&) { go("KeyDown"); });
        form->Activate.join([&] { go("Activate"); });
        form->Load.join([&] { go("Load"); });
        show(*form);
        if (form->loaded()) {
            desk.click(middle(form->hWnd()));
            desk.strikeKey('A');
            desk.pump();
        }
        EXPECT_FALSE(form->loaded()) << event;
    }
}

TEST_F(FormTest, AControlMayUnloadItsFormInItsOwnEvents) {
    for (const char* event : {"Click", "MouseDown 1", "KeyDown", "GotFocus", "KeyPress"}) {
        auto form = makeForm();
        auto& control = probe(*form, u"p", 0);
        const std::string wanted = event;
        control.onEvent = [form = form.get(), wanted](const std::string& name) {
            if (name.starts_with(wanted)) form->unload();
        };
        show(*form);
        if (form->loaded()) {
            desk.click(middle(control.hWnd()));
            desk.strikeKey('A');
            desk.pump();
        }
        EXPECT_FALSE(form->loaded()) << event;
    }
}

TEST_F(FormTest, AFormNobodyHoldsLivesWhileItIsOpen) {
    platform::HWND window;
    {
        auto form = makeForm();
        form->Show();
        window = form->hWnd();
    }
    EXPECT_TRUE(platform::IsWindow(window));
    platform::SendMessageA(window, platform::WM_CLOSE, 0, 0);
    EXPECT_FALSE(platform::IsWindow(window));
}

TEST_F(FormTest, AHiddenFormKeepsItsControlsAndShowsAgainWithoutLoading) {
    auto form = makeForm();
    probe(*form, u"p", 0);
    watch(*form);
    show(*form);
    form->Hide();
    EXPECT_FALSE(form->Visible());
    EXPECT_TRUE(form->loaded());
    show(*form);
    EXPECT_EQ(std::count(log.begin(), log.end(), "Load"), 1);
    EXPECT_EQ(form->controls().size(), 1u);
}

TEST_F(FormTest, AModalFormHoldsTheCallerUntilItIsGone) {
    auto form = makeForm();
    show(*form);
    auto dialog = makeForm(u"dialog");
    bool disabledMeanwhile = false;
    later([&] {
        disabledMeanwhile = !platform::IsWindowEnabled(form->hWnd());
        EXPECT_EQ(Screen::ActiveForm(), dialog.get());
        dialog->unload();
    });
    dialog->Show(true);
    EXPECT_TRUE(disabledMeanwhile);
    EXPECT_TRUE(platform::IsWindowEnabled(form->hWnd()));
    EXPECT_EQ(Screen::ActiveForm(), form.get());
}

TEST_F(FormTest, HidingAModalFormEndsItsLoopToo) {
    auto dialog = makeForm(u"dialog");
    later([&] { dialog->Hide(); });
    dialog->Show(true);
    EXPECT_TRUE(dialog->loaded());
    EXPECT_FALSE(dialog->Visible());
}

TEST_F(FormTest, ModalFormsNest) {
    auto form = makeForm();
    show(*form);
    auto outer = makeForm(u"outer");
    auto inner = makeForm(u"inner");
    Log order;
    later([&] {
        later([&] {
            EXPECT_FALSE(platform::IsWindowEnabled(form->hWnd()));
            EXPECT_FALSE(platform::IsWindowEnabled(outer->hWnd()));
            inner->unload();
        });
        inner->Show(true);
        order.push_back("inner");
        EXPECT_TRUE(platform::IsWindowEnabled(outer->hWnd()));
        EXPECT_FALSE(platform::IsWindowEnabled(form->hWnd())) << "the outer dialog is still open";
        EXPECT_EQ(Screen::ActiveForm(), outer.get());
        outer->unload();
    });
    outer->Show(true);
    order.push_back("outer");
    EXPECT_EQ(order, (Log{"inner", "outer"}));
    EXPECT_TRUE(platform::IsWindowEnabled(form->hWnd()));
}

TEST_F(FormTest, AFormThatWasDisabledStaysSoAfterADialog) {
    auto form = makeForm();
    show(*form);
    form->Enabled(false);
    auto dialog = makeForm(u"dialog");
    later([&] { dialog->unload(); });
    dialog->Show(true);
    EXPECT_FALSE(platform::IsWindowEnabled(form->hWnd()));
}

TEST_F(FormTest, NoModelessFormOpensOverAModalOneAndNoModalOneTwice) {
    auto dialog = makeForm(u"dialog");
    auto other = makeForm(u"other");
    std::int32_t modeless = 0;
    std::int32_t again = 0;
    later([&] {
        modeless = errorOf([&] { other->Show(); });
        again = errorOf([&] { dialog->Show(true); });
        dialog->unload();
    });
    dialog->Show(true);
    EXPECT_EQ(modeless, 401);
    EXPECT_EQ(again, 400);
}

TEST_F(FormTest, QuittingEndsAModalLoopAndTheLoopsAroundIt) {
    auto dialog = makeForm(u"dialog");
    later([&] { platform::PostQuitMessage(3); });
    dialog->Show(true);
    EXPECT_TRUE(dialog->Visible());
    EXPECT_EQ(run(), 3);
}

TEST_F(FormTest, DoEventsHandlesWhatWaitsAndCountsTheVisibleForms) {
    auto form = makeForm();
    auto other = makeForm(u"other");
    form->Show();
    other->Show();
    int painted = 0;
    form->Paint.join([&] { ++painted; });
    form->invalidate();
    EXPECT_EQ(DoEvents(), 2);
    EXPECT_EQ(painted, 1);
    other->Hide();
    EXPECT_EQ(DoEvents(), 1);
}

TEST_F(FormTest, RunEndsWithTheLastVisibleForm) {
    auto form = makeForm();
    later([&] { form->unload(); });
    EXPECT_EQ(run(*form), 0);
    EXPECT_FALSE(form->loaded());
}

TEST_F(FormTest, ControlsAreFoundByNameInAnyCase) {
    auto form = makeForm();
    auto& control = probe(*form, u"txtÑandú", 0);
    EXPECT_EQ(form->find(u"TXTñandÚ"), &control);
    EXPECT_EQ(&form->get<Probe>(u"txtñandú"), &control);
    EXPECT_EQ(errorOf([&] { form->get<Label>(u"txtñandú"); }), 730);
    EXPECT_EQ(errorOf([&] { form->add<Probe>(u"TXTÑANDÚ"); }), 672);
}

TEST_F(FormTest, ManyControlsAreFoundAsTheyComeAreRenamedAndGo) {
    constexpr short count = 100;
    auto form = makeForm();
    std::vector<Probe*> controls;
    for (short i = 0; i < count; ++i)
        controls.push_back(&form->add<Probe>(u"txtLista", i));
    for (short i = 0; i < count; i += 3)
        controls[static_cast<std::size_t>(i)]->Extender().Name(u"txtOtra");
    for (short i = 1; i < count; i += 3) {
        form->remove(*controls[static_cast<std::size_t>(i)]);
        for (short k = 0; k < count; ++k) {
            const bool isRenamed = k % 3 == 0, isGone = k % 3 == 1 && k <= i;
            Control* const control = controls[static_cast<std::size_t>(k)];
            EXPECT_EQ(form->find(u"txtlista", k), isRenamed || isGone ? nullptr : control);
            EXPECT_EQ(form->find(u"TXTOTRA", k), isRenamed ? control : nullptr);
        }
    }
}

TEST_F(FormTest, ACaptionOutsideTheAnsiPageReachesTheWindow) {
    auto form = makeForm();
    form->load();
    form->Caption(u"Año Ω 漢");
    char16_t text[32] = {};
    platform::GetWindowTextW(form->hWnd(), text, 32);
    EXPECT_EQ(std::u16string(text).substr(0, 4), u"Año ");
}

TEST_F(FormTest, KeysAndTheMouseReachAFormWithoutControls) {
    auto form = makeForm();
    Log events;
    form->KeyDown.join([&](short& code, short&) { events.push_back("KeyDown " + std::to_string(code)); });
    form->KeyPress.join([&](short& code) { events.push_back("KeyPress " + std::to_string(code)); });
    form->MouseDown.join([&](short& button, short&, float&, float&) {
        events.push_back("MouseDown " + std::to_string(button));
    });
    form->Click.join([&] { events.push_back("Click"); });
    show(*form);
    key('Q');
    desk.click(middle(form->hWnd()));
    desk.pump();
    EXPECT_EQ(events, (Log{"KeyDown 81", "KeyPress 113", "MouseDown 1", "Click"}));
}

TEST_F(FormTest, AToolTipComesWhenTheMouseRestsAndGoesWithAPress) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    control.Extender().ToolTipText(u"Ayuda");
    show(*form);
    const auto tip = [] { return platform::FindWindowA("TeselaHostToolTip", nullptr); };
    desk.moveMouse(middle(control.hWnd()));
    desk.pump();
    EXPECT_FALSE(tip());
    desk.advance(600);
    desk.pump();
    ASSERT_TRUE(tip());
    EXPECT_TRUE(control.hasFocus()) << "a tip takes no focus";
    desk.pressButton();
    desk.pump();
    EXPECT_FALSE(tip());
    desk.releaseButton();
    desk.pump();
}

TEST_F(FormTest, LabelsOnFormsAndInsideControlsHaveToolTipsToo) {
    auto form = makeForm();
    auto& label = form->add<Label>(u"l");
    label.Move(150, 1500, 900, 300);
    label.Extender().ToolTipText(u"De la etiqueta");
    EXPECT_EQ(label.ToolTipText(), u"De la etiqueta");
    auto& control = probe(*form, u"p", 0);
    control.Extender().ToolTipText(u"Del control");
    const auto inner = automation::make<Label>();
    inner->placeIn(control);
    inner->Move(0, 0, 900, 300);
    inner->ToolTipText(u"De dentro");
    show(*form);
    const auto shown = [&](platform::POINT at) -> std::string {
        desk.moveMouse(at);
        desk.pump();
        desk.advance(600);
        desk.pump();
        const auto* tip = dynamic_cast<ToolTipWindow*>(
            DrawingWindow::fromWindow(platform::FindWindowA("TeselaHostToolTip", nullptr)));
        return tip ? tip->text().utf8() : "";
    };
    platform::POINT onLabel{30, 105};
    platform::ClientToScreen(form->hWnd(), &onLabel);
    EXPECT_EQ(shown(onLabel), "De la etiqueta");
    EXPECT_EQ(shown(middle(control.hWnd())), "De dentro");
    inner->Visible(false);
    EXPECT_EQ(shown({middle(control.hWnd()).x + 1, middle(control.hWnd()).y}), "Del control");
}

TEST_F(FormTest, AQuickMouseShowsNoToolTip) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    control.Extender().ToolTipText(u"Ayuda");
    show(*form);
    desk.moveMouse(middle(control.hWnd()));
    desk.pump();
    desk.advance(300);
    desk.moveMouse(middle(form->hWnd()));
    desk.pump();
    desk.advance(600);
    desk.pump();
    EXPECT_FALSE(platform::FindWindowA("TeselaHostToolTip", nullptr));
}

} // namespace host
