#pragma once
// A form with a field to be tested and a field on either side of it.

#include "automation/LateBound.h"
#include "field/get.h"
#include "host/Form.h"
#include "host/MessageLoop.h"
#include "support/Desk.h"
#include "support/ErrorOf.h"
#include "support/Started.h"

#include <string>
#include <vector>

namespace tests {

using automation::Date;
using automation::String;
using automation::Variant;
using tesela::get;

inline constexpr double emptyDate = -53688;

/// The form isn't shown until a test does; `field` has no focus then either.
class FieldTest : public support::Started {
protected:
    FieldTest() { makeForm(); }
    ~FieldTest() override { form->unload(); }

    void makeForm() {
        form = automation::make<host::Form>(u"Form1");
        form->Move(0, 0, 9000, 6000);
        before = &form->add<get>(u"get0");
        field = &form->add<get>(u"get1");
        after = &form->add<get>(u"get2");
        float top = 300;
        for (get* each : {before, field, after}) {
            each->Extender().Move(300, top, 3000, 300);
            each->Text(u"");
            top += 600;
        }
        field->Change.join([this] { ++changes; });
    }

    /// The library and the form anew in another locale.
    void moveTo(const char* locale) {
        form->unload();
        startIn(locale);
        makeForm();
    }

    /// Shows the form; `before` has the focus.
    void show() {
        form->Show();
        desk.pump();
    }
    /// Shows the form if it isn't, and walks into the field.
    void enter() {
        if (!form->Visible()) show();
        press(platform::VK_TAB);
    }
    void press(int key) {
        desk.strikeKey(key);
        desk.pump();
    }
    void press(int modifier, int key) {
        desk.pressKey(modifier);
        desk.strikeKey(key);
        desk.releaseKey(modifier);
        desk.pump();
    }
    void type(std::u16string_view text) {
        desk.type(text);
        desk.pump();
    }
    void leave() { press(platform::VK_TAB); }
    std::string text() const { return field->Text().utf8(); }

    support::Desk desk;
    automation::Ref<host::Form> form;
    get* before = nullptr;
    get* field = nullptr;
    get* after = nullptr;
    int changes = 0;
    std::string events; ///< What a test notes; the form may still raise some as it is unloaded
};

} // namespace tests
