// What controls look like in containers, held to the pictures that the library makes on the other system.

#include "activex/windows/Container.h"
#include "activex/windows/Look.h"
#include "activex/windows/SystemContainer.h"

#include <gtest/gtest.h>

namespace {

using activex::ComPointer;
using support::Look;
using support::Site;

class Looks : public ::testing::TestWithParam<Look> {
protected:
    const Look& look() const { return GetParam(); }
    bool isUsed() const { return look().use != Look::inactive; }

    void expectGolden(const std::vector<::COLORREF>& picture, const char* how) const {
        const auto expected = look().golden(size());
        ASSERT_EQ(picture.size(), expected.size());
        ASSERT_GT(picture.size(), 0u);
        std::size_t different = 0;
        for (std::size_t i = 0; i < picture.size(); ++i)
            different += picture[i] != expected[i];
        EXPECT_EQ(different, 0u) << "pixels of " << picture.size() << " " << how;
    }
    /// What IViewObject2 of the control paints.
    void expectGoldenDrawings(::IUnknown& view) const {
        using support::Way;
        expectGolden(support::drawn(view, size().cx, size().cy), "drawn");
        expectGolden(support::drawn(view, size().cx, size().cy, Way::ThroughMetafile), "through a metafile");
    }
    /// What stands in the control's window while the control is used, without the caret.
    void expectGoldenWindow() const {
        const ::HWND own = window();
        ASSERT_TRUE(::IsWindowVisible(own));
        if (look().use >= 0)
            ::SendMessageW(own, WM_LBUTTONDOWN, MK_LBUTTON,
                           MAKELPARAM(size().cx - look().use, size().cy / 2));
        ::UpdateWindow(own);
        ::HideCaret(own);
        const ::HDC dc = ::GetDC(own);
        expectGolden(support::pixels(dc, size().cx, size().cy), "in its window");
        expectGolden(support::painted(dc, size().cx, size().cy,
                                      [&](::HDC memory) {
                                          ::BitBlt(memory, 0, 0, size().cx, size().cy, dc, 0, 0, SRCCOPY);
                                      }),
                     "copied from its window");
        ::ReleaseDC(own, dc);
        expectGolden(support::painted(nullptr, size().cx, size().cy,
                                      [&](::HDC memory) {
                                          ::SendMessageW(own, WM_PRINT, reinterpret_cast<::WPARAM>(memory),
                                                         PRF_CLIENT | PRF_ERASEBKGND);
                                      }),
                     "printed");
        ::ShowCaret(own);
        if (look().use >= 0) ::SendMessageW(own, WM_LBUTTONUP, 0, MAKELPARAM(-20, -20));
    }
    ::SIZE size() const { return support::sizeOf(*control.get()); }
    ::HWND window() const {
        ::HWND own = nullptr;
        ComPointer<::IOleInPlaceObject>::of(control.get())->GetWindow(&own);
        return own;
    }

    const support::ContainerWindow top;
    ComPointer<::IDispatch> control = look().make();
};

TEST_P(Looks, InAContainerAreTheSameAsOnTheOtherSystem) {
    Site site(top.handle(), {20, 20, 20 + size().cx, 20 + size().cy}, control);
    site.ambient[DISPID_AMBIENT_BACKCOLOR] = static_cast<std::int32_t>(0x8000000F); // that of the sheet
    if (!isUsed()) expectGoldenDrawings(site.control());
    ASSERT_EQ(site.activate(isUsed()), S_OK);
    expectGoldenWindow();
    if (!isUsed()) expectGoldenDrawings(site.control());
    site.as<::IOleInPlaceObject>()->InPlaceDeactivate();
}

TEST_P(Looks, InTheSystemsContainerAreTheSameAsOnTheOtherSystem) {
    const support::SystemContainer system;
    const support::SystemHost host(top.handle(), {20, 20, 20 + size().cx, 20 + size().cy});
    ASSERT_EQ(system.attach(*control.get(), host.handle()), S_OK);
    const auto held = system.controlOf(host.handle());
    if (isUsed()) ::SetFocus(window());
    expectGoldenWindow();
    if (isUsed()) return;
    expectGoldenDrawings(*held.get());
    ASSERT_EQ(ComPointer<::IOleInPlaceObject>::of(held.get())->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(window(), nullptr);
    expectGoldenDrawings(*held.get());
}

INSTANTIATE_TEST_SUITE_P(Of, Looks, ::testing::ValuesIn(support::looks().begin(), support::looks().end()),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
