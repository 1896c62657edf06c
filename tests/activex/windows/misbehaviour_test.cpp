// Containers that fail, refuse or let go of a control where they should not. Everything that a control asks
// of its container in a whole life goes wrong once, each thing in a life of its own.

#include "activex/windows/Container.h"
#include "activex/windows/ProgramObject.h"
#include "activex/windows/UnreliableContainer.h"

#include <gtest/gtest.h>

namespace {

using activex::ComPointer;
using support::Misdeed;
using support::UnreliableContainer;

constexpr ::RECT place{10, 10, 130, 34};

/// The life of a control, from step to step as far as it is still there. A step holds the control, as callers
/// do; the messages to its window hold nothing.
class Life {
public:
    Life(UnreliableContainer& container, std::u16string_view className, ::HWND window)
        : container_(container), className_(className), window_(window) {}

    void live() {
        connect();
        load();
        activate();
        input();
        change();
        look();
        end();
    }

private:
    template <class I, class F>
    void step(const F& action) {
        if (const auto object = container_.as<I>()) action(*object.get());
    }

    void connect() {
        step<::IOleObject>([&](auto& object) {
            DWORD cookie = 0;
            object.SetClientSite(&container_);
            object.Advise(&container_, &cookie);
        });
        step<::IViewObject>([&](auto& view) { view.SetAdvise(DVASPECT_CONTENT, 0, &container_); });
        step<::IConnectionPointContainer>([&](auto& points) {
            ComPointer<::IConnectionPoint> point;
            DWORD cookie = 0;
            if (SUCCEEDED(points.FindConnectionPoint(IID_IPropertyNotifySink, point.out())))
                point->Advise(&container_.self(), &cookie);
        });
        const auto listener = support::programObject(
            {}, [this](::DISPID, auto&, auto*) { return container_.answer([] { return S_OK; }); });
        step<::IDispatch>([&](auto& object) { support::listen(object, className_, *listener.get()); });
    }
    void load() {
        step<::IPersistStreamInit>([](auto& object) { object.InitNew(); });
        step<::IPersistPropertyBag>([&](auto& object) { object.Load(&container_, nullptr); });
    }
    void activate() {
        for (const LONG verb : {OLEIVERB_INPLACEACTIVATE, OLEIVERB_UIACTIVATE})
            step<::IOleObject>(
                [&](auto& object) { object.DoVerb(verb, nullptr, &container_, 0, window_, &place); });
    }
    ::HWND controlWindow() {
        ::HWND window = nullptr;
        step<::IOleInPlaceObject>([&](auto& object) { object.GetWindow(&window); });
        return window;
    }
    void input() {
        if (const ::HWND window = controlWindow()) {
            ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
            ::SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
            ::SendMessageW(window, WM_KEYDOWN, 'A', 1);
            ::SendMessageW(window, WM_CHAR, 'a', 1);
            ::SendMessageW(window, WM_KEYDOWN, VK_TAB, 1);
        }
        ::MSG key{};
        key.message = WM_KEYDOWN;
        key.wParam = VK_ESCAPE;
        step<::IOleInPlaceActiveObject>([&](auto& object) { object.TranslateAccelerator(&key); });
        step<::IOleControl>([&](auto& object) {
            ::CONTROLINFO info{};
            object.GetControlInfo(&info);
            object.OnMnemonic(&key);
            object.OnAmbientPropertyChange(DISPID_UNKNOWN);
        });
    }
    void change() {
        for (const wchar_t* name : {L"Text", L"Caption"})
            step<::IDispatch>(
                [&](auto& object) { support::put(object, name, support::text(L"Un texto más")); });
        step<::IDispatch>([&](auto& object) { support::put(object, L"AutoSize", support::number(3)); });
        step<::IDispatch>([&](auto& object) { support::put(object, L"RightPos", support::number(900)); });
        step<::IDispatch>([&](auto& object) { support::put(object, L"Live", support::boolean(true)); });
        step<::IDispatch>([&](auto& object) { support::put(object, L"ToolTip", support::text(L"x")); });
        step<::IOleObject>([&](auto& object) {
            ::SIZEL size{4000, 700};
            object.SetExtent(DVASPECT_CONTENT, &size);
        });
    }
    void look() {
        const ::HDC screen = ::GetDC(nullptr);
        const ::HDC memory = ::CreateCompatibleDC(screen);
        const ::RECTL bounds{0, 0, 60, 20};
        step<::IViewObject>([&](auto& view) {
            view.Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, memory, &bounds, nullptr, nullptr, 0);
        });
        ::DeleteDC(memory);
        ::ReleaseDC(nullptr, screen);
        if (const ::HWND window = controlWindow()) ::UpdateWindow(window);
    }
    void end() {
        ::SetFocus(window_);
        step<::IPersistPropertyBag>([&](auto& object) { object.Save(&container_, FALSE, TRUE); });
        step<::IOleInPlaceObject>([](auto& object) { object.UIDeactivate(); });
        step<::IOleInPlaceObject>([](auto& object) { object.InPlaceDeactivate(); });
        step<::IOleObject>([&](auto& object) {
            object.DoVerb(OLEIVERB_UIACTIVATE, nullptr, &container_, 0, window_, &place);
        });
        step<::IOleObject>([](auto& object) { object.Close(OLECLOSE_SAVEIFDIRTY); });
        step<::IOleObject>([](auto& object) { object.SetClientSite(nullptr); });
        container_.drop();
    }

