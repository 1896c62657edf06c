#include "fields.h"

#include "field/get.h"
#include "host/Form.h"
#include "host/MessageLoop.h"
#include "platform/windows.h"

#include <malloc.h>
#include <vector>

namespace bench {

namespace {

using tesela::get;

constexpr float pixel = 15; // twips

automation::Ref<host::Form> makeForm() {
    auto form = automation::make<host::Form>(u"form");
    form->Move(0, 0, 0, 0);
    form->SetClientSize(formColumns * fieldWidth * pixel, formRows * fieldHeight * pixel);
    return form;
}

class OurField : public TypingField {
public:
    explicit OurField(const char* mask) : form_(makeForm()), field_(form_->add<get>(u"get1")) {
        field_.Extender().Move(0, 0, fieldWidth * pixel, fieldHeight * pixel);
        field_.Mascara(automation::String::fromUtf8(mask));
        field_.Text({});
        form_->Show();
        host::DoEvents();
    }
    ~OurField() override { form_->unload(); }
    void type(char character) override {
        // What the queue would bring; the picture is finished when the character is handled.
        const auto code = static_cast<platform::WPARAM>(static_cast<unsigned char>(character));
        platform::SendMessageA(field_.hWnd(), platform::WM_KEYDOWN, code, 1);
        platform::SendMessageA(field_.hWnd(), platform::WM_CHAR, code, 1);
        platform::SendMessageA(field_.hWnd(), platform::WM_KEYUP, code, 1);
    }
    void clear() override {
        field_.SetText({});
        field_.Text({});
        field_.SetCaretPosition(0);
    }

private:
    automation::Ref<host::Form> form_;
    get& field_;
};

void fill(host::Form& form) {
    for (int i = 0; i < formFields; ++i) {
        const int column = i % formColumns, row = i / formColumns;
        form.add(automation::make<get>(), u"get" + automation::String::fromUtf8(std::to_string(i)),
                 host::NotInArray, nullptr, &savedFields()[static_cast<std::size_t>(i)],
                 {static_cast<float>(column * fieldWidth) * pixel,
                  static_cast<float>(row * fieldHeight) * pixel, fieldWidth * pixel, fieldHeight * pixel});
    }
}

host::PropertyBag savedField(int number) {
    host::PropertyBag bag;
    bag.WriteProperty(u"Text",
                      automation::Variant(u"Nombre " + automation::String::fromUtf8(std::to_string(number))));
    bag.WriteProperty(u"MaxLength", automation::Variant(std::int32_t{20}));
    bag.WriteProperty(u"Alignment", automation::Variant(std::int32_t{tesela::tslAlignmentRightJustify}));
    return bag;
}

double usedBytes() {
    return static_cast<double>(mallinfo2().uordblks);
}

} // namespace

std::vector<host::PropertyBag>& savedFields() {
    static std::vector<host::PropertyBag> bags = [] {
        std::vector<host::PropertyBag> made;
        made.reserve(formFields);
        for (int i = 0; i < formFields; ++i)
            made.push_back(savedField(i));
        return made;
    }();
    return bags;
}

std::unique_ptr<TypingField> makeOurField(const char* mask) {
    return std::make_unique<OurField>(mask);
}

void showOurForm() {
    const auto form = makeForm();
    fill(*form);
    form->Show();
    host::DoEvents();
    form->unload();
}

IdleField idleField() {
    const auto form = makeForm();
    form->Show();
    host::DoEvents();
    const double bytes = usedBytes();
    const double objects = platform::GetGuiResources(platform::GR_GDIOBJECTS);
    fill(*form);
    host::DoEvents();
    IdleField idle;
    // The bitmaps' pixels are counted with the rest of the heap.
    constexpr double bitmapBytes = 4.0 * fieldWidth * fieldHeight;
    idle.bytes = (usedBytes() - bytes) / formFields - bitmapBytes;
    idle.objects = (platform::GetGuiResources(platform::GR_GDIOBJECTS) - objects) / formFields;
    form->unload();
    return idle;
}

} // namespace bench
