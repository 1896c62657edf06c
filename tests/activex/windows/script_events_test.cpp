// Objects and their events in scripts of a program that hosts one, as programs with macros do.

#include "activex/windows/ScriptHost.h"

#include <gtest/gtest.h>

namespace {

using activex::ComPointer;
using support::ScriptHost;

/// A field that scripts know as `campo`.
class ScriptedField : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(field); }
    void type(wchar_t character) const {
        const auto window = static_cast<std::uint32_t>(support::get(*field.get(), L"hWND").asLong());
        ::SendMessageA(platform::driver::native(platform::HWND(window)), WM_CHAR,
                       static_cast<::WPARAM>(character), 1);
    }
    void write(const wchar_t* text) const { support::put(*field.get(), L"Text", support::text(text)); }
    std::u16string content() const { return support::get(*field.get(), L"Text").asString().string(); }
    /// A host in which the script is running and its procedures are connected.
    std::unique_ptr<ScriptHost> playing(const wchar_t* language, const wchar_t* script) const {
        auto host = std::make_unique<ScriptHost>(language);
        host->add(L"campo", *field.get());
        EXPECT_TRUE(host->run(script)) << automation::String(host->failure()).utf8();
        EXPECT_GT(host->connect(L"campo"), 10);
        return host;
    }

    ComPointer<::IDispatch> field = support::create(u"get");
};

TEST_F(ScriptedField, IsReadAndWrittenByBothLanguages) {
    const auto basic = playing(L"VBScript", L"campo.Text = \"uno\"\nDim leido\nleido = campo.Text & \"!\"\n");
    EXPECT_EQ(basic->variable(L"leido").asString().string(), u"uno!");
    const auto java = playing(L"JScript", L"campo.Text = 'dos'; var leido = campo.Text + '!';");
    EXPECT_EQ(java->variable(L"leido").asString().string(), u"dos!");
}

TEST_F(ScriptedField, RaisesItsEventsInVBScript) {
    const auto host = playing(L"VBScript", L"Dim cambios\ncambios = 0\n"
                                           L"Sub campo_Change()\n  cambios = cambios + 1\nEnd Sub\n");
    write(L"uno");
    write(L"dos");
    EXPECT_EQ(automation::CLng(host->variable(L"cambios")), 2);
    host->disconnect(L"campo");
    write(L"tres");
    EXPECT_EQ(automation::CLng(host->variable(L"cambios")), 2);
}

TEST_F(ScriptedField, RaisesItsEventsInJScript) {
    const auto host = playing(L"JScript", L"var cambios = 0, tecla = 0;"
                                          L"function campo_Change() { ++cambios; }"
                                          L"function campo_KeyPress(KeyAscii) { tecla = KeyAscii; }");
    type('a');
    EXPECT_EQ(automation::CLng(host->variable(L"cambios")), 1);
    EXPECT_EQ(automation::CLng(host->variable(L"tecla")), 'a');
}

TEST_F(ScriptedField, TakesWhatAScriptWritesIntoAnArgument) {
    const auto host = playing(L"VBScript", L"Sub campo_KeyPress(KeyAscii)\n"
                                           L"  If KeyAscii = Asc(\"x\") Then KeyAscii = Asc(\"Z\")\n"
                                           L"  If KeyAscii = Asc(\"y\") Then KeyAscii = 0\n"
                                           L"End Sub\n");
    type('a');
    type('x');
    type('y');
    EXPECT_EQ(content(), u"aZ");
}

TEST_F(ScriptedField, GoesOnAfterAnEventThatFailsInTheScript) {
    const auto host = playing(L"VBScript", L"Dim cambios\ncambios = 0\n"
                                           L"Sub campo_KeyPress(KeyAscii)\n  Err.Raise 5\nEnd Sub\n"
                                           L"Sub campo_Change()\n  cambios = cambios + 1\nEnd Sub\n");
    type('a');
    EXPECT_EQ(content(), u"a");
    EXPECT_EQ(automation::CLng(host->variable(L"cambios")), 1);
}

TEST_F(ScriptedField, MayBeChangedInItsOwnEvent) {
    const auto host = playing(L"VBScript", L"Sub campo_Change()\n"
                                           L"  If campo.Text = \"uno\" Then campo.Text = \"dos\"\nEnd Sub\n");
    write(L"uno");
    EXPECT_EQ(content(), u"dos");
}

} // namespace
