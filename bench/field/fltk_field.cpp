#include "fields.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Input.H>
#include <FL/x.H>

#include "automation/Conversions.h"

#include <string>

namespace bench {

namespace {

class FltkField : public TypingField {
public:
    FltkField() : window_(fieldWidth, fieldHeight), input_(0, 0, fieldWidth, fieldHeight) {
        window_.end();
        window_.show();
        input_.take_focus();
        Fl::check();
    }
    void type(char character) override {
        char text[] = {character, 0};
        Fl::e_keysym = static_cast<unsigned char>(character);
        Fl::e_text = text;
        Fl::e_length = 1;
        input_.handle(FL_KEYBOARD);
        Fl::flush();
    }
    void clear() override {
        input_.value("");
        input_.position(0);
    }

    void finish() override { XSync(fl_display, False); }

private:
    Fl_Double_Window window_;
    Fl_Input input_;
};

} // namespace

std::unique_ptr<TypingField> makeFltkField() {
    return std::make_unique<FltkField>();
}

void showFltkForm() {
    Fl_Double_Window window(formColumns * fieldWidth, formRows * fieldHeight);
    for (int i = 0; i < formFields; ++i) {
        auto* input = new Fl_Input(i % formColumns * fieldWidth, i / formColumns * fieldHeight, fieldWidth,
                                   fieldHeight);
        const host::PropertyBag saved = savedField(i);
        const auto number = [&](const char16_t* name, int usual) {
            return automation::CLng(saved.ReadProperty(name, automation::Variant(usual)));
        };
        const auto text = [&](const char16_t* name) {
            return automation::CStr(saved.ReadProperty(name, automation::Variant(u""))).utf8();
        };
        input->maximum_size(number(u"MaxLength", 0));
        input->textcolor(static_cast<Fl_Color>(number(u"ForeColor", FL_FOREGROUND_COLOR)));
        input->color(static_cast<Fl_Color>(number(u"BackColor", FL_BACKGROUND2_COLOR)));
        input->textsize(number(u"FontSize", FL_NORMAL_SIZE));
        input->readonly(number(u"Locked", 0));
        input->wrap(number(u"MultiLine", 0));
        if (const std::string tip = text(u"ToolTip"); !tip.empty()) input->copy_tooltip(tip.c_str());
        if (!number(u"Enabled", 1)) input->deactivate();
        input->value(text(u"Text").c_str());
    }
    window.end();
    window.show();
    Fl::check();
    Fl::flush();
    XSync(fl_display, False);
}

} // namespace bench
