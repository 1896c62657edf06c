// The scripts of tests/field/scripts, played on the field with injected keys.
#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "field/FieldScript.h"
#include "field/FieldTest.h"
#include "host/Clipboard.h"
#include "platform/locale.h"
#include "platform/processes.h"

#include <cctype>
#include <map>
#include <optional>
#include <sstream>

using namespace tesela;

namespace {

std::string variable(const char16_t* name) {
    return platform::utf8FromWide(platform::environmentVariable(name));
}

const std::vector<tests::FieldScript>& allScripts() {
    static const auto scripts = [] {
        std::vector<tests::FieldScript> all;
        for (const char* file : {"text", "masks", "numbers", "dates", "keys", "focus"})
            for (auto& script :
                 tests::readScripts(variable(u"TESELA_TEST_DATA") + "/field/scripts/" + file + ".keys"))
                all.push_back(std::move(script));
        return all;
    }();
    return scripts;
}

/// The first word of a text, taken off it.
std::string takeWord(std::string& text) {
    const std::size_t end = std::min(text.find(' '), text.size());
    std::string word = text.substr(0, end);
    text.erase(0, std::min(end + 1, text.size()));
    return word;
}

std::string unquoted(const std::string& value) {
    const bool quoted = value.size() >= 2 && value.front() == '"' && value.back() == '"';
    return quoted ? value.substr(1, value.size() - 2) : value;
}

const std::map<std::string, int>& keys() {
    using namespace platform;
    static const std::map<std::string, int> all{
        {"Enter", VK_RETURN},  {"Tab", VK_TAB},           {"Esc", VK_ESCAPE},
        {"Left", VK_LEFT},     {"Right", VK_RIGHT},       {"Up", VK_UP},
        {"Down", VK_DOWN},     {"Home", VK_HOME},         {"End", VK_END},
        {"Insert", VK_INSERT}, {"Delete", VK_DELETE},     {"Backspace", VK_BACK},
        {"Add", VK_ADD},       {"Subtract", VK_SUBTRACT}, {"Space", VK_SPACE},
        {"Shift", VK_SHIFT},   {"Ctrl", VK_CONTROL},      {"Alt", VK_MENU},
        {"F5", VK_F1 + 4}};
    return all;
}

class FieldScripts : public tests::FieldTest, public ::testing::WithParamInterface<std::size_t> {
protected:
    FieldScripts() { listen(); }

    void run(const tests::FieldScript& script) {
        for (const std::string& step : script.steps) {
            SCOPED_TRACE(step);
            std::string rest = step;
            const std::string verb = takeWord(rest);
            perform(verb, rest);
        }
    }

private:
    void listen() {
        const auto note = [this](const char* name) {
            return [this, name](auto&&...) { events += events.empty() ? name : std::string(" ") + name; };
        };
        field->Change.join([note] { note("Change")(); });
        field->Click.join([note] { note("Click")(); });
        field->KeyWatch.join([note](short&, short&) { note("KeyWatch")(); });
        field->KeyDown.join([note](short&, short&) { note("KeyDown")(); });
        field->KeyPress.join([note](short&) { note("KeyPress")(); });
        field->KeyUp.join([note](short&, short&) { note("KeyUp")(); });
        field->KeySearch.join([note](bool&, bool&) { note("KeySearch")(); });
        field->KeyViewForm.join([note](bool&, bool&) { note("KeyViewForm")(); });
        field->KeyAdd.join([note](bool&, bool&, bool) { note("KeyAdd")(); });
        field->EVCombo.join([note](bool&, bool&) { note("EVCombo")(); });
        field->EVBuscar.join([note] { note("EVBuscar")(); });
        field->EVFicha.join([note] { note("EVFicha")(); });
    }

    void perform(const std::string& verb, std::string rest) {
        if (verb == "locale") {
            moveTo(rest.c_str());
            listen();
        } else if (verb == "set") {
            const std::string name = takeWord(rest);
            automation::letProperty(*field, automation::String::fromUtf8(name),
                                    automation::Variant(automation::String::fromUtf8(unquoted(rest))));
            events.clear();
        } else if (verb == "enter") {
            enter();
            events.clear();
        } else if (verb == "leave") {
            leave();
        } else if (verb == "type") {
            type(automation::String::fromUtf8(unquoted(rest)));
        } else if (verb == "press") {
            while (!rest.empty())
                pressNamed(takeWord(rest));
        } else if (verb == "paste") {
            host::Clipboard::Clear();
            host::Clipboard::SetText(automation::String::fromUtf8(unquoted(rest)).replaced(u"\\n", u"\r\n"));
            pressNamed("Ctrl+V");
        } else if (verb == "expect") {
            const std::string what = takeWord(rest);
            EXPECT_EQ(expected(unquoted(rest)), shown(what));
            if (what == "Events") events.clear();
        } else {
            FAIL() << "no such step";
        }
    }

    void pressNamed(std::string name) {
        std::vector<int> held;
        for (std::size_t plus = name.find('+'); plus != std::string::npos; plus = name.find('+')) {
            held.push_back(keys().at(name.substr(0, plus)));
            name.erase(0, plus + 1);
        }
        const auto known = keys().find(name);
        const bool letter = name.size() == 1 && std::isalnum(static_cast<unsigned char>(name[0]));
        ASSERT_TRUE(known != keys().end() || letter) << name;
        for (const int key : held)
            desk.pressKey(key);
        desk.strikeKey(letter ? name[0] : known->second);
        for (const int key : held)
            desk.releaseKey(key);
        desk.pump();
    }

    std::string expected(const std::string& value) const {
        if (value.rfind("today", 0) != 0) return value;
        const int days = value.size() > 5 ? std::stoi(value.substr(5)) : 0;
        return automation::CStr(automation::Date(automation::Today().value() + days)).utf8();
    }

    std::string shown(const std::string& what) const {
        if (what == "Caret") return std::to_string(field->caretPosition());
        if (what == "Events") return events;
        if (what == "Clipboard") return host::Clipboard::GetText().utf8();
        if (what == "Focus") return focused();
        if (what == "Selected") {
            const auto [from, to] = std::minmax({field->SelStart(), field->SelStart() + field->SelLength()});
            return field->Text()
                .substring(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from))
                .utf8();
        }
        return automation::plainText(
                   automation::value(automation::getProperty(*field, automation::String::fromUtf8(what))))
            .utf8();
    }

    std::string focused() const {
        const std::pair<const get*, const char*> fields[] = {
            {before, "before"}, {field, "field"}, {after, "after"}};
        for (const auto& [each, name] : fields)
            if (each->HasFocus()) return name;
        return "none";
    }
};

} // namespace

TEST_P(FieldScripts, Plays) {
    run(allScripts()[GetParam()]);
}

INSTANTIATE_TEST_SUITE_P(All, FieldScripts, ::testing::Range(std::size_t{0}, allScripts().size()),
                         [](const auto& index) {
                             std::string name;
                             bool starts = true;
                             for (const char c : allScripts()[index.param].title) {
                                 if (std::isalnum(static_cast<unsigned char>(c))) {
                                     name +=
                                         starts
                                             ? static_cast<char>(std::toupper(static_cast<unsigned char>(c)))
                                             : c;
                                     starts = false;
                                 } else {
                                     starts = true;
                                 }
                             }
                             return name;
                         });
