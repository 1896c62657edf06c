#include "HostTest.h"

#include "automation/LateBound.h"
#include "platform/gdi.h"

namespace host {

class UserControlTest : public HostTest {};

TEST_F(UserControlTest, ANewControlIsInitialisedThenGetsItsPropertiesThenIsSizedAndShown) {
    auto form = makeForm();
    auto& control = form->add<Probe>(u"p");
    EXPECT_EQ(control.log, (Log{"Initialize", "InitProperties", "Resize", "Show"}));
}

TEST_F(UserControlTest, ASavedControlReadsItsPropertiesInsteadOfInitialisingThem) {
    auto form = makeForm();
    auto control = automation::make<Probe>();
    PropertyBag bag;
    bag.WriteProperty(u"Value", u"leído");
    form->add(control, u"p", NotInArray, nullptr, &bag);
    EXPECT_EQ(control->log, (Log{"Initialize", "ReadProperties", "Resize", "Show"}));
    EXPECT_EQ(control->Value(), u"leído");
}

TEST_F(UserControlTest, PaintComesWhenTheFormIsOnTheScreen) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    control.logPaint = true;
    control.take();
    show(*form);
    EXPECT_EQ(std::count(control.log.begin(), control.log.end(), "Paint"), 1);
}

TEST_F(UserControlTest, LeavingTheFormEndsItWithTerminate) {
    auto form = makeForm();
    const automation::Ref<Probe> control(&probe(*form, u"p", 0));
    control->take();
    form->remove(*control);
    EXPECT_EQ(control->log, (Log{"Terminate"}));
    EXPECT_FALSE(control->hWnd());
    EXPECT_EQ(control->site(), nullptr);
    EXPECT_EQ(form->find(u"p"), nullptr);
}

TEST_F(UserControlTest, UnloadingTheFormTerminatesEachControlOnce) {
    auto form = makeForm();
    const automation::Ref<Probe> control(&probe(*form, u"p", 0));
    show(*form);
    control->take();
    EXPECT_TRUE(form->unload());
    EXPECT_EQ(std::count(control->log.begin(), control->log.end(), "Terminate"), 1);
}

TEST_F(UserControlTest, SizeAsksTheContainerAndRaisesOneResize) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    control.take();
    control.Size(1500, 600);
    EXPECT_EQ(control.log, (Log{"Resize"}));
    EXPECT_EQ(control.Extender().Width(), 1500);
    EXPECT_EQ(control.Extender().Height(), 600);
    EXPECT_EQ(control.Width(), 1500);
    EXPECT_EQ(control.clientSize(), (platform::SIZE{100, 40}));
    control.Size(1500, 600);
    EXPECT_EQ(control.log.size(), 1u);
}

TEST_F(UserControlTest, MovingRaisesNoResize) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    control.take();
    control.Extender().Left(750);
    control.Extender().Top(1500);
    EXPECT_TRUE(control.log.empty());
    EXPECT_EQ(control.Extender().Left(), 750);
    EXPECT_EQ(control.Extender().Top(), 1500);
    platform::RECT place;
    platform::GetWindowRect(control.hWnd(), &place);
    platform::POINT corner{place.left, place.top};
    platform::ScreenToClient(form->hWnd(), &corner);
    EXPECT_EQ(corner, (platform::POINT{50, 100}));
}

TEST_F(UserControlTest, TheExtendersLengthsFollowTheContainersScale) {
    auto form = makeForm();
    form->ScaleMode(ScaleMode::Pixels);
    auto& control = form->add<Probe>(u"p");
    control.Extender().Move(10, 20, 30, 40);
    EXPECT_EQ(control.Ambient().ScaleUnits(), u"Pixel");
    EXPECT_EQ(control.Width(), 450);
    form->ScaleMode(ScaleMode::Twips);
    EXPECT_EQ(control.Extender().Left(), 150);
    EXPECT_EQ(control.Extender().Height(), 600);
}

