// The library's labels in a form's file.

#include "frame/controls.h"
#include "frame/lbl.h"
#include "host/Form.h"
#include "host/FormFile.h"
#include "support/Started.h"

using namespace tesela;

namespace {

struct Sample {
    const char16_t* name;
    tslAutoSizeConstants autoSize;
    float width; ///< Twips, as all of them
    float height;
};

constexpr Sample samples[] = {{u"lblFijo", tslAutoSize_NO, 3000, 900},
                              {u"lblEstrecho", tslAutoSize_NO, 450, 195},
                              {u"lblAncho", tslautoSize_X, 0, 0},
                              {u"lblAlto", tslAutoSize_Y, 900, 195}};
constexpr float firstTop = 150;
constexpr float rowHeight = 1050;

class lbl_form : public support::Started {
protected:
    lbl_form() { addControls(classes); }

    /// A form with all samples, one below the other.
    automation::Ref<host::Form> sampleForm() {
        const auto form = automation::make<host::Form>(u"Form1");
        form->SetClientSize(6000, 4500);
        float top = firstTop;
        for (const Sample& sample : samples) {
            lbl& label = form->add<lbl>(sample.name);
            label.AutoSize(tslAutoSize_NO);
            label.Caption(u"Un texto que ocupa varias líneas de poco ancho");
            label.Extender().Move(300, top, sample.width, sample.height);
            label.AutoSize(sample.autoSize);
            top += rowHeight;
        }
        return form;
    }

    host::ControlRegistry classes;
};

} // namespace

TEST_F(lbl_form, PlaceAndSizeComeBackFromTheFile) {
    const auto form = sampleForm();
    const auto copy = automation::make<host::Form>();
    host::FormFile::read(*copy, host::FormFile::text(*form), classes, u"prueba.form");
    for (const Sample& sample : samples) {
        SCOPED_TRACE(automation::String(sample.name).utf8());
        const lbl& saved = form->get<lbl>(sample.name);
        const lbl& read = copy->get<lbl>(sample.name);
        EXPECT_EQ(sample.autoSize, read.AutoSize());
        EXPECT_EQ(saved.Extender().Left(), read.Extender().Left());
        EXPECT_EQ(saved.Extender().Top(), read.Extender().Top());
        EXPECT_EQ(saved.Extender().Width(), read.Extender().Width());
        EXPECT_EQ(saved.Extender().Height(), read.Extender().Height());
    }
    EXPECT_EQ(3000, copy->get<lbl>(u"lblFijo").Extender().Width());
    EXPECT_EQ(900, copy->get<lbl>(u"lblFijo").Extender().Height());
    EXPECT_EQ(900, copy->get<lbl>(u"lblAlto").Extender().Width());
}

TEST_F(lbl_form, ALabelThatFitsItsWidthFitsItAgain) {
    const auto form = sampleForm();
    const float fitting = form->get<lbl>(u"lblAncho").Extender().Width();
    const automation::String line =
        u".Width = Single " + automation::String::fromUtf8(std::to_string(static_cast<int>(fitting)));
    const automation::String text = host::FormFile::text(*form);
    ASSERT_NE(automation::String::npos, text.find(line));
    const auto copy = automation::make<host::Form>();
    host::FormFile::read(*copy, text.replaced(line, u".Width = Single 5000"), classes, u"prueba.form");
    EXPECT_EQ(fitting, copy->get<lbl>(u"lblAncho").Extender().Width());
}

TEST_F(lbl_form, TheRegistryKnowsTheLibrarysControls) {
    EXPECT_TRUE(classes.knows(u"LBL"));
    const auto made = classes.make(u"lbl");
    EXPECT_NE(nullptr, dynamic_cast<lbl*>(made.get()));
    EXPECT_TRUE(classes.knows(u"Label")) << "the host's own stay";
}
