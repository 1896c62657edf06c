#include "HostTest.h"

#include "host/Label.h"
#include "platform/gdi.h"

namespace host {

class LabelTest : public HostTest {
protected:
    void SetUp() override {
        form = makeForm();
        form->ScaleMode(ScaleMode::Pixels);
        label = &form->add<Label>(u"Label1");
        label->Move(20, 20, 100, 40);
    }
    support::Picture look() {
        desk.pump();
        return desk.look(form->hWnd());
    }
    static int count(const support::Picture& picture, platform::RECT area, platform::COLORREF color) {
        int found = 0;
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x)
                found += picture.at(x, y) == color;
        }
        return found;
    }
    static constexpr platform::RECT Place{20, 20, 120, 60};

    automation::Ref<Form> form;
    Label* label = nullptr;
};

TEST_F(LabelTest, ANewOneTakesTheFormsLookAndItsNameAsCaption) {
    form->Font()->Size(14);
    auto& made = form->add<Label>(u"lblTotal");
    EXPECT_EQ(made.Caption(), u"lblTotal");
    EXPECT_EQ(made.Font()->Size(), automation::Currency(14));
    EXPECT_EQ(made.BackColor(), form->BackColor());
}

TEST_F(LabelTest, AnOpaqueOneFillsItsPlaceAndATransparentOneShowsTheForm) {
    form->BackColor(0x808080);
    label->Caption(u"");
    label->BackColor(0x00FFFF);
    show(*form);
    EXPECT_EQ(count(look(), Place, 0x00FFFF), 100 * 40);
    EXPECT_EQ(look().at(19, 30), 0x808080u);
    EXPECT_EQ(look().at(120, 30), 0x808080u);
    label->BackStyle(BackStyle::Transparent);
    EXPECT_EQ(count(look(), Place, 0x808080), 100 * 40);
}

TEST_F(LabelTest, TheTextLeansWhereTheAlignmentSays) {
    label->Caption(u"XX");
    label->ForeColor(0x0000FF);
    show(*form);
    const platform::RECT left{20, 20, 60, 60};
    const platform::RECT right{80, 20, 120, 60};
    EXPECT_GT(count(look(), left, 0x0000FF), 0);
    EXPECT_EQ(count(look(), right, 0x0000FF), 0);
    label->Alignment(Alignment::RightJustify);
    EXPECT_EQ(count(look(), left, 0x0000FF), 0);
    EXPECT_GT(count(look(), right, 0x0000FF), 0);
    label->Alignment(Alignment::Center);
    EXPECT_EQ(count(look(), {20, 20, 50, 60}, 0x0000FF), 0);
    EXPECT_EQ(count(look(), {90, 20, 120, 60}, 0x0000FF), 0);
    EXPECT_GT(count(look(), {50, 20, 90, 60}, 0x0000FF), 0);
}

TEST_F(LabelTest, ADisabledOneIsEmbossedGrey) {
    label->Caption(u"XX");
    label->ForeColor(0x0000FF);
    label->Enabled(false);
    show(*form);
    EXPECT_EQ(count(look(), Place, 0x0000FF), 0);
    EXPECT_GT(count(look(), Place, platform::GetSysColor(platform::COLOR_GRAYTEXT)), 0);
    EXPECT_GT(count(look(), Place, platform::GetSysColor(platform::COLOR_3DHIGHLIGHT)), 0);
}

TEST_F(LabelTest, AutoSizeTakesTheExtentOfTheTextAndFollowsIt) {
    label->AutoSize(true);
    label->Caption(u"Un texto");
    const float height = label->Height();
    EXPECT_EQ(label->Width(), form->TextWidth(u"Un texto"));
    EXPECT_EQ(height, form->TextHeight(u"Un texto"));
    label->Caption(u"Un texto\r\nde dos líneas");
    EXPECT_EQ(label->Width(), std::max(form->TextWidth(u"Un texto"), form->TextWidth(u"de dos líneas")));
    EXPECT_EQ(label->Height(), 2 * height);
    label->Font()->Size(20);
    EXPECT_GT(label->Height(), 2 * height);
    EXPECT_EQ(label->Left(), 20);
}