TEST_F(UserControlTest, WithoutAContainerTheExtenderFailsAndAmbientHasItsDefaults) {
    auto control = automation::make<Probe>();
    EXPECT_EQ(errorOf([&] { control->Extender().Left(); }), 398);
    EXPECT_TRUE(control->Ambient().UserMode());
    EXPECT_EQ(control->Ambient().BackColor(), colorButtonFace);
    EXPECT_EQ(control->Ambient().ScaleUnits(), u"Twip");
    EXPECT_TRUE(control->Ambient().Font());
}

TEST_F(UserControlTest, AmbientValuesAreTheFormsAndTheirChangeIsTold) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    control.take();
    form->BackColor(0x00C0FF);
    form->Font()->Size(12);
    form->UserMode(false);
    EXPECT_EQ(control.log,
              (Log{"AmbientChanged BackColor", "AmbientChanged Font", "AmbientChanged UserMode"}));
    EXPECT_EQ(control.Ambient().BackColor(), 0x00C0FF);
    EXPECT_EQ(control.Ambient().Font()->Size(), automation::Currency(12));
    EXPECT_FALSE(control.Ambient().UserMode());
    EXPECT_EQ(control.Ambient().DisplayName(), u"p");
}

TEST_F(UserControlTest, ATransparentControlShowsTheFormAndItsLabelsBehindIt) {
    auto form = makeForm();
    form->BackColor(0x203040);
    auto& label = form->add<Label>(u"l");
    label.BackColor(0x0000FF);
    label.Caption(u"");
    label.Move(150, 150, 450, 300);
    auto& control = probe(*form, u"p", 0);
    control.BackStyle(BackStyle::Transparent);
    show(*form);
    const support::Picture seen = desk.look(control.hWnd());
    EXPECT_EQ(seen.at(5, 5), 0x0000FFu);
    EXPECT_EQ(seen.at(45, 5), 0x203040u);
    label.BackColor(0x00FF00);
    desk.pump();
    EXPECT_EQ(desk.look(control.hWnd()).at(5, 5), 0x00FF00u);
}

TEST_F(UserControlTest, ADisabledControlGetsNeitherKeysNorMouse) {
    auto form = makeForm();
    auto& first = probe(*form, u"a", 0);
    auto& second = probe(*form, u"b", 1);
    show(*form);
    second.Enabled(false);
    second.take();
    click(second);
    EXPECT_TRUE(second.log.empty());
    EXPECT_EQ(form->ActiveControl(), &first);
    EXPECT_FALSE(second.Enabled());
}

TEST_F(UserControlTest, DisablingTheFocusedControlPassesTheFocusOn) {
    auto form = makeForm();
    auto& first = probe(*form, u"a", 0);
    auto& second = probe(*form, u"b", 1);
    show(*form);
    ASSERT_EQ(form->ActiveControl(), &first);
    first.Enabled(false);
    EXPECT_EQ(form->ActiveControl(), &second);
    EXPECT_TRUE(second.hasFocus());
}

TEST_F(UserControlTest, ASentPaintMessagePaintsAtOnceThoughNothingIsInvalid) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    show(*form);
    control.logPaint = true;
    control.take();
    int painted = 0;
    control.onEvent = [&](const std::string& event) {
        if (event != "Paint") return;
        ++painted;
        const platform::HBRUSH brush = platform::CreateSolidBrush(0x0000FF);
        const platform::RECT all{0, 0, 60, 20};
        platform::FillRect(control.hDC(), &all, brush);
        platform::DeleteObject(brush);
    };
    platform::SendMessageA(control.hWnd(), platform::WM_PAINT, 0, 0);
    EXPECT_EQ(painted, 1);
    EXPECT_EQ(desk.look(control.hWnd()).at(30, 10), 0x0000FFu);
}

