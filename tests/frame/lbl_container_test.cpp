// What the label tells its container, and the sizes that it asks for.
#include "frame/lbl.h"
#include "host/Form.h"
#include "support/Desk.h"
#include "support/RecordingSite.h"
#include "support/Started.h"

#include <algorithm>

using namespace tesela;

namespace {

using Names = std::vector<std::string>;

Names joined(const std::vector<Names>& parts) {
    Names all;
    for (const Names& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

/// A label without AutoSize, of 1500 by 900 twips, whose container writes down what it hears from now on.
class lblInAContainer : public support::Started {
protected:
    lblInAContainer() {
        form->load();
        site =
            std::make_unique<support::RecordingSite>(*label, form->hWnd(), host::Bounds{300, 300, 1500, 900});
        label->AutoSize(tslAutoSize_NO);
        resize(1500, 900);
        forget();
    }
    ~lblInAContainer() override {
        site.reset();
        form->unload();
    }

    /// As the container, or the user who designs the form, does it.
    void resize(float width, float height) { label->applyBounds({300, 300, width, height}); }
    void forget() {
        site->changed.clear();
        site->askedFor.clear();
    }

    support::Desk desk;
    automation::Ref<host::Form> form = automation::make<host::Form>();
    automation::Ref<lbl> label = automation::make<lbl>();
    std::unique_ptr<support::RecordingSite> site;
};

} // namespace

TEST_F(lblInAContainer, EverySetterOfASavedPropertyReportsIt) {
    const struct {
        void (*set)(lbl&);
        Names reported;
    } setters[] = {
        {[](lbl& l) { l.Alias(u"clientes"); }, {"Alias"}},
        {[](lbl& l) { l.Campo(u"nombre"); }, {"Campo"}},
        {[](lbl& l) { l.TipoDato(tslTipoDatoFecha); }, {"TipoDato"}},
        {[](lbl& l) { l.Enabled(false); }, {"Enabled"}},
        {[](lbl& l) { l.Caption(u"Nombre"); }, {"Caption"}},
        {[](lbl& l) { l.ToolTip(u"ayuda"); }, {"ToolTip"}},
        {[](lbl& l) { l.BackColor(0x112233); }, {"BackColor"}},
        {[](lbl& l) { l.ForeColor(0x445566); }, {"ForeColor"}},
        {[](lbl& l) { l.BackStyle(tslBackStyleTransparent); }, {"BackStyle"}},
        {[](lbl& l) { l.BorderStyle(tslBorderStyleFixedSingle); }, {"BorderStyle"}},
        {[](lbl& l) { l.Font(automation::make<host::StdFont>()); }, {"AutoSize", "Font"}},
        {[](lbl& l) { l.Alignment(tslAlignmentCenter); }, {"Alignment"}},
        {[](lbl& l) { l.Scheme(tslSchemeUseActual); }, {"Scheme"}},
        {[](lbl& l) { l.AutoSize(tslautoSize_X); }, {"AutoSize"}},
        {[](lbl& l) { l.Caption(u"Con AutoSize"); }, {"AutoSize", "Caption"}},
    };
    for (const auto& setter : setters) {
        for (const char* mode : {"at run time", "at design time"}) {
            site->userMode = mode == std::string("at run time");
            forget();
            setter.set(*label);
            EXPECT_EQ(setter.reported, site->changed) << mode;
        }
    }
}

TEST_F(lblInAContainer, EachSchemeReportsWhatItSetsAndItselfLast) {
    for (const auto scheme : {tslSchemeUseAmbient, tslSchemeUseDefault, tslSchemeHeader_A}) {
        forget();
        label->Scheme(scheme);
        for (const char* name :
             {"BackColor", "ForeColor", "TipoDato", "BackStyle", "BorderStyle", "Alignment", "AutoSize"})
            EXPECT_TRUE(std::count(site->changed.begin(), site->changed.end(), name)) << scheme << name;
        ASSERT_FALSE(site->changed.empty());
        EXPECT_EQ("Scheme", site->changed.back());
    }
}

TEST_F(lblInAContainer, ANewOneSetsItsPropertiesInTheirOrder) {
    label->UserControl_InitProperties();
    const Names scheme{"BackColor",   "ForeColor", "TipoDato", "BackStyle",
                       "BorderStyle", "Alignment", "AutoSize", "Scheme"};
    const Names own{"AutoSize", "Caption",  "ToolTip", "BackColor", "ForeColor",
                    "Enabled",  "TipoDato", "Alias",   "Campo"};
    EXPECT_EQ(joined({scheme, own}), site->changed);
}

TEST_F(lblInAContainer, ASavedOneReadsItsPropertiesInTheirOrder) {
    host::PropertyBag bag;
    bag.WriteProperty(u"Scheme", automation::Variant(std::int32_t{tslSchemeUseActual}));
    label->AutoSize(tslautoSize_X);
    forget();
    label->readProperties(bag);
    EXPECT_EQ((Names{"Scheme", "Alias", "Campo", "TipoDato", "Enabled", "AutoSize", "Caption", "ToolTip",
                     "BackColor", "ForeColor", "BackStyle", "BorderStyle", "AutoSize", "Font", "Alignment",
                     "AutoSize"}),
              site->changed);
}

TEST_F(lblInAContainer, AnUnknownAutoSizeChangesNothing) {
    for (const auto kept : {tslAutoSize_NO, tslautoSize_X, tslAutoSize_Y}) {
        label->AutoSize(kept);
        forget();
        label->AutoSize(static_cast<tslAutoSizeConstants>(4));
        label->AutoSize(static_cast<tslAutoSizeConstants>(-1));
        EXPECT_EQ(kept, label->AutoSize());
        EXPECT_TRUE(site->askedFor.empty());
        EXPECT_EQ((Names{"AutoSize", "AutoSize"}), site->changed);
    }
}

TEST_F(lblInAContainer, LiveIsNotReported) {
    label->Live(false);
    label->Live(true);
    EXPECT_EQ(Names{}, site->changed);
}

TEST_F(lblInAContainer, ASchemeAsksForOneLineBeforeItFitsTheText) {
    label->Caption(u"Nombre");
    for (const auto scheme :
         {tslSchemeUseAmbient, tslSchemeUseDefault, tslSchemeHeader_A, tslSchemeHeader_B}) {
        label->AutoSize(tslAutoSize_NO);
        resize(1500, 900);
        forget();
        label->Scheme(scheme);
        ASSERT_FALSE(site->askedFor.empty());
        EXPECT_EQ(std::make_pair(1500.0F, 195.0F), site->askedFor.front()) << scheme;
        EXPECT_EQ(tslautoSize_X, label->AutoSize());
    }
    label->Scheme(tslSchemeUseDefault);
    EXPECT_EQ(195, label->Height()) << "one line of the default font";
}

TEST_F(lblInAContainer, TheAmbientSchemeResetsTheLayout) {
    label->TipoDato(tslTipoDatoFecha);
    label->BackStyle(tslBackStyleTransparent);
    label->BorderStyle(tslBorderStyleFixedSingle);
    label->Alignment(tslAlignmentCenter);
    label->Scheme(tslSchemeUseAmbient);
    EXPECT_EQ(tslTipoDatoCaracter, label->TipoDato());
    EXPECT_EQ(tslBackStyleOpaque, label->BackStyle());
    EXPECT_EQ(tslBorderStyleNone, label->BorderStyle());
    EXPECT_EQ(tslAlignmentLeftJustify, label->Alignment());
    EXPECT_EQ(tslautoSize_X, label->AutoSize());
}

TEST_F(lblInAContainer, ResizedFromOutsideItGoesBackToItsText) {
    label->Caption(u"Nombre");
    label->AutoSize(tslautoSize_X);
    const host::Bounds fitted = label->bounds();
    ASSERT_LT(fitted.width, 1500);
    for (const float factor : {2.0F, 0.5F}) {
        resize(fitted.width * factor, fitted.height * factor);
        EXPECT_EQ(fitted.width, label->bounds().width);
        EXPECT_EQ(fitted.height, label->bounds().height);
    }
}

TEST_F(lblInAContainer, ResizedFromOutsideAWrappedOneKeepsWidthAndHeight) {
    label->Caption(u"Un texto que ocupa varias líneas de poco ancho");
    resize(900, 195);
    label->AutoSize(tslAutoSize_Y);
    const host::Bounds fitted = label->bounds();
    ASSERT_EQ(900, fitted.width);
    ASSERT_GE(fitted.height, 3 * 195);
    for (const float factor : {2.0F, 0.5F}) {
        resize(fitted.width * factor, fitted.height * factor);
        EXPECT_EQ(fitted.width, label->bounds().width);
        EXPECT_EQ(fitted.height, label->bounds().height);
    }
}

TEST_F(lblInAContainer, WithoutAutoSizeItKeepsTheSizeThatItIsGiven) {
    label->Caption(u"Nombre");
    forget();
    resize(600, 1200);
    EXPECT_EQ(600, label->Width());
    EXPECT_EQ(1200, label->Height());
    EXPECT_TRUE(site->askedFor.empty());
}
