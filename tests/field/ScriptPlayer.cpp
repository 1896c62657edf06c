#include "field/ScriptPlayer.h"

#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "host/Clipboard.h"
#include "platform/locale.h"
#include "platform/processes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>

namespace tests {

using automation::String;

namespace {

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

/// A value of a step of expect, where "today" stands for a date.
std::string expected(const std::string& value) {
    const std::string today = "today";
    if (value.rfind(today, 0) != 0) return value;
    const int days = value.size() > today.size() ? std::stoi(value.substr(today.size())) : 0;
    return automation::CStr(automation::Date(automation::Today().value() + days)).utf8();
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

} // namespace

void ScriptPlayer::play(const FieldScript& script) {
    for (const std::string& step : script.steps) {
        SCOPED_TRACE(step);
        std::string rest = step;
        const std::string verb = takeWord(rest);
        perform(verb, rest);
    }
}

void ScriptPlayer::note(const char* event) {
    events_ += events_.empty() ? event : std::string(" ") + event;
}

void ScriptPlayer::perform(const std::string& verb, std::string rest) {
    if (verb == "locale") {
        moveTo(rest);
    } else if (verb == "set") {
        const std::string name = takeWord(rest);
        set(name, String::fromUtf8(unquoted(rest)));
        events_.clear();
    } else if (verb == "enter") {
        walkIn();
        events_.clear();
    } else if (verb == "leave") {
        press("Tab");
    } else if (verb == "type") {
        user().type(String::fromUtf8(unquoted(rest)));
        readMessages();
    } else if (verb == "press") {
        while (!rest.empty())
            press(takeWord(rest));
    } else if (verb == "hold") {
        user().pressKey(keys().at(rest));
        readMessages();
    } else if (verb == "release") {
        user().releaseKey(keys().at(rest));
        readMessages();
    } else if (verb == "paste") {
        host::Clipboard::Clear();
        host::Clipboard::SetText(String::fromUtf8(unquoted(rest)).replaced(u"\\n", u"\r\n"));
        press("Ctrl+V");
    } else if (verb == "expect") {
        const std::string what = takeWord(rest);
        EXPECT_EQ(expected(unquoted(rest)), shown(what));
        if (what == "Events") events_.clear();
    } else {
        FAIL() << "no such step";
    }
}

void ScriptPlayer::press(std::string combination) {
    std::vector<int> held;
    for (std::size_t plus = combination.find('+'); plus != std::string::npos; plus = combination.find('+')) {
        held.push_back(keys().at(combination.substr(0, plus)));
        combination.erase(0, plus + 1);
    }
    const auto known = keys().find(combination);
    const bool letter = combination.size() == 1 && std::isalnum(static_cast<unsigned char>(combination[0]));
    ASSERT_TRUE(known != keys().end() || letter) << combination;
    for (const int key : held)
        user().pressKey(key);
    user().strikeKey(letter ? combination[0] : known->second);
    for (const int key : held)
        user().releaseKey(key);
    readMessages();
}

std::string ScriptPlayer::shown(const std::string& what) {
    if (what == "Caret") return std::to_string(caret());
    if (what == "Events") return events_;
    if (what == "Clipboard") return host::Clipboard::GetText().utf8();
    if (what == "Focus") return focused();
    if (what == "Selected") return selectedText();
    return automation::plainText(property(what)).utf8();
}

std::string ScriptPlayer::selectedText() {
    const auto place = [&](const char* name) { return automation::CLng(property(name)); };
    const std::int32_t start = place("SelStart");
    const auto [from, to] = std::minmax({start, start + place("SelLength")});
    return automation::CStr(property("Text"))
        .substring(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from))
        .utf8();
}

const std::vector<FieldScript>& fieldScripts() {
    static const auto scripts = [] {
        const std::string folder =
            platform::utf8FromWide(platform::environmentVariable(u"TESELA_TEST_DATA")) + "/field/scripts/";
        std::vector<FieldScript> all;
        for (const char* file : {"text", "masks", "numbers", "dates", "keys", "focus"})
            for (auto& script : readScripts(folder + file + ".keys"))
                all.push_back(std::move(script));
        return all;
    }();
    return scripts;
}

std::string testName(const FieldScript& script) {
    std::string name;
    bool starts = true;
    for (const char each : script.title) {
        const auto letter = static_cast<unsigned char>(each);
        if (std::isalnum(letter)) name += starts ? static_cast<char>(std::toupper(letter)) : each;
        starts = !std::isalnum(letter);
    }
    return name;
}

} // namespace tests
