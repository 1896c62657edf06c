#include "HostTest.h"

#include "host/FormFile.h"
#include "host/Label.h"
#include "host/PictureBox.h"
#include "support/TemporaryFolder.h"

namespace host {

class FormFileTest : public HostTest {
protected:
    FormFileTest() { classes.add<Probe>(u"Probe"); }

    automation::Ref<Form> sample() {
        auto form = makeForm(u"clientes");
        form->Caption(u"Clientes de «Año Nuevo»");
        form->BackColor(0x123456);
        form->Font()->Name(u"Arial");
        form->SetClientSize(6000, 3000);
        auto& label = form->add<Label>(u"lblNombre");
        label.Caption(u"&Nombre");
        label.Font()->Bold(true);
        label.Move(120, 240, 900, 195);
        auto& first = probe(*form, u"campo", 0, 0);
        first.Value(u"uno");
        first.Extender().Tag(u"línea 1\r\nlínea 2");
        first.Extender().ToolTipText(u"ayuda");
        first.Extender().TabIndex(0);
        auto& second = probe(*form, u"campo", 1, 3);
        second.Extender().Visible(false);
        second.Extender().CausesValidation(false);
        auto& box = form->add<PictureBox>(u"caja");
        box.ScaleMode(ScaleMode::Pixels);
        form->add<Probe>(u"dentro", NotInArray, &box).Extender().Move(4, 5, 60, 20);
        return form;
    }
    std::string failure(const char16_t* text) {
        auto form = makeForm();
        try {
            FormFile::read(*form, text, classes, u"roto.form");
        } catch (const automation::Error& error) {
            EXPECT_EQ(error.number(), 321);
            EXPECT_TRUE(form->controls().empty()) << "a broken file changes nothing";
            return error.description().utf8();
        }
        return "read";
    }

