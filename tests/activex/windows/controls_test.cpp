// Controls in containers.

#include "activex/windows/Container.h"
#include "activex/windows/ControlObject.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

using activex::ComPointer;
using support::ContainerWindow;
using support::Site;

constexpr ::RECT firstPlace{10, 20, 130, 44};
constexpr ::RECT secondPlace{10, 60, 130, 84};

class Controls : public ::testing::Test {
protected:
    ContainerWindow window;
    Site label{window.handle(), firstPlace, u"lbl"};
    Site field{window.handle(), secondPlace, u"get"};

    void SetUp() override {
        ASSERT_EQ(label.as<::IPersistStreamInit>()->InitNew(), S_OK);
        ASSERT_EQ(field.as<::IPersistStreamInit>()->InitNew(), S_OK);
    }
};

bool hasSeveralColors(const std::vector<::COLORREF>& picture) {
    return std::any_of(picture.begin(), picture.end(), [&](::COLORREF c) { return c != picture.front(); });
}

TEST_F(Controls, StartWithWhatTheContainerSuggests) {
    EXPECT_EQ(support::get(label.control(), L"Caption").asString(), u"control1");
    EXPECT_EQ(support::get(label.control(), L"BackColor").asLong(), 0x00FFEEDD);
    EXPECT_EQ(support::get(label.control(), L"ForeColor").asLong(), 0x00112233);
}