TEST_F(LabelTest, AutoSizeCountsTheBorder) {
    label->AutoSize(true);
    label->Caption(u"Texto");
    const float width = label->Width();
    const float height = label->Height();
    label->BorderStyle(BorderStyle::FixedSingle);
    EXPECT_EQ(label->Width(), width + 4);
    EXPECT_EQ(label->Height(), height + 4);
    label->Appearance(Appearance::Flat);
    EXPECT_EQ(label->Width(), width + 2);
}

TEST_F(LabelTest, AutoSizeWithWordWrapKeepsTheWidthAndGrowsInHeight) {
    label->WordWrap(true);
    label->AutoSize(true);
    label->Caption(u"corto");
    EXPECT_EQ(label->Width(), 100);
    const float line = label->Height();
    label->Caption(u"un texto bastante más largo que la etiqueta en la que está");
    EXPECT_EQ(label->Width(), 100);
    EXPECT_GE(label->Height(), 3 * line);
    const float before = label->Height();
    label->Width(300);
    EXPECT_LT(label->Height(), before);
}

TEST_F(LabelTest, AnAutoSizedRightAlignedOneKeepsItsRightEdge) {
    label->Alignment(Alignment::RightJustify);
    label->AutoSize(true);
    label->Caption(u"1");
    const float right = label->Left() + label->Width();
    label->Caption(u"123456");
    EXPECT_EQ(label->Left() + label->Width(), right);
}

TEST_F(LabelTest, AnEmptyCaptionIsOneLineHighAndNothingWide) {
    label->AutoSize(true);
    label->Caption(u"");
    EXPECT_EQ(label->Width(), 0);
    EXPECT_EQ(label->Height(), form->TextHeight(u"X"));
}

TEST_F(LabelTest, WithoutAutoSizeTheTextIsClipped) {
    label->Caption(u"WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW\r\nX\r\nX\r\nX\r\nX\r\nX\r\nX");
    label->ForeColor(0x0000FF);
    show(*form);
    const support::Picture seen = look();
    EXPECT_EQ(label->Width(), 100);
    EXPECT_EQ(count(seen, {0, 0, seen.width, seen.height}, 0x0000FF), count(seen, Place, 0x0000FF));
}

TEST_F(LabelTest, AnAmpersandUnderlinesAndDoubledIsItself) {
    EXPECT_EQ(mnemonicOf(u"&Nombre"), u"N");
    EXPECT_EQ(mnemonicOf(u"A && &b"), u"b");
    EXPECT_EQ(mnemonicOf(u"Uno && dos"), u"");
    EXPECT_EQ(mnemonicOf(u"fin&"), u"");
    label->AutoSize(true);
    label->Caption(u"&&");
    EXPECT_EQ(label->Width(), form->TextWidth(u"&"));
    label->UseMnemonic(false);
    EXPECT_EQ(label->Width(), form->TextWidth(u"&&"));
    label->Caption(u"&Sin");
    EXPECT_EQ(label->accessKeys(), u"");
}

TEST_F(LabelTest, AClickOnItIsItsOwnAndNotTheForms) {
    int clicks = 0;
    int formClicks = 0;
    int formPresses = 0;
    label->Click.join([&] { ++clicks; });
    form->Click.join([&] { ++formClicks; });
    form->MouseDown.join([&](short&, short&, float&, float&) { ++formPresses; });
    show(*form);
    platform::POINT at{70, 40};
    platform::ClientToScreen(form->hWnd(), &at);
    desk.click(at);
    desk.pump();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(formClicks + formPresses, 0);
    label->Enabled(false);
    desk.advance(2000);
    desk.click(at);
    desk.pump();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(formClicks, 1) << "a disabled label lets the mouse through";
}