    ControlRegistry classes;
};

TEST_F(FormFileTest, AFormReadsBackAsItWasWritten) {
    auto form = sample();
    const automation::String text = FormFile::text(*form);
    auto copy = automation::make<Form>();
    FormFile::read(*copy, text, classes, u"clientes.form");
    EXPECT_EQ(copy->Name(), u"clientes");
    EXPECT_EQ(copy->ScaleWidth(), 6000);
    EXPECT_EQ(copy->get<Label>(u"lblNombre").Caption(), u"&Nombre");
    EXPECT_TRUE(copy->get<Label>(u"lblNombre").Font()->Bold());
    auto& first = copy->get<Probe>(u"campo", 0);
    EXPECT_EQ(first.Value(), u"uno");
    EXPECT_EQ(first.Extender().Tag(), u"línea 1\r\nlínea 2");
    EXPECT_EQ(first.log, (Log{"Initialize", "ReadProperties", "Resize", "Show"}));
    EXPECT_FALSE(copy->get<Probe>(u"campo", 3).Extender().Visible());
    EXPECT_EQ(copy->get<Probe>(u"dentro").containerWindow(), &copy->get<PictureBox>(u"caja"));
    EXPECT_EQ(copy->get<Probe>(u"dentro").Extender().Left(), 4);
    EXPECT_EQ(first.Extender().TabIndex(), 0);
    EXPECT_FALSE(copy->Dirty());
    EXPECT_EQ(FormFile::text(*copy).utf8(), text.utf8());
}

TEST_F(FormFileTest, TheTextIsReadable) {
    auto form = sample();
    const std::string text = FormFile::text(*form).utf8();
    EXPECT_NE(text.find("Begin Form \"clientes\"\n"), std::string::npos);
    EXPECT_NE(text.find("    Caption = \"Clientes de «Año Nuevo»\"\n"), std::string::npos);
    EXPECT_NE(text.find("    Begin Probe \"campo\" 3\n        .Left = Single 150\n"), std::string::npos);
    EXPECT_NE(text.find("            Name = \"Arial\"\n"), std::string::npos);
    EXPECT_EQ(text.find("Enabled"), std::string::npos) << "defaults cost nothing";
}

TEST_F(FormFileTest, WhatCoversWhatIsSavedWithTheForm) {
    auto form = makeForm(u"pila");
    auto& box = form->add<PictureBox>(u"caja");
    for (const char16_t* name : {u"a", u"b", u"c"}) {
        form->add<Label>(automation::String(u"lbl") + name);
        probe(*form, name, 0).Extender().TabIndex(0);
        form->add<Probe>(automation::String(u"dentro") + name, NotInArray, &box);
    }
    const automation::String unstacked = FormFile::text(*form);
    EXPECT_LT(unstacked.utf8().find("\"lbla\""), unstacked.utf8().find("\"a\"")) << "as they were made";
    form->get<Probe>(u"b").Extender().ZOrder();
    form->get<Probe>(u"c").Extender().ZOrder(ZOrderPosition::Back);
    form->get<Probe>(u"dentroa").Extender().ZOrder();
    form->get<Label>(u"lblc").Extender().ZOrder(ZOrderPosition::Back);
    const auto stacked = [](Form& of) {
        std::string names;
        for (platform::HWND parent : {of.hWnd(), of.get<PictureBox>(u"caja").hWnd()})
            for (platform::HWND w = platform::GetTopWindow(parent); w;
                 w = platform::GetWindow(w, platform::GW_HWNDNEXT))
                for (Control* control : of.controls())
                    if (control->window() == w) names += control->Extender().Name().utf8() + ' ';
        for (const Label* label : of.labels())
            names += label->Extender().Name().utf8() + ' ';
        return names;
    };
    EXPECT_EQ("b a caja c dentroa dentroc dentrob lblc lbla lblb ", stacked(*form));
    const automation::String text = FormFile::text(*form);
    auto copy = automation::make<Form>();
    FormFile::read(*copy, text, classes, u"pila.form");
    EXPECT_EQ(stacked(*form), stacked(*copy));
    EXPECT_EQ(copy->get<Probe>(u"c").Extender().TabIndex(), 0)
        << "the order of the Tab key is another matter";
    EXPECT_EQ(FormFile::text(*copy).utf8(), text.utf8());
}

TEST_F(FormFileTest, TimersAreSavedWithTheForm) {
    auto form = makeForm(u"reloj");
    form->addTimer(u"tmrSegundos").Interval(1000);
    form->addTimer(u"tmrAvisos", 0);
    form->addTimer(u"tmrAvisos", 1).Enabled(false);
    form->findTimer(u"tmrAvisos", 1)->Interval(65535);
    const automation::String text = FormFile::text(*form);
    EXPECT_NE(text.utf8().find("    Begin Timer \"tmrSegundos\"\n        Interval = Long 1000\n    End\n"),
              std::string::npos);

    auto copy = automation::make<Form>();
    FormFile::read(*copy, text, classes, u"reloj.form");
    ASSERT_EQ(copy->timers().size(), 3U);
    EXPECT_EQ(copy->findTimer(u"TMRsegundos")->Interval(), 1000);
    EXPECT_TRUE(copy->findTimer(u"tmrSegundos")->Enabled());
    EXPECT_EQ(copy->findTimer(u"tmrAvisos", 0)->Interval(), 0);
    EXPECT_EQ(copy->findTimer(u"tmrAvisos", 1)->Interval(), 65535);
    EXPECT_FALSE(copy->findTimer(u"tmrAvisos", 1)->Enabled());
    EXPECT_EQ(FormFile::text(*copy).utf8(), text.utf8());

    int ticks = 0;
    copy->findTimer(u"tmrSegundos")->Tick.join([&] { ++ticks; });
    desk.advance(1100);
    desk.pump();
    EXPECT_EQ(ticks, 1);
}

TEST_F(FormFileTest, FilesAreInUtf8) {
    const support::TemporaryFolder folder;
    auto form = sample();
    const automation::String file = folder.file(u"clientes.form");
    form->Dirty(true);
    FormFile::save(*form, file);
    EXPECT_FALSE(form->Dirty());
    auto copy = automation::make<Form>();
    FormFile::load(*copy, file, classes);
    EXPECT_EQ(copy->Caption(), u"Clientes de «Año Nuevo»");
    EXPECT_EQ(errorOf([&] { FormFile::load(*copy, folder.file(u"no.form"), classes); }), 53);
    EXPECT_EQ(errorOf([&] { FormFile::save(*copy, folder.file(u"no/existe.form")); }), 75);
}

TEST_F(FormFileTest, ABrokenTextSaysWhereInFileAndLine) {
    struct Case {
        const char16_t* text;
        const char* begins;
    };
    const Case cases[] = {
        {u"", "roto.form:1: se esperaba"},
        {u"Begin Form \"f\"\n", "roto.form:1: falta el \"End\""},
        {u"Begin Form \"f\n", "roto.form:1: falta la comilla"},
        {u"\nBegin Form \"f\"\nCaption \"x\"\nEnd", "roto.form:3: se esperaba \"=\""},
        {u"Begin Form \"f\"\nCaption = \"x\nEnd", "roto.form:2: falta la comilla"},
        {u"Begin Form \"f\"\nCaption = \"x\\q\"\nEnd", "roto.form:2: secuencia desconocida"},
        {u"Begin Form \"f\"\nCaption = \"\\u12\"\nEnd", "roto.form:2: \"\\u\" necesita"},
        {u"Begin Form \"f\"\nCaption = \"x\" y\nEnd", "roto.form:2: sobra texto"},
        {u"Begin Form \"f\"\n\n\nWidth = Long 1x\nEnd", "roto.form:4: el número no es válido: 1x"},
        {u"Begin Form \"f\"\nWidth = Integer 40000\nEnd", "roto.form:2: el número no es válido"},
        {u"Begin Form \"f\"\nWidth = Currency 1.23456\nEnd", "roto.form:2: el número no es válido"},
        {u"Begin Form \"f\"\nWidth = Entero 1\nEnd", "roto.form:2: tipo desconocido: Entero"},
        {u"Begin Form \"f\"\nWidth = Quizás\nEnd", "roto.form:2: valor desconocido"},
        {u"Begin Form \"f\"\nA = True\nA = False\nEnd", "roto.form:3: la propiedad está repetida: A"},
        {u"Begin Form \"f\"\nBegin Nadie \"n\"\nEnd\nEnd", "roto.form:2: clase desconocida: Nadie"},
        {u"Begin Form \"f\"\nBegin Timer \"t\"\nInterval = Long 65536\nEnd\nEnd",
         "roto.form:2: el Timer no es"},
        {u"Begin Form \"f\"\nBegin Timer \"t\"\nEnabled = \"a veces\"\nEnd\nEnd",
         "roto.form:2: el Timer no es"},
        {u"Begin Form \"f\"\nBegin Timer \"t\"\nBegin Label \"l\"\nEnd\nEnd\nEnd",
         "roto.form:3: un Timer no"},
        {u"Begin Form \"f\"\nBegin Label \"n\" -1\nEnd\nEnd", "roto.form:2: el índice no es válido"},
        {u"Begin Form \"f\"\nFont = Font\nSize = Long 3\n", "roto.form:2: falta el \"End\""},
        {u"Begin Form \"f\"\nFont = Font\nGordura = Long 3\nEnd\nEnd", "roto.form:2: la fuente no es válida"},
        {u"Begin Form \"f\"\nIcon = Picture\nABC\nEnd\nEnd", "roto.form:3: la imagen tiene un número impar"},
        {u"Begin Form \"f\"\nIcon = Picture\nABCG\nEnd\nEnd", "roto.form:3: la imagen tiene cifras"},
        {u"Begin Form \"f\"\nIcon = Picture\nABCD\nEnd\nEnd", "roto.form:2: la imagen no es válida"},
        {u"Begin Form \"f\"\nEnd\nEnd", "roto.form:3: hay texto después"},
    };
    for (const Case& each : cases)
        EXPECT_EQ(failure(each.text).substr(0, std::string(each.begins).size()), each.begins);
}

TEST_F(FormFileTest, EndlessNestingIsRefused) {
    std::u16string text = u"Begin Form \"f\"\n";
    for (int i = 0; i < 100000; ++i)
        text += u"Begin Label \"l\"\n";
    EXPECT_NE(failure(text.c_str()).find("demasiados niveles"), std::string::npos);
}

TEST_F(FormFileTest, ClassNamesAreReadInAnyCaseAndIndentationIsFree) {
    auto form = makeForm();
    FormFile::read(
        *form, u"\uFEFF  Begin Form \"f\"\r\n\r\n\tBegin LABEL \"l\"\r\n Caption = \"x\"\r\nEnd\r\nEnd\r\n",
        classes, u"f");
    EXPECT_EQ(form->get<Label>(u"l").Caption(), u"x");
}

} // namespace host
