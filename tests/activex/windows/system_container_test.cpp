// Controls in a container that nobody here wrote: windows of the system's class AtlAxWin100 in a dialog,
// through which the system's dialog manager walks. Those of Wine neither suggest ambient properties nor offer
// keys to their control.

#include "support/Desk.h"

#include "activex/windows/Bag.h"
#include "activex/windows/Container.h"
#include "activex/windows/ProgramObject.h"
#include "activex/windows/SuggestingSite.h"
#include "activex/windows/SystemContainer.h"

#include <gtest/gtest.h>

#include <deque>

namespace {

using activex::ComPointer;

/// An empty dialog of the system, which takes all messages as the system does.
class DialogWindow {
public:
    DialogWindow() {
        struct {
            ::DLGTEMPLATE head;
            WORD menu, windowClass, title;
        } const empty{{WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 20, 20, 200, 160}, 0, 0, 0};
        window_ = ::CreateDialogIndirectParamW(nullptr, &empty.head, nullptr, procedure, 0);
        ::SetForegroundWindow(window_);
    }
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;
    ~DialogWindow() { ::DestroyWindow(window_); }
    ::HWND handle() const { return window_; }

private:
    static ::INT_PTR CALLBACK procedure(::HWND, ::UINT, ::WPARAM, ::LPARAM) { return FALSE; }

    ::HWND window_;
};

class SystemDialog : public ::testing::Test {
protected:
    /// A window of the container, empty.
    ::HWND host() {
        top_ += 30;
        return hosts_.emplace_back(window.handle(), ::RECT{8, top_, 168, top_ + 24}).handle();
    }
    /// A new control in a window of the container.
    ComPointer<::IDispatch> place(std::u16string_view className) {
        auto control = support::create(className);
        ComPointer<::IPersistStreamInit>::of(control.get())->InitNew();
        EXPECT_EQ(system.attach(*control.get(), host()), S_OK);
        return control;
    }
    /// A window of the system beside.
    ::HWND add(const wchar_t* systemClass, const wchar_t* caption, DWORD style) {
        top_ += 30;
        return ::CreateWindowExW(0, systemClass, caption, WS_CHILD | WS_VISIBLE | style, 8, top_, 160, 20,
                                 window.handle(), nullptr, nullptr, nullptr);
    }
    static ::HWND windowOf(const ComPointer<::IDispatch>& control) {
        ::HWND own = nullptr;
        ComPointer<::IOleInPlaceObject>::of(control.get())->GetWindow(&own);
        return own;
    }
    static std::string textOf(const ComPointer<::IDispatch>& field) {
        return automation::CStr(support::get(*field.get(), L"Text")).utf8();
    }

    /// As the loop of a program with a dialog does.
    void readMessages() {
        constexpr DWORD displayDelay = 4; // milliseconds
        do {
            for (::MSG message; ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
                if (::IsDialogMessageW(window.handle(), &message)) continue;
                ::TranslateMessage(&message);
                ::DispatchMessageW(&message);
            }
        } while (::MsgWaitForMultipleObjectsEx(0, nullptr, displayDelay, QS_ALLINPUT, MWMO_INPUTAVAILABLE) ==
                 WAIT_OBJECT_0);
    }
    void press(int key) {
        desk.strikeKey(key);
        readMessages();
    }
    void press(int modifier, int key) {
        desk.pressKey(modifier);
        desk.strikeKey(key);
        desk.releaseKey(modifier);
        readMessages();
    }

    support::Desk desk;
    support::SystemContainer system;
    DialogWindow window;

private:
    std::deque<support::SystemHost> hosts_;
    ::LONG top_ = -20;
};

TEST_F(SystemDialog, HoldsEachControlInAWindowOfItsOwn) {
    for (const activex::ExportedClass& each : activex::exportedClasses()) {
        if (!each.isControl) continue;
        SCOPED_TRACE(each.table().name().utf8());
        const ::HWND frame = host();
        auto control = support::create(each.table().name());
        ASSERT_EQ(system.attach(*control.get(), frame), S_OK);
        const ::HWND own = windowOf(control);
        EXPECT_EQ(::GetParent(own), frame);
        EXPECT_TRUE(::IsWindowVisible(own));
        EXPECT_EQ(system.controlOf(frame).get(), ComPointer<::IUnknown>::of(control.get()).get());
        ::RECT client{};
        ::GetClientRect(own, &client);
        EXPECT_EQ(client.right, 160) << "as wide as its window";
        control.reset();
        ::DestroyWindow(frame);
        EXPECT_FALSE(::IsWindow(own));
    }
}

/// Asked for each of the ways by which a program could set what it suggests to its control, or a control ask.
TEST_F(SystemDialog, SuggestsNothingToControls) {
    constexpr ::GUID waysToSet[] = {
        {0xB6EA2051,
         0x048A,
         0x11D1,
         {0x82, 0xB9, 0x00, 0xC0, 0x4F, 0xB9, 0x94, 0x2E}}, // IAxWinAmbientDispatch
        {0xB2D0778B,
         0xAC99,
         0x4C58,
         {0xA5, 0xC8, 0xE7, 0x72, 0x4E, 0x53, 0x16, 0xB5}}, // IAxWinAmbientDispatchEx
        {0xB6EA2050, 0x048A, 0x11D1, {0x82, 0xB9, 0x00, 0xC0, 0x4F, 0xB9, 0x94, 0x2E}}}; // IAxWinHostWindow
    const ::HWND frame = host();
    auto control = support::create(u"get");
    ASSERT_EQ(system.attach(*control.get(), frame), S_OK);
    const auto part = system.hostOf(frame);
    ASSERT_TRUE(part);
    for (const ::GUID& way : waysToSet)
        EXPECT_FALSE(ComPointer<::IUnknown>::of(part.get(), way));
    ComPointer<::IOleClientSite> site;
    ASSERT_EQ(ComPointer<::IOleObject>::of(control.get())->GetClientSite(site.out()), S_OK);
    EXPECT_FALSE(ComPointer<::IDispatch>::of(part.get()));
    EXPECT_FALSE(ComPointer<::IDispatch>::of(site.get()));
}

/// A program can still put a site of its own in front.
TEST_F(SystemDialog, LeavesAControlAloneWhileItsProgramSaysThatItIsDesigned) {
    const auto field = place(u"get");
    const auto object = ComPointer<::IOleObject>::of(field.get());
    ComPointer<::IOleClientSite> site;
    ASSERT_EQ(object->GetClientSite(site.out()), S_OK);
    support::SuggestingSite suggesting(site);
    ASSERT_EQ(object->SetClientSite(&suggesting), S_OK);
    ASSERT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &suggesting, 0, nullptr, nullptr), S_OK);
    const auto typed = [&](bool userMode) {
        suggesting.userMode = userMode;
        ComPointer<::IOleControl>::of(field.get())->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE);
        support::put(*field.get(), L"Text", support::text(L""));
        ::SetFocus(windowOf(field));
        desk.type(u"abc");
        readMessages();
        ::SetFocus(window.handle());
        return textOf(field);
    };
    EXPECT_EQ(typed(true), "abc");
    EXPECT_EQ(typed(false), "");
    EXPECT_EQ(typed(true), "abc");
    object->SetClientSite(site.get());
}

