#include "fields.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Input.H>
#include <FL/x.H>

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
        input->maximum_size(20);
        input->value(("Nombre " + std::to_string(i)).c_str());
    }
    window.end();
    window.show();
    Fl::check();
    Fl::flush();
    XSync(fl_display, False);
}

} // namespace bench
