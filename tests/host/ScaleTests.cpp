#include "HostTest.h"

#include "host/ScaleMode.h"
#include "host/Screen.h"
#include "platform/gdi.h"

namespace host {

class ScaleTest : public HostTest {};

TEST_F(ScaleTest, APixelIsFifteenTwipsAtNinetySixDots) {
    EXPECT_EQ(twipsPerPixel(Axis::Horizontal), 15);
    EXPECT_EQ(twipsPerPixel(Axis::Vertical), 15);
    EXPECT_EQ(Screen::TwipsPerPixelX(), 15);
    EXPECT_EQ(Screen::TwipsPerPixelY(), 15);
}

TEST_F(ScaleTest, EachUnitConvertsToEachOther) {
    auto form = makeForm();
    struct Case {
        ScaleMode mode;
        float perInch;
    };
    const Case cases[] = {{ScaleMode::Twips, 1440},        {ScaleMode::Points, 72},
                          {ScaleMode::Pixels, 96},         {ScaleMode::Characters, 12},
                          {ScaleMode::Inches, 1},          {ScaleMode::Millimeters, 25.4F},
                          {ScaleMode::Centimeters, 2.54F}, {ScaleMode::Himetric, 2540}};
    for (const Case& from : cases) {
        for (const Case& to : cases)
            EXPECT_NEAR(form->ScaleX(from.perInch, from.mode, to.mode), to.perInch, to.perInch * 1e-5)
                << static_cast<int>(from.mode) << " to " << static_cast<int>(to.mode);
    }
    EXPECT_EQ(form->ScaleY(6, ScaleMode::Characters, ScaleMode::Inches), 1);
}

TEST_F(ScaleTest, TheUnitsDefaultToHimetricAndTheWindowsOwn) {
    auto form = makeForm();
    form->ScaleMode(ScaleMode::Pixels);
    EXPECT_NEAR(form->ScaleX(2540), 96, 1e-3);
    EXPECT_EQ(form->ScaleX(30, ScaleMode::Twips), 2);
}

TEST_F(ScaleTest, AModeThatDoesNotExistIsAnError) {
    auto form = makeForm();
    EXPECT_EQ(errorOf([&] { form->ScaleMode(static_cast<ScaleMode>(11)); }), 380);
    EXPECT_EQ(errorOf([&] { form->ScaleX(1, static_cast<ScaleMode>(-1), ScaleMode::Twips); }), 380);
}

TEST_F(ScaleTest, ScaleWidthAndHeightMeasureTheClientArea) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    EXPECT_EQ(control.ScaleWidth(), 900);
    control.ScaleMode(ScaleMode::Pixels);
    EXPECT_EQ(control.ScaleWidth(), 60);
    EXPECT_EQ(control.ScaleHeight(), 20);
}

TEST_F(ScaleTest, WritingAScaleSideMakesUserUnits) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    control.ScaleWidth(100);
    EXPECT_EQ(control.ScaleMode(), ScaleMode::User);
    EXPECT_NEAR(control.ScaleWidth(), 100, 1e-4);
    EXPECT_NEAR(control.ScaleX(50, ScaleMode::User, ScaleMode::Pixels), 30, 1e-4);
    EXPECT_EQ(errorOf([&] { control.ScaleWidth(0); }), 380);
}

TEST_F(ScaleTest, ContainerUnitsAreTheContainersScale) {
    auto form = makeForm();
    form->ScaleMode(ScaleMode::Pixels);
    auto& control = form->add<Probe>(u"p");
    EXPECT_EQ(control.ScaleX(2, ScaleMode::ContainerSize, ScaleMode::Twips), 30);
}

TEST_F(ScaleTest, TextExtentsAreTheFontsInTheWindowsScale) {
    auto form = makeForm();
    auto& control = probe(*form, u"p", 0);
    control.ScaleMode(ScaleMode::Pixels);
    const float one = control.TextHeight(u"Á");
    EXPECT_EQ(control.TextHeight(u"Á\r\nB\nC"), 3 * one);
    EXPECT_EQ(control.TextWidth(u"W\r\nWWW"), control.TextWidth(u"WWW"));
    EXPECT_GT(control.TextWidth(u"WWW"), control.TextWidth(u"W"));
    EXPECT_EQ(control.TextWidth(u""), 0);
    control.ScaleMode(ScaleMode::Twips);
    EXPECT_EQ(control.TextHeight(u"Á"), one * 15);
    control.Font()->Name(u"Arial");
    control.Font()->Size(24);
    EXPECT_GT(control.TextHeight(u"Á"), one * 30);
}

TEST_F(ScaleTest, ColoursWithTheTopBitAreTheSystems) {
    EXPECT_EQ(rgbFromOle(0x00123456), 0x123456u);
    EXPECT_EQ(rgbFromOle(colorButtonFace), platform::GetSysColor(platform::COLOR_BTNFACE));
    EXPECT_EQ(rgbFromOle(static_cast<OLE_COLOR>(0x80000008u)),
              platform::GetSysColor(platform::COLOR_WINDOWTEXT));
}

} // namespace host