// The focus

class SystemDialogOfFields : public SystemDialog {
protected:
    ::HWND first = add(L"EDIT", L"", WS_TABSTOP);
    ComPointer<::IDispatch> label = place(u"lbl");
    ComPointer<::IDispatch> one = place(u"get");
    ::HWND caption = add(L"STATIC", L"&Nombre", 0);
    ComPointer<::IDispatch> other = place(u"get");
    ::HWND last = add(L"BUTTON", L"Cerrar", WS_TABSTOP);

    void SetUp() override {
        ::SetFocus(first);
        readMessages();
    }
    ::HWND focus() const { return ::GetFocus(); }
};

TEST_F(SystemDialogOfFields, TabWalksThroughControlsAndOut) {
    for (const ::HWND next : {windowOf(one), windowOf(other), last, first}) {
        press(VK_TAB);
        EXPECT_EQ(focus(), next);
    }
    for (const ::HWND next : {last, windowOf(other), windowOf(one), first}) {
        press(VK_SHIFT, VK_TAB);
        EXPECT_EQ(focus(), next);
    }
}

TEST_F(SystemDialogOfFields, TabPassesOverAFieldThatCannotBeEdited) {
    support::put(*one.get(), L"EnabledGet", support::boolean(false));
    press(VK_TAB);
    EXPECT_EQ(focus(), windowOf(other));
    support::put(*one.get(), L"EnabledGet", support::boolean(true));
    press(VK_SHIFT, VK_TAB);
    EXPECT_EQ(focus(), windowOf(one));
}

TEST_F(SystemDialogOfFields, VerticalArrowsWalkThroughFieldsAndOut) {
    press(VK_TAB);
    press(VK_DOWN);
    EXPECT_EQ(focus(), windowOf(other));
    press(VK_DOWN);
    EXPECT_EQ(focus(), last);
    press(VK_SHIFT, VK_TAB);
    press(VK_UP);
    press(VK_UP);
    EXPECT_EQ(focus(), first);
}

TEST_F(SystemDialogOfFields, OtherArrowsStayInTheField) {
    press(VK_TAB);
    press(VK_RIGHT);
    press(VK_LEFT);
    press(VK_HOME);
    EXPECT_EQ(focus(), windowOf(one));
}

TEST_F(SystemDialogOfFields, AccessKeyOfACaptionLeadsToTheFieldBehindIt) {
    press(VK_MENU, 'N');
    EXPECT_EQ(focus(), windowOf(other));
}

TEST_F(SystemDialogOfFields, TheFieldTakesWhatIsTyped) {
    press(VK_TAB);
    press(VK_CONTROL, 'A');
    desk.type(u"ñandú 12");
    readMessages();
    EXPECT_EQ(textOf(one), "ñandú 12");
    press(VK_BACK);
    press(VK_HOME);
    press(VK_DELETE);
    EXPECT_EQ(textOf(one), "andú 1");
    press(VK_TAB);
    EXPECT_EQ(focus(), windowOf(other));
    EXPECT_TRUE(automation::CBool(support::get(*one.get(), L"HasChanged")));
    EXPECT_FALSE(automation::CBool(support::get(*other.get(), L"HasChanged")));
}

TEST_F(SystemDialogOfFields, TheProgramHearsOfKeys) {
    std::string heard;
    const auto listener = support::programObject({}, [&](::DISPID id, auto& arguments, auto*) {
        if (id != activex::exportedClass(u"get")->table().event(u"KeyPress")->id) return S_OK;
        heard += static_cast<char>(*arguments.at(0)->piVal);
        if (heard == "ab") *arguments.at(0)->piVal = 'X';
        return S_OK;
    });
    ASSERT_NE(support::listen(*one.get(), u"get", *listener.get()), 0u);
    press(VK_TAB);
    press(VK_CONTROL, 'A');
    desk.type(u"abc");
    readMessages();
    EXPECT_NE(heard.find("abc"), std::string::npos) << heard;
    EXPECT_EQ(textOf(one), "aXc");
}

} // namespace
