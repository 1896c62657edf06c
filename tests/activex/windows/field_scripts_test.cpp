// The scripts of tests/field/scripts, played on a control in a container that knows nothing but COM.

// The player's headers come first: the system's have macros of the names of some of their constants.
#include "field/ScriptPlayer.h"

#include "activex/windows/Dialog.h"
#include "activex/windows/ProgramObject.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace {

using activex::ComPointer;
using support::Dialog;
using support::Site;

/// The events that scripts speak of; the others tell of the mouse and of painting.
bool isScripted(std::string_view event) {
    constexpr std::string_view all[] = {"Change",   "Click",   "KeyWatch",  "KeyDown",
                                        "KeyPress", "KeyUp",   "KeySearch", "KeyViewForm",
                                        "KeyAdd",   "EVCombo", "EVBuscar",  "EVFicha"};
    return std::find(std::begin(all), std::end(all), event) != std::end(all);
}

std::wstring wideName(const std::string& name) {
    return std::wstring(name.begin(), name.end());
}

/// Three fields in a dialog, the scripts' own in the middle.
class FieldScripts : public tests::ScriptPlayer,
                     public ::testing::Test,
                     public ::testing::WithParamInterface<std::size_t> {
protected:
    FieldScripts() { make(support::create(u"get"), support::create(u"get"), support::create(u"get")); }
    ~FieldScripts() override { dialog_.reset(); }

    void moveTo(const std::string& locale) override {
        dialog_.reset();
        copy_.emplace(wideName(locale));
        make(copy_->create(u"get"), copy_->create(u"get"), copy_->create(u"get"));
    }
    void set(const std::string& name, const automation::Variant& value) override {
        support::SystemValue argument;
        activex::toSystem(value, argument);
        const support::Answer answer = support::put(field(), wideName(name).c_str(), argument);
        EXPECT_EQ(answer.result, S_OK);
    }
    automation::Variant property(const std::string& name) override {
        return support::get(field(), wideName(name).c_str());
    }
    void walkIn() override {
        if (focused() == "none") dialog_->focus(0);
        readMessages();
        desk_.strikeKey(VK_TAB);
        readMessages();
    }
    void readMessages() override { dialog_->readMessages(); }
    int caret() override;
    std::string focused() override {
        constexpr const char* names[] = {"before", "field", "after"};
        for (std::size_t i = 0; i < std::size(sites_); ++i)
            if (automation::CBool(support::get(sites_[i]->control(), L"HasFocus"))) return names[i];
        return "none";
    }
    support::Desk& user() override { return desk_; }

private:
    ::IDispatch& field() const { return sites_[1]->control(); }
    std::optional<::POINT> caretPlace() const;

    void make(ComPointer<::IDispatch> before, ComPointer<::IDispatch> middle, ComPointer<::IDispatch> after) {
        dialog_.emplace();
        ::LONG top = 20;
        Site** next = sites_;
        for (const auto& control : {before, middle, after}) {
            *next = &dialog_->add({20, top, 220, top + 20}, control);
            support::put((*next)->control(), L"Text", support::text(L""));
            top += 40;
            ++next;
        }
        listen();
    }
    void listen() {
        const auto listener = support::programObject({}, [this](::DISPID id, auto&, auto*) {
            for (const auto& member : activex::exportedClass(u"get")->table().members())
                if (member.kind == automation::MemberKind::Event && member.id == id &&
                    isScripted(member.name.utf8()))
                    note(member.name.utf8().c_str());
            return S_OK;
        });
        ASSERT_NE(support::listen(field(), u"get", *listener.get()), 0u);
    }

    support::Desk desk_;
    std::optional<support::LibraryCopy> copy_;
    std::optional<Dialog> dialog_;
    Site* sites_[3] = {};
};

/// Where the system's caret stands in the field; none where it is elsewhere.
std::optional<::POINT> FieldScripts::caretPlace() const {
    ::GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (!::GetGUIThreadInfo(::GetCurrentThreadId(), &info)) return {};
    if (!info.hwndCaret || info.hwndCaret != sites_[1]->controlWindow()) return {};
    return ::POINT{info.rcCaret.left, info.rcCaret.top};
}

/// A program sees the caret but is not told its place in the text: the field puts it to each place, from the
/// end, until it stands where it stood.
int FieldScripts::caret() {
    const auto seen = caretPlace();
    if (!seen) return -1;
    for (auto i = static_cast<std::int32_t>(automation::CStr(property("Text")).length()); i >= 0; --i) {
        support::call(field(), L"SetCaretPosition", {support::number(i)});
        const auto now = caretPlace();
        if (now && now->x == seen->x && now->y == seen->y) return i;
    }
    return -1;
}

} // namespace

TEST_P(FieldScripts, PlayInAContainer) {
    play(tests::fieldScripts()[GetParam()]);
}

INSTANTIATE_TEST_SUITE_P(All, FieldScripts, ::testing::Range(std::size_t{0}, tests::fieldScripts().size()),
                         [](const auto& index) {
                             return tests::testName(tests::fieldScripts()[index.param]);
                         });
