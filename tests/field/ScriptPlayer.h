#pragma once
// Plays scripts of keystrokes on a field, whatever holds it.

#include "automation/Variant.h"
#include "field/FieldScript.h"
#include "support/Desk.h"

namespace tests {

/// Walks through the steps of a script. What they come to in its container is said by a descendant; the keys
/// are the user's at the desk.
class ScriptPlayer {
public:
    ScriptPlayer() = default;
    ScriptPlayer(const ScriptPlayer&) = delete;
    ScriptPlayer& operator=(const ScriptPlayer&) = delete;
    virtual ~ScriptPlayer() = default;

    /// Takes its steps; what is not as a script expects fails the test.
    void play(const FieldScript& script);

protected:
    /// The library and its container anew in that locale.
    virtual void moveTo(const std::string& locale) = 0;
    /// A property of the field gets that value, a text.
    virtual void set(const std::string& property, const automation::Variant& value) = 0;
    virtual automation::Variant property(const std::string& name) = 0;
    /// The focus comes into the field by Tab.
    virtual void walkIn() = 0;
    /// Lets the program read the messages that wait.
    virtual void readMessages() = 0;
    /// Characters before the caret.
    virtual int caret() = 0;
    /// Which field has the focus: "before", "field", "after" or "none".
    virtual std::string focused() = 0;
    virtual support::Desk& user() = 0;

    /// The field raised that event.
    void note(const char* event);

private:
    void perform(const std::string& verb, std::string rest);
    void press(std::string combination);
    std::string shown(const std::string& what);
    std::string selectedText();

    std::string events_; ///< Since they were last asked for
};

/// All scripts of tests/field/scripts.
const std::vector<FieldScript>& fieldScripts();

/// A script's title as the name of a test: letters and digits, a capital for each word.
std::string testName(const FieldScript& script);

} // namespace tests