TEST_F(UserControlTest, WithAutoRedrawTheDrawingStaysAndPaintIsNotRaised) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    control.logPaint = true;
    control.AutoRedraw(true);
    show(*form);
    control.take();
    const platform::HBRUSH brush = platform::CreateSolidBrush(0x00FF00);
    const platform::RECT half{0, 0, 30, 20};
    platform::FillRect(control.hDC(), &half, brush);
    platform::DeleteObject(brush);
    control.Refresh();
    platform::InvalidateRect(control.hWnd(), nullptr, platform::TRUE_);
    desk.pump();
    EXPECT_EQ(desk.look(control.hWnd()).at(10, 10), 0x00FF00u);
    EXPECT_EQ(std::count(control.log.begin(), control.log.end(), "Paint"), 0);
    control.Size(1800, 300);
    desk.pump();
    EXPECT_EQ(desk.look(control.hWnd()).at(10, 10), 0x00FF00u) << "a larger window keeps what was drawn";
    control.Cls();
    desk.pump();
    EXPECT_EQ(desk.look(control.hWnd()).at(10, 10), rgbFromOle(control.BackColor()));
}

TEST_F(UserControlTest, CharactersArriveAsCodesOfTheAnsiPage) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    show(*form);
    std::vector<std::string> codes;
    control.onEvent = [&](const std::string& event) {
        if (event.starts_with("KeyPress")) codes.push_back(event);
    };
    desk.type(u"añÁ€");
    desk.pump();
    EXPECT_EQ(codes, (Log{"KeyPress 97", "KeyPress 241", "KeyPress 193", "KeyPress 128"}));
}

TEST_F(UserControlTest, AKeyIsDownPressAndUpWithTheStateOfShift) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    show(*form);
    control.take();
    key('A');
    EXPECT_EQ(control.take(), (Log{"KeyDown 65 0", "KeyPress 97", "KeyUp 65 0"}));
    keyWith(platform::VK_CONTROL, platform::VK_HOME);
    EXPECT_EQ(control.take(), (Log{"KeyDown 17 2", "KeyDown 36 2", "KeyUp 36 2", "KeyUp 17 0"}));
    keyWith(platform::VK_MENU, platform::VK_DOWN);
    EXPECT_EQ(control.take(), (Log{"KeyDown 18 4", "KeyDown 40 4", "KeyUp 40 4", "KeyUp 18 0"}));
}

TEST_F(UserControlTest, AClickIsDownUpClickAndASecondOneIsDblClickAndUp) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    show(*form);
    control.ScaleMode(ScaleMode::Pixels);
    control.take();
    platform::RECT r;
    platform::GetWindowRect(control.hWnd(), &r);
    desk.doubleClick({r.left + 7, r.top + 9});
    desk.pump();
    EXPECT_EQ(control.take(),
              (Log{"MouseDown 1 7,9", "MouseUp 1 7,9", "Click", "DblClick", "MouseUp 1 7,9"}));
}

TEST_F(UserControlTest, MouseCoordinatesAreInTheControlsScale) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    show(*form);
    control.take();
    platform::RECT r;
    platform::GetWindowRect(control.hWnd(), &r);
    desk.click({r.left + 2, r.top + 3}, platform::VK_RBUTTON);
    desk.pump();
    EXPECT_EQ(control.take(), (Log{"MouseDown 2 30,45", "MouseUp 2 30,45", "Click"}));
}

TEST_F(UserControlTest, APressHoldsTheMouseAndAReleaseOutsideIsNoClick) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    show(*form);
    control.ScaleMode(ScaleMode::Pixels);
    control.logMouseMove = true;
    platform::RECT r;
    platform::GetWindowRect(control.hWnd(), &r);
    desk.moveMouse({r.left + 5, r.top + 5});
    desk.pressButton();
    desk.pump();
    control.take();
    desk.moveMouse({r.left - 10, r.top + 5});
    desk.pump();
    EXPECT_EQ(control.take(), (Log{"MouseMove 1 -10,5"}));
    desk.releaseButton();
    desk.pump();
    EXPECT_EQ(control.take(), (Log{"MouseUp 1 -10,5"}));
}

TEST_F(UserControlTest, TheWheelTurnsTheFocusedControl) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    show(*form);
    control.take();
    desk.moveMouse(middle(control.hWnd()));
    desk.turnWheel(-1);
    desk.pump();
    EXPECT_EQ(control.take(), (Log{"MouseWheel -120"}));
}