TEST_F(LabelTest, ItMayLeaveItsFormInItsOwnClick) {
    label->Click.join([&] { form->remove(*label); });
    show(*form);
    platform::POINT at{70, 40};
    platform::ClientToScreen(form->hWnd(), &at);
    desk.click(at);
    desk.pump();
    EXPECT_TRUE(form->controls().empty());
    EXPECT_TRUE(form->labels().empty());
}

TEST_F(LabelTest, AHiddenOneShowsNothing) {
    label->BackColor(0x0000FF);
    label->Caption(u"");
    show(*form);
    label->Visible(false);
    EXPECT_FALSE(label->Extender().Visible());
    EXPECT_EQ(count(look(), Place, 0x0000FF), 0);
    label->Extender().Visible(true);
    EXPECT_TRUE(label->Visible());
    EXPECT_EQ(count(look(), Place, 0x0000FF), 100 * 40);
}

TEST_F(LabelTest, ItIsAConstituentOfAControlInTheControlsScale) {
    auto& control = form->add<Probe>(u"p");
    control.Extender().Move(20, 100, 60, 20);
    control.ScaleMode(ScaleMode::Pixels);
    const auto inner = automation::make<Label>();
    inner->placeIn(control);
    inner->Move(0, 0, control.ScaleWidth(), control.ScaleHeight());
    inner->BackColor(0x00FF00);
    inner->Caption(u"");
    int clicks = 0;
    inner->Click.join([&] { ++clicks; });
    show(*form);
    EXPECT_EQ(desk.look(control.hWnd()).at(1, 1), 0x00FF00u);
    EXPECT_EQ(inner->Width(), control.ScaleWidth());
    click(control);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(errorOf([&] { inner->Extender().Name(); }), 398);
    form->remove(control);
    EXPECT_EQ(inner->Width(), inner->bounds().width / (inner->home() ? 15 : 1));
}

TEST_F(LabelTest, ZOrderDecidesWhichOfTwoIsSeenAndClicked) {
    auto& other = form->add<Label>(u"Label2");
    other.Move(20, 20, 100, 40);
    other.Caption(u"");
    label->Caption(u"");
    other.BackColor(0x00FF00);
    label->BackColor(0x0000FF);
    show(*form);
    EXPECT_EQ(look().at(50, 30), 0x00FF00u);
    label->Extender().ZOrder();
    EXPECT_EQ(look().at(50, 30), 0x0000FFu);
    label->Extender().ZOrder(ZOrderPosition::Back);
    EXPECT_EQ(look().at(50, 30), 0x00FF00u);
}

TEST_F(LabelTest, ANumberOutsideOfAnEnumerationIsRefused) {
    label->BackStyle(BackStyle::Transparent);
    label->Alignment(Alignment::Center);
    for (const int number : {-1, 2}) {
        EXPECT_EQ(errorOf([&] { label->BackStyle(static_cast<BackStyle>(number)); }), 380);
        EXPECT_EQ(errorOf([&] { label->BorderStyle(static_cast<BorderStyle>(number)); }), 380);
        EXPECT_EQ(errorOf([&] { label->Appearance(static_cast<Appearance>(number)); }), 380);
    }
    for (const int number : {-1, 3})
        EXPECT_EQ(errorOf([&] { label->Alignment(static_cast<Alignment>(number)); }), 380);
    EXPECT_EQ(label->BackStyle(), BackStyle::Transparent);
    EXPECT_EQ(label->BorderStyle(), BorderStyle::None);
    EXPECT_EQ(label->Appearance(), Appearance::ThreeD);
    EXPECT_EQ(label->Alignment(), Alignment::Center);
}

TEST_F(LabelTest, AWrongValueInTheBagIsSkippedAndTheNextIsRead) {
    PropertyBag bag;
    bag.WriteProperty(u"BorderStyle", std::int32_t{5});
    bag.WriteProperty(u"Alignment", std::int32_t{9});
    bag.WriteProperty(u"Enabled", false);
    label->readProperties(bag);
    EXPECT_EQ(label->BorderStyle(), BorderStyle::None);
    EXPECT_EQ(label->Alignment(), Alignment::LeftJustify);
    EXPECT_FALSE(label->Enabled());
}

} // namespace host