TEST_F(Controls, StandInTheirPlaceWhenActive) {
    EXPECT_EQ(field.controlWindow(), nullptr);
    ASSERT_EQ(field.activate(), S_OK);
    const ::HWND own = field.controlWindow();
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(::GetParent(own), window.handle());
    EXPECT_TRUE(::IsWindowVisible(own));
    ::RECT rectangle{};
    ::GetWindowRect(own, &rectangle);
    ::MapWindowPoints(nullptr, window.handle(), reinterpret_cast<::POINT*>(&rectangle), 2);
    EXPECT_EQ(rectangle.left, secondPlace.left);
    EXPECT_EQ(rectangle.top, secondPlace.top);
    EXPECT_EQ(field.uiActivations, 0);
    ASSERT_EQ(field.as<::IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_FALSE(::IsWindowVisible(own));
    EXPECT_EQ(field.controlWindow(), nullptr);
    EXPECT_EQ(field.activate(), S_OK) << "again";
}

TEST_F(Controls, StayAsTheyAreWhereTheContainerRefuses) {
    field.refusesActivation = true;
    EXPECT_EQ(field.activate(), E_FAIL);
    EXPECT_EQ(field.controlWindow(), nullptr);
    field.as<::IOleObject>()->SetClientSite(nullptr);
    EXPECT_TRUE(FAILED(field.activate())) << "without a site";
}

TEST_F(Controls, GetTheFocusWithTheirActivation) {
    ASSERT_EQ(field.activate(true), S_OK);
    EXPECT_EQ(field.uiActivations, 1);
    EXPECT_EQ(::GetFocus(), field.controlWindow());
    EXPECT_EQ(field.focus, std::vector<bool>{true});
    ::SetFocus(window.handle());
    EXPECT_EQ(field.focus, (std::vector<bool>{true, false}));
    field.as<::IOleInPlaceObject>()->UIDeactivate();
    EXPECT_EQ(field.uiDeactivations, 1);
}

TEST_F(Controls, OfTextAloneTakeNoFocus) {
    ASSERT_EQ(label.activate(true), S_OK);
    EXPECT_NE(::GetFocus(), label.controlWindow());
}

TEST_F(Controls, AreNotEditedWhileTheirContainerIsDesigned) {
    Site designed(window.handle(), firstPlace, u"get");
    designed.ambient[DISPID_AMBIENT_USERMODE] = false;
    ASSERT_EQ(designed.as<::IPersistStreamInit>()->InitNew(), S_OK);
    support::put(designed.control(), L"Text", support::text(L"uno"));
    ASSERT_EQ(designed.activate(true), S_OK);
    const ::HWND own = designed.controlWindow();
    EXPECT_TRUE(::IsWindowVisible(own));
    EXPECT_NE(::GetFocus(), own);
    const auto useIt = [&] {
        ::SendMessageW(own, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        ::SendMessageW(own, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
        ::SetFocus(own);
        ::SendMessageW(own, WM_KEYDOWN, VK_DELETE, 1);
        ::SendMessageW(own, WM_CHAR, 'x', 1);
    };
    const auto caretWindow = [] {
        ::GUITHREADINFO info{};
        info.cbSize = sizeof info;
        ::GetGUIThreadInfo(::GetCurrentThreadId(), &info);
        return info.hwndCaret;
    };
    useIt();
    EXPECT_EQ(support::get(designed.control(), L"Text").asString(), u"uno");
    EXPECT_NE(caretWindow(), own);
    ::SetFocus(window.handle());
    designed.ambient[DISPID_AMBIENT_USERMODE] = true;
    designed.as<::IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE);
    useIt();
    EXPECT_NE(support::get(designed.control(), L"Text").asString(), u"uno");
    EXPECT_EQ(caretWindow(), own);
}

TEST_F(Controls, LeaveTabToTheirContainer) {
    ASSERT_EQ(field.activate(true), S_OK);
    ::MSG tab{};
    tab.hwnd = field.controlWindow();
    tab.message = WM_KEYDOWN;
    tab.wParam = VK_TAB;
    EXPECT_EQ(field.as<::IOleInPlaceActiveObject>()->TranslateAccelerator(&tab), S_OK);
    ASSERT_FALSE(field.keys.empty());
    EXPECT_EQ(field.keys.back(), static_cast<::WPARAM>(VK_TAB));
    ::SendMessageW(tab.hwnd, WM_KEYDOWN, VK_TAB, 1);
    EXPECT_EQ(field.keys.size(), 2u) << "a key that came to the window alone";
}

TEST_F(Controls, ComeToTheFocusByAnAccessKey) {
    ASSERT_EQ(field.activate(), S_OK);
    ::MSG key{};
    key.wParam = 'N';
    EXPECT_EQ(field.as<::IOleControl>()->OnMnemonic(&key), S_OK);
    EXPECT_EQ(::GetFocus(), field.controlWindow());
}

TEST_F(Controls, OfTextUnderlineALetterThatIsNoKey) {
    support::put(label.control(), L"Caption", support::text(L"&Nombre"));
    ::CONTROLINFO info{};
    for (const Site* site : {&label, &field}) {
        EXPECT_EQ(site->as<::IOleControl>()->GetControlInfo(&info), S_OK);
        EXPECT_EQ(info.cAccel, 0);
    }
}

/// A control with access keys, which notes those that come.
class Keyed : public host::UserControl {
public:
    Keyed() { AccessKeys(u"nÑ1"); }
    std::string pressed;
    const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<Keyed>("Keyed");
        return table;
    }

protected:
    void onAccessKeyPress(short& code) override { pressed += static_cast<char>(code); }
};

TEST(AccessKeys, AreThoseThatTheControlNames) {
    const auto keyed = automation::make<Keyed>();
    const auto control = ComPointer<::IUnknown>::adopt(activex::ComObject::create(keyed, nullptr));
    const auto keys = ComPointer<::IOleControl>::of(control.get());
    ::CONTROLINFO info{};
    ASSERT_EQ(keys->GetControlInfo(&info), S_OK);
    ASSERT_EQ(info.cAccel, 3);
    const auto isAccessKey = [&](::UINT message, ::WPARAM code) {
        constexpr ::LPARAM withAlt = 1 << 29;
        ::MSG key{};
        key.message = message;
        key.wParam = code;
        key.lParam = withAlt;
        BYTE held[256] = {};
        ::GetKeyboardState(held);
        BYTE alt[256] = {};
        alt[VK_MENU] = 0x80;
        ::SetKeyboardState(alt);
        WORD command = 0;
        const bool known = ::IsAccelerator(info.hAccel, info.cAccel, &key, &command) != FALSE;
        ::SetKeyboardState(held);
        if (known) keys->OnMnemonic(&key);
        return known;
    };
    EXPECT_TRUE(isAccessKey(WM_SYSKEYDOWN, 'N'));
    EXPECT_TRUE(isAccessKey(WM_SYSKEYDOWN, '1'));
    EXPECT_FALSE(isAccessKey(WM_SYSKEYDOWN, 'M'));
    EXPECT_FALSE(isAccessKey(WM_SYSKEYDOWN, VK_DECIMAL)) << "the number of a small n";
    EXPECT_EQ(keyed->pressed, "n1");
    ::MSG character{};
    character.message = WM_SYSCHAR;
    for (const char16_t unit : {u'N', u'ñ', u'Ñ'}) {
        character.wParam = unit;
        EXPECT_EQ(keys->OnMnemonic(&character), S_OK);
    }
    EXPECT_EQ(keyed->pressed, "n1n\xD1\xD1") << "as the control names them";
}

TEST_F(Controls, TellTheirContainerOfEachPropertyThatChanges) {
    label.changes.clear();
    support::put(label.control(), L"Caption", support::text(L"Hola"));
    EXPECT_TRUE(std::count(label.changes.begin(), label.changes.end(), 0)) << "Caption is the default member";
    EXPECT_EQ(label.as<::IPersistStreamInit>()->IsDirty(), S_OK);
    label.as<::IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY);
    EXPECT_EQ(label.saves, 1);
}

