#include "host/Screen.h"

#include "host/Form.h"
#include "host/Session.h"
#include "platform/gdi.h"

#include <vector>

namespace host {

namespace {

/// Read once: the fonts that a program starts with are those that it knows.
const std::vector<std::u16string>& fontNames() {
    auto& names = session().fontNames;
    if (names.empty()) names = platform::fontFamilies();
    return names;
}

} // namespace

short Screen::FontCount() {
    return static_cast<short>(fontNames().size());
}

automation::String Screen::Fonts(short index) {
    const auto& names = fontNames();
    if (index < 0 || static_cast<std::size_t>(index) >= names.size()) return {};
    return names[static_cast<std::size_t>(index)];
}

float Screen::TwipsPerPixelX() {
    return static_cast<float>(twipsPerPixel(Axis::Horizontal));
}

float Screen::TwipsPerPixelY() {
    return static_cast<float>(twipsPerPixel(Axis::Vertical));
}

float Screen::Width() {
    return static_cast<float>(platform::GetSystemMetrics(platform::SM_CXSCREEN) *
                              twipsPerPixel(Axis::Horizontal));
}

float Screen::Height() {
    return static_cast<float>(platform::GetSystemMetrics(platform::SM_CYSCREEN) *
                              twipsPerPixel(Axis::Vertical));
}

Form* Screen::ActiveForm() {
    return dynamic_cast<Form*>(DrawingWindow::fromWindow(platform::GetActiveWindow()));
}

Control* Screen::ActiveControl() {
    const Form* form = ActiveForm();
    return form ? form->ActiveControl() : nullptr;
}

host::MousePointer Screen::MousePointer() {
    return session().pointer;
}

void Screen::MousePointer(host::MousePointer value) {
    session().pointer = value;
}

} // namespace host
