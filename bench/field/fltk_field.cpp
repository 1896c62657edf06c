#include "fields.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Input.H>
#include <FL/fl_draw.H>
#include <FL/x.H>

#include "automation/Conversions.h"
#include "frame/enumerations.h"

#include <string>

namespace bench {

namespace {

/// A window that waits for its first picture: the server asks for it some time after the window is shown, and
/// until then the library paints nothing.
class PaintedWindow : public Fl_Double_Window {
public:
    using Fl_Double_Window::Fl_Double_Window;
    void showPainted() {
        show();
        while (!painted_) {
            Fl::wait();
            Fl::flush();
        }
        XSync(fl_display, False);
    }

protected:
    void draw() override {
        painted_ = true;
        Fl_Double_Window::draw();
    }

private:
    bool painted_ = false;
};

/// An input whose text may stand at the right, which the library's own always has at the left.
class AlignedInput : public Fl_Input {
public:
    using Fl_Input::Fl_Input;
    void alignRight() { right_ = true; }

protected:
    void draw() override {
        if (!right_ || Fl::focus() == this) {
            Fl_Input::draw();
            return;
        }
        draw_box();
        fl_font(textfont(), textsize());
        fl_color(active_r() ? textcolor() : fl_inactive(textcolor()));
        constexpr int gap = 3; // pixels that inputs keep free beside their text
        const int across = x() + w() - Fl::box_dx(box()) - gap;
        const int down = y() + (h() + fl_height()) / 2 - fl_descent();
        fl_push_clip(x(), y(), w(), h());
        fl_draw(value(), size(), across - static_cast<int>(fl_width(value(), size())), down);
        fl_pop_clip();
    }

private:
    bool right_ = false;
};

class FltkField : public TypingField {
public:
    FltkField() : window_(fieldWidth, fieldHeight), input_(0, 0, fieldWidth, fieldHeight) {
        window_.end();
        input_.textsize(fontPixels);
        window_.showPainted();
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
    PaintedWindow window_;
    Fl_Input input_;
};

void apply(AlignedInput& input, const automation::String& name, const automation::Variant& value) {
    if (name == u"Text")
        input.value(automation::CStr(value).utf8().c_str());
    else if (name == u"MaxLength")
        input.maximum_size(automation::CLng(value));
    else if (name == u"Alignment" && automation::CLng(value) == tesela::tslAlignmentRightJustify)
        input.alignRight();
}

} // namespace

std::unique_ptr<TypingField> makeFltkField() {
    return std::make_unique<FltkField>();
}

void showFltkForm() {
    {
        PaintedWindow window(formColumns * fieldWidth, formRows * fieldHeight);
        for (int i = 0; i < formFields; ++i) {
            auto* input = new AlignedInput(i % formColumns * fieldWidth, i / formColumns * fieldHeight,
                                           fieldWidth, fieldHeight);
            input->textsize(fontPixels);
            for (const auto& [name, value] : savedFields()[static_cast<std::size_t>(i)].items())
                apply(*input, name, value);
        }
        window.end();
        window.showPainted();
    }
    XSync(fl_display, False); // the server takes the window down in this time
}

} // namespace bench