TEST_F(Controls, AskTheirContainerForAnotherSize) {
    ASSERT_EQ(label.activate(), S_OK);
    support::put(label.control(), L"Caption",
                 support::text(L"Un texto que es bastante más largo que el otro"));
    const ::RECT wide = label.place;
    support::put(label.control(), L"Caption", support::text(L"Uno"));
    EXPECT_GT(wide.right - wide.left, label.place.right - label.place.left);
    ::RECT client{};
    ::GetClientRect(label.controlWindow(), &client);
    EXPECT_EQ(client.right, label.place.right - label.place.left);
}

TEST_F(Controls, TellTheirSizeInHundredthsOfAMillimetre) {
    support::put(label.control(), L"AutoSize", support::number(0));
    ::SIZEL size{2540, 1270}; // an inch and a half
    const auto object = label.as<::IOleObject>();
    ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    ::SIZEL told{};
    EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &told), S_OK);
    EXPECT_EQ(told.cx, 2540);
    EXPECT_EQ(told.cy, 1270);
    EXPECT_EQ(object->GetExtent(DVASPECT_ICON, &told), DV_E_DVASPECT);
    size.cx = -1;
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &size), E_INVALIDARG);
}

TEST_F(Controls, KeepEachSizeToTheNearestPixel) {
    support::put(label.control(), L"AutoSize", support::number(0));
    const auto object = label.as<::IOleObject>();
    const ::HDC screen = ::GetDC(nullptr);
    const int dots = ::GetDeviceCaps(screen, LOGPIXELSX);
    ::ReleaseDC(nullptr, screen);
    for (::LONG length = 0; length < 9000; length += 37) {
        ::SIZEL size{length, 9000 - length};
        ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
        ::SIZEL told{};
        ::SIZEL seen{};
        ASSERT_EQ(object->GetExtent(DVASPECT_CONTENT, &told), S_OK);
        ASSERT_EQ(label.as<::IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &seen), S_OK);
        ASSERT_LE(std::abs(told.cx - size.cx), 1270 / dots + 1);
        ASSERT_LE(std::abs(told.cy - size.cy), 1270 / dots + 1);
        ASSERT_EQ(seen.cx, told.cx);
        ASSERT_EQ(seen.cy, told.cy);
        ::SIZEL again = told;
        ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &again), S_OK);
        ASSERT_EQ(object->GetExtent(DVASPECT_CONTENT, &again), S_OK);
        ASSERT_EQ(again.cx, told.cx);
        ASSERT_EQ(again.cy, told.cy);
    }
}

