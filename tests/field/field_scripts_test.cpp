// The scripts of tests/field/scripts, played on the field of a form with injected keys.
#include "automation/LateBound.h"
#include "field/FieldTest.h"
#include "field/ScriptPlayer.h"

using automation::String;
using automation::Variant;
using tesela::get;

namespace {

/// The player outlives the form, which may raise events to its end.
class FieldScripts : public tests::ScriptPlayer,
                     public tests::FieldTest,
                     public ::testing::WithParamInterface<std::size_t> {
protected:
    FieldScripts() { listen(); }

    void moveTo(const std::string& locale) override {
        FieldTest::moveTo(locale.c_str());
        listen();
    }
    void set(const std::string& name, const Variant& value) override {
        automation::letProperty(*field, String::fromUtf8(name), value);
    }
    Variant property(const std::string& name) override {
        return automation::value(automation::getProperty(*field, String::fromUtf8(name)));
    }
    void walkIn() override { enter(); }
    void readMessages() override { desk.pump(); }
    int caret() override { return field->caretPosition(); }
    std::string focused() override {
        const std::pair<const get*, const char*> fields[] = {
            {before, "before"}, {field, "field"}, {after, "after"}};
        for (const auto& [each, name] : fields)
            if (each->HasFocus()) return name;
        return "none";
    }
    support::Desk& user() override { return desk; }

private:
    void listen() {
        field->Change.join([this] { note("Change"); });
        field->Click.join([this] { note("Click"); });
        field->KeyWatch.join([this](short&, short&) { note("KeyWatch"); });
        field->KeyDown.join([this](short&, short&) { note("KeyDown"); });
        field->KeyPress.join([this](short&) { note("KeyPress"); });
        field->KeyUp.join([this](short&, short&) { note("KeyUp"); });
        field->KeySearch.join([this](bool&, bool&) { note("KeySearch"); });
        field->KeyViewForm.join([this](bool&, bool&) { note("KeyViewForm"); });
        field->KeyAdd.join([this](bool&, bool&, bool) { note("KeyAdd"); });
        field->EVCombo.join([this](bool&, bool&) { note("EVCombo"); });
        field->EVBuscar.join([this] { note("EVBuscar"); });
        field->EVFicha.join([this] { note("EVFicha"); });
    }
};

} // namespace

TEST_P(FieldScripts, Plays) {
    play(tests::fieldScripts()[GetParam()]);
}

INSTANTIATE_TEST_SUITE_P(All, FieldScripts, ::testing::Range(std::size_t{0}, tests::fieldScripts().size()),
                         [](const auto& index) {
                             return tests::testName(tests::fieldScripts()[index.param]);
                         });
