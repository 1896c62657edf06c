// The label's pixels.
#include "frame/lbl.h"
#include "host/Form.h"
#include "support/Desk.h"
#include "support/Started.h"

using namespace tesela;

namespace {

constexpr platform::COLORREF grey = 0x808080, yellow = 0x00FFFF, red = 0x0000FF;
constexpr platform::RECT place{20, 20, 120, 50};

/// A grey form with a yellow label of 100 by 30 pixels and no text, red if there were any, without AutoSize.
class lblPainted : public support::Started {
protected:
    lblPainted() {
        form->Move(0, 0, 6000, 4500);
        form->BackColor(grey);
        label = &form->add<lbl>(u"lbl1");
        label->AutoSize(tslAutoSize_NO);
        label->Extender().Move(300, 300, 1500, 450);
        label->Caption(u"");
        label->BackColor(yellow);
        label->ForeColor(red);
        form->Show();
    }
    ~lblPainted() override { form->unload(); }

    support::Picture look() {
        desk.pump();
        return desk.look(form->hWnd());
    }
    static int count(const support::Picture& picture, platform::RECT area, platform::COLORREF colour) {
        int found = 0;
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x)
                found += picture.at(x, y) == colour;
        return found;
    }
    static int area(platform::RECT r) { return (r.right - r.left) * (r.bottom - r.top); }
    /// Pixels outside of the label's place that are not the form's.
    static int foreignOutside(const support::Picture& picture) {
        const platform::RECT all{0, 0, picture.width, picture.height};
        return area(all) - area(place) - (count(picture, all, grey) - count(picture, place, grey));
    }

    support::Desk desk;
    automation::Ref<host::Form> form = automation::make<host::Form>();
    lbl* label = nullptr;
};

} // namespace

TEST_F(lblPainted, TheInnerLabelFillsTheControl) {
    const auto picture = look();
    EXPECT_EQ(area(place), count(picture, place, yellow));
    EXPECT_EQ(0, foreignOutside(picture));
    label->Extender().Move(300, 300, 750, 300);
    EXPECT_EQ(50 * 20, count(look(), {0, 0, 300, 200}, yellow)) << "it follows the control's size";
}

TEST_F(lblPainted, TextWithoutAutoSizeIsClippedAtTheEdge) {
    label->Caption(u"WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW");
    const auto picture = look();
    EXPECT_GT(count(picture, {110, 20, 120, 50}, red), 0) << "the text reaches the edge";
    EXPECT_EQ(0, foreignOutside(picture));
}

TEST_F(lblPainted, ATransparentOneShowsTheFormBehindItsText) {
    label->BackStyle(tslBackStyleTransparent);
    EXPECT_EQ(area(place), count(look(), place, grey));
    label->Caption(u"Nombre");
    const auto picture = look();
    EXPECT_GT(count(picture, place, red), 0);
    EXPECT_GT(count(picture, place, grey), area(place) / 2);
    EXPECT_EQ(0, count(picture, place, yellow));
    label->BackStyle(tslBackStyleOpaque);
    EXPECT_EQ(0, count(look(), place, grey));
}

TEST_F(lblPainted, RefreshPaintsAtOnce) {
    look();
    label->BackColor(red);
    EXPECT_EQ(area(place), count(desk.look(form->hWnd()), place, yellow)) << "painting waits";
    label->Refresh();
    EXPECT_EQ(area(place), count(desk.look(form->hWnd()), place, red));
}

TEST_F(lblPainted, TheHandleIsThatOfItsWindowOnTheForm) {
    const platform::HWND window(static_cast<std::uint32_t>(label->hWND()));
    EXPECT_TRUE(platform::IsWindow(window));
    EXPECT_EQ(form->hWnd(), platform::GetParent(window));
    platform::RECT client;
    ASSERT_TRUE(platform::GetClientRect(window, &client));
    EXPECT_EQ(100, client.right);
    EXPECT_EQ(30, client.bottom);
}

TEST_F(lblPainted, ADeadOneIsNotToBeSeen) {
    label->Live(false);
    EXPECT_EQ(area(place), count(look(), place, grey));
    label->Live(true);
    EXPECT_EQ(area(place), count(look(), place, yellow));
}

TEST_F(lblPainted, TheInnerLabelOfADeadOneIsHiddenToo) {
    label->Live(false);
    label->Extender().Visible(true);
    EXPECT_EQ(0, count(look(), place, yellow)) << "the control alone";
    label->Live(true);
    EXPECT_EQ(area(place), count(look(), place, yellow));
}