    UnreliableContainer& container_;
    std::u16string className_;
    ::HWND window_;
};

struct Case {
    const char16_t* className;
    Misdeed misdeed;
    const char* name;
};

class Misbehaviour : public ::testing::TestWithParam<Case> {
protected:
    /// A life in which the call of that number goes wrong. Gives whether there are so many.
    bool live(int failing) {
        const Case& tested = GetParam();
        auto control = support::create(tested.className);
        const auto own = platform::driver::native(
            platform::HWND(static_cast<std::uint32_t>(support::get(*control.get(), L"hWND").asLong())));
        EXPECT_TRUE(::IsWindow(own));
        UnreliableContainer container(window_.handle(), std::move(control), failing, tested.misdeed);
        Life(container, tested.className, window_.handle()).live();
        EXPECT_FALSE(::IsWindow(own)) << "the control is still there";
        EXPECT_EQ(container.references(), 0) << "the control still holds its container";
        return container.misbehaved();
    }

private:
    support::ContainerWindow window_;
};

TEST_P(Misbehaviour, LeavesNothingBehind) {
    const auto held = [](DWORD kind) { return ::GetGuiResources(::GetCurrentProcess(), kind); };
    live(0); // what the system keeps from the first time on
    live(1);
    const DWORD gdi = held(GR_GDIOBJECTS);
    const DWORD user = held(GR_USEROBJECTS);
    int lives = 0;
    for (bool more = true; more && lives < 1000 && !HasFailure(); ++lives) {
        SCOPED_TRACE(lives);
        more = live(lives);
    }
    EXPECT_GT(lives, 60);
    EXPECT_LE(held(GR_GDIOBJECTS), gdi);
    EXPECT_LE(held(GR_USEROBJECTS), user);
}

INSTANTIATE_TEST_SUITE_P(OfContainers, Misbehaviour,
                         ::testing::Values(Case{u"lbl", Misdeed::Refuses, "RefusesLabels"},
                                           Case{u"lbl", Misdeed::GivesNothing, "GivesLabelsNothing"},
                                           Case{u"lbl", Misdeed::DropsTheControl, "DropsLabels"},
                                           Case{u"lbl", Misdeed::ClosesTheControl, "ClosesLabels"},
                                           Case{u"get", Misdeed::Refuses, "RefusesFields"},
                                           Case{u"get", Misdeed::GivesNothing, "GivesFieldsNothing"},
                                           Case{u"get", Misdeed::DropsTheControl, "DropsFields"},
                                           Case{u"get", Misdeed::ClosesTheControl, "ClosesFields"}),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