TEST_F(UserControlTest, AControlMayLeaveTheFormInItsOwnClick) {
    auto form = makeForm();
    auto& other = probe(*form, u"other", 1);
    const automation::Ref<Probe> control(&probe(*form, u"p", 0));
    show(*form);
    control->onEvent = [&](const std::string& event) {
        if (event == "Click") form->remove(*control);
    };
    click(*control);
    EXPECT_EQ(control->log.back(), "Terminate");
    EXPECT_EQ(form->find(u"p"), nullptr);
    EXPECT_EQ(form->ActiveControl(), &other);
}

TEST_F(UserControlTest, AControlMayBeDestroyedByTheLastReferenceInItsKeyDown) {
    auto form = makeForm();
    Probe* control = &probe(*form, u"p", 0);
    probe(*form, u"other", 1);
    show(*form);
    ASSERT_EQ(form->ActiveControl(), control);
    bool removed = false;
    control->onEvent = [&](const std::string& event) {
        if (removed || !event.starts_with("KeyDown")) return;
        removed = true;
        form->remove(*control);
    };
    key('A');
    EXPECT_TRUE(removed);
    EXPECT_EQ(form->controls().size(), 1u);
}

TEST_F(UserControlTest, PropertyChangedMarksTheFormDirty) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    form->Dirty(false);
    control.Value(u"nuevo");
    EXPECT_TRUE(form->Dirty());
}

TEST_F(UserControlTest, ProgramsReachItsMembersAndTheExtendersByName) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    automation::letProperty(control, u"value", u"x");
    EXPECT_EQ(control.Value(), u"x");
    EXPECT_EQ(automation::getProperty(control, u"NAME").asString(), u"p");
    automation::letProperty(control, u"Left", 300);
    EXPECT_EQ(control.Extender().Left(), 300);
    automation::callMethod(control, u"Move", 450);
    EXPECT_EQ(control.Extender().Left(), 450);
    EXPECT_EQ(control.Extender().Width(), 900);
    EXPECT_EQ(automation::getProperty(control, u"Parent").asObject().get(), form.get());
    EXPECT_EQ(errorOf([&] { automation::getProperty(control, u"NoSuchMember"); }), 438);
    EXPECT_NE(control.eventByName(u"Changed"), nullptr);
    EXPECT_NE(control.eventByName(u"Validate"), nullptr);
    EXPECT_EQ(control.eventByName(u"Nothing"), nullptr);
}

TEST_F(UserControlTest, HidingAndShowingRaiseHideAndShow) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    control.take();
    control.Extender().Visible(false);
    control.Extender().Visible(false);
    control.Extender().Visible(true);
    EXPECT_EQ(control.log, (Log{"Hide", "Show"}));
}

TEST_F(UserControlTest, ZOrderBringsAControlAboveItsSiblings) {
    auto form = makeForm();
    auto& below = probe(*form, u"a", 0);
    auto& above = probe(*form, u"b", 0);
    below.BackColor(0x0000FF);
    above.BackColor(0x00FF00);
    show(*form);
    EXPECT_EQ(platform::GetTopWindow(form->hWnd()), above.hWnd()) << "each new one covers those before it";
    above.Extender().ZOrder(ZOrderPosition::Back);
    desk.pump();
    EXPECT_EQ(platform::GetTopWindow(form->hWnd()), below.hWnd());
    above.Extender().ZOrder();
    EXPECT_EQ(platform::GetTopWindow(form->hWnd()), above.hWnd());
}

TEST_F(UserControlTest, ADestroyedFormLeavesNoWindowsTimersOrFonts) {
    const auto fonts = session().fonts.size();
    const auto objects = platform::GetGuiResources(platform::GR_GDIOBJECTS);
    {
        auto form = makeForm();
        auto& control = probe(*form, u"p", 0);
        control.Font()->Name(u"Arial");
        control.AutoRedraw(true);
        form->add<Label>(u"l").Caption(u"texto");
        show(*form);
        EXPECT_TRUE(control.hDC());
        form->unload();
    }
    EXPECT_EQ(session().fonts.size(), fonts);
    EXPECT_LE(platform::GetGuiResources(platform::GR_GDIOBJECTS), objects);
}

} // namespace host
