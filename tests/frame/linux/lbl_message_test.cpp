// The look of the label's message to who designs a form.
#include "frame/lbl.h"
#include "host/Form.h"
#include "host/Label.h"
#include "host/MsgBox.h"
#include "host/Screen.h"
#include "host/Timer.h"
#include "support/Desk.h"
#include "support/Started.h"

#include <functional>

using namespace tesela;

namespace {

class lblMessage : public support::Started {
protected:
    struct Box {
        automation::String title, text;
        support::Picture picture;
    };

    /// The message box that `open` brings up; it is answered with Enter.
    Box boxOf(const std::function<void()>& open) {
        Box box;
        const auto timer = automation::make<host::Timer>();
        timer->Tick.join([&] {
            const host::Form* form = host::Screen::ActiveForm();
            if (!form) return;
            timer->Enabled(false);
            platform::UpdateWindow(form->hWnd());
            box = {form->Caption(), form->get<host::Label>(u"Text").Caption(), desk.look(form->hWnd())};
            desk.strikeKey(platform::VK_RETURN);
        });
        timer->Interval(20);
        open();
        return box;
    }

    support::Desk desk;
};

} // namespace

TEST_F(lblMessage, BearsTheExclamationMark) {
    const auto form = automation::make<host::Form>();
    form->UserMode(false);
    lbl& label = form->add<lbl>(u"lbl1");
    const Box ours = boxOf([&] { label.AutoSize(tslAutoSize_XY); });
    const auto same = [&](host::MsgBoxStyle style) {
        return ours.picture == boxOf([&] { host::MsgBox(ours.text, style, ours.title); }).picture;
    };
    ASSERT_FALSE(ours.picture.pixels.empty());
    EXPECT_TRUE(same(host::MsgBoxStyle::Exclamation));
    EXPECT_FALSE(same(host::MsgBoxStyle::Critical));
    EXPECT_FALSE(same(host::MsgBoxStyle::OkOnly));
    form->unload();
}