/// TESELA_DOTS says what the display is set to; other displays have 96 dots an inch.
TEST_F(Controls, AreAsLargeAsStatedAtTheResolutionOfTheDisplay) {
    wchar_t stated[8] = L"96";
    ::GetEnvironmentVariableW(L"TESELA_DOTS", stated, static_cast<DWORD>(std::size(stated)));
    const ::LONG dots = std::wcstol(stated, nullptr, 10);
    support::put(label.control(), L"AutoSize", support::number(0));
    ::SIZEL size{2540, 1270}; // an inch and a half
    ASSERT_EQ(label.as<::IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    const auto own = platform::driver::native(
        platform::HWND(static_cast<std::uint32_t>(support::get(label.control(), L"hWND").asLong())));
    ::RECT client{};
    ::GetClientRect(own, &client);
    EXPECT_EQ(client.right, dots);
    EXPECT_EQ(client.bottom, dots / 2);
}

TEST(Extents, AreRightAtEachResolution) {
    EXPECT_EQ(activex::himetricFromPixels(96, 96), 2540);
    EXPECT_EQ(activex::himetricFromPixels(120, 120), 2540);
    EXPECT_EQ(activex::pixelsFromHimetric(2540, 120), 120);
    for (const int dots : {96, 120, 144})
        for (int pixels = 0; pixels < 2000; ++pixels)
            ASSERT_EQ(activex::pixelsFromHimetric(activex::himetricFromPixels(pixels, dots), dots), pixels);
}

// Looks

TEST_F(Controls, LookTheSameInactiveAsInTheirWindow) {
    support::put(field.control(), L"Text", support::text(L"Texto"));
    ASSERT_EQ(field.activate(), S_OK);
    ::RECT client{};
    ::GetClientRect(field.controlWindow(), &client);
    ::UpdateWindow(field.controlWindow());
    const ::HDC dc = ::GetDC(field.controlWindow());
    const auto active = support::pixels(dc, client.right, client.bottom);
    ::ReleaseDC(field.controlWindow(), dc);
    EXPECT_TRUE(hasSeveralColors(active));
    EXPECT_EQ(support::drawn(field.control(), client.right, client.bottom), active);
    field.as<::IOleInPlaceObject>()->InPlaceDeactivate();
    EXPECT_EQ(support::drawn(field.control(), client.right, client.bottom), active);
}

TEST_F(Controls, DrawIntoMetafilesAndInOtherSizes) {
    support::put(label.control(), L"Caption", support::text(L"Hola"));
    for (const support::Way way : {support::Way::AtOnce, support::Way::ThroughMetafile}) {
        EXPECT_TRUE(hasSeveralColors(support::drawn(label.control(), 60, 20, way)));
        EXPECT_TRUE(hasSeveralColors(support::drawn(label.control(), 240, 80, way)));
        EXPECT_TRUE(hasSeveralColors(support::drawn(field.control(), 300, 60, way)));
    }
    EXPECT_EQ(label.as<::IViewObject>()->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, nullptr, nullptr,
                                              nullptr, nullptr, 0),
              DV_E_DVASPECT);
}

// Misbehaviour

TEST_F(Controls, MayBeDroppedByTheirContainerInTheMiddle) {
    ASSERT_EQ(S_OK, field.activate());
    const ::HWND fieldWindow = field.controlWindow();
    field.dropsOnUiActivate = true;
    {
        const auto object = field.as<::IOleObject>();
        EXPECT_EQ(S_OK,
                  object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &field, 0, window.handle(), &secondPlace));
        EXPECT_EQ(1, field.uiActivations);
        EXPECT_TRUE(::IsWindow(fieldWindow)) << "as long as the caller holds it";
    }
    EXPECT_FALSE(::IsWindow(fieldWindow)) << "that was the last reference";
}

TEST_F(Controls, TakeUnknownVerbsAndMissingPointersWithoutHarm) {
    const auto object = field.as<::IOleObject>();
    EXPECT_EQ(object->DoVerb(-40, nullptr, nullptr, 0, nullptr, nullptr), E_NOTIMPL);
    EXPECT_EQ(object->DoVerb(40, nullptr, nullptr, 0, nullptr, nullptr), OLEOBJ_S_INVALIDVERB);
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(object->GetUserClassID(nullptr), E_POINTER);
    EXPECT_EQ(field.as<::IOleInPlaceObject>()->SetObjectRects(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(field.as<::IOleInPlaceObject>()->GetWindow(nullptr), E_POINTER);
    EXPECT_EQ(field.as<::IOleControl>()->GetControlInfo(nullptr), E_POINTER);
    EXPECT_EQ(field.as<::IOleInPlaceActiveObject>()->TranslateAccelerator(nullptr), E_POINTER);
    EXPECT_EQ(field.as<::IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr,
                                              nullptr, nullptr, nullptr, 0),
              E_INVALIDARG);
}

} // namespace
