#include "host/DrawingWindow.h"

#include "automation/Error.h"
#include "host/Label.h"
#include "host/Picture.h"
#include "host/Session.h"
#include "platform/gdi.h"

#include <algorithm>
#include <string_view>

namespace host {

namespace {

/// All windows of the host have classes whose names begin so.
constexpr std::string_view ClassPrefix = "TeselaHost";

void registerClass(const char* name, platform::WNDPROC procedure) {
    platform::WNDCLASSA windowClass;
    windowClass.style = platform::CS_DBLCLKS;
    windowClass.lpfnWndProc = procedure;
    windowClass.hCursor = platform::LoadCursorA({}, platform::IDC_ARROW);
    windowClass.lpszClassName = name;
    platform::RegisterClassA(&windowClass); // fails, rightly, from the second window of the class on
}

} // namespace

DrawingWindow::DrawingWindow() : font_(plainFont()) {}

DrawingWindow::~DrawingWindow() {
    destroyWindow();
    const std::vector<Label*> left = std::exchange(labels_, {});
    for (Label* label : left)
        label->homeGone();
}

DrawingWindow* DrawingWindow::fromWindow(platform::HWND window) {
    constexpr int LongestName = 64;
    char name[LongestName] = {};
    if (!window || platform::GetClassNameA(window, name, LongestName) == 0) return nullptr;
    if (!std::string_view(name).starts_with(ClassPrefix)) return nullptr;
    return reinterpret_cast<DrawingWindow*>(platform::GetWindowLongPtrA(window, platform::GWLP_USERDATA));
}

void DrawingWindow::makeWindow(const char* className, platform::DWORD style, platform::DWORD exStyle,
                               platform::POINT corner, platform::SIZE size, platform::HWND parent) {
    registerClass(className, &DrawingWindow::procedure);
    platform::CreateWindowExA(exStyle, className, "", style, corner.x, corner.y, size.cx, size.cy, parent, {},
                              {}, this);
    if (!window_) throw automation::Error(automation::errors::OutOfMemory);
}

void DrawingWindow::destroyWindow() {
    releaseWindowContext();
    dropBitmap();
    if (!window_) return;
    // From here on the window's messages are no longer this object's.
    const platform::HWND window = std::exchange(window_, {});
    platform::SetWindowLongPtrA(window, platform::GWLP_USERDATA, 0);
    platform::DestroyWindow(window);
}

platform::LRESULT DrawingWindow::procedure(platform::HWND window, platform::UINT message,
                                           platform::WPARAM wParam, platform::LPARAM lParam) {
    if (message == platform::WM_NCCREATE) {
        const auto* made = reinterpret_cast<const platform::CREATESTRUCTA*>(lParam);
        auto* object = static_cast<DrawingWindow*>(made->lpCreateParams);
        object->window_ = window;
        platform::SetWindowLongPtrA(window, platform::GWLP_USERDATA,
                                    reinterpret_cast<platform::LONG_PTR>(object));
    }
    auto* object =
        reinterpret_cast<DrawingWindow*>(platform::GetWindowLongPtrA(window, platform::GWLP_USERDATA));
    if (!object) return platform::DefWindowProcA(window, message, wParam, lParam);
    return object->dispatch(message, wParam, lParam);
}

platform::LRESULT DrawingWindow::dispatch(platform::UINT message, platform::WPARAM wParam,
                                          platform::LPARAM lParam) {
    // A handler may take the control off its form or unload the form: the object stays until it returns.
    const automation::Ref<automation::Object> alive(&self());
    struct Depth {
        DrawingWindow& window;
        explicit Depth(DrawingWindow& w) : window(w) { ++window.depth_; }
        ~Depth() {
            if (--window.depth_ == 0) window.releaseWindowContext();
        }
    };
    const Depth depth(*this);
    return handle(message, wParam, lParam);
}

platform::LRESULT DrawingWindow::handle(platform::UINT code, platform::WPARAM wParam,
                                        platform::LPARAM lParam) {
    const platform::HWND window = window_;
    platform::LRESULT result = 0;
    if (message(code, wParam, lParam, result)) return result;
    switch (code) {
    case platform::WM_NCDESTROY:
        releaseWindowContext();
        window_ = {};
        return platform::DefWindowProcA(window, code, wParam, lParam);
    case platform::WM_ERASEBKGND:
        return 1; // painting fills everything
    case platform::WM_PAINT:
        paintNow();
        return 0;
    case platform::WM_PRINTCLIENT:
        paintOn(platform::HDC(static_cast<std::uint32_t>(wParam)));
        return 0;
    case platform::WM_SIZE:
        if (autoRedraw_) fitBitmap();
        invalidate();
        windowSized();
        return 0;
    case platform::WM_SETFOCUS:
        focusCame();
        return 0;
    case platform::WM_KILLFOCUS:
        focusGoes(platform::HWND(static_cast<std::uint32_t>(wParam)));
        return 0;
    case platform::WM_SETCURSOR:
        if (platform::LOWORD(static_cast<std::uintptr_t>(lParam)) == platform::HTCLIENT && setPointer())
            return 1;
        break;
    case platform::WM_CAPTURECHANGED:
        buttonsDown_ = 0;
        break;
    case platform::WM_SYSCOLORCHANGE:
        invalidate();
        break;
    case platform::WM_GETDLGCODE:
        return platform::DLGC_WANTARROWS | platform::DLGC_WANTCHARS;
    default:
        if (code >= platform::WM_KEYFIRST && code <= platform::WM_KEYLAST)
            return handleKey(code, wParam, lParam);
        if (code >= platform::WM_MOUSEFIRST && code <= platform::WM_MOUSELAST) {
            handleMouse(code, wParam, lParam);
            return 0;
        }
        break;
    }
    return otherMessage(code, wParam, lParam);
}

platform::LRESULT DrawingWindow::otherMessage(platform::UINT code, platform::WPARAM wParam,
                                              platform::LPARAM lParam) {
    return window_ ? platform::DefWindowProcA(window_, code, wParam, lParam) : 0;
}

void DrawingWindow::focusCame() {
    onGotFocus();
}

void DrawingWindow::focusGoes(platform::HWND) {
    onLostFocus();
}

bool DrawingWindow::translateKey(platform::UINT, platform::WPARAM&, platform::LPARAM) {
    return false;
}

void DrawingWindow::BackColor(OLE_COLOR value) {
    backColor_ = value;
    if (autoRedraw_) Cls();
    look();
    lookChanged(u"BackColor");
}

void DrawingWindow::ForeColor(OLE_COLOR value) {
    foreColor_ = value;
    look();
    lookChanged(u"ForeColor");
}

const automation::Ref<StdFont>& DrawingWindow::Font() {
    if (font_.get() != session().plainFont) return font_;
    font_ = font_->clone();
    fontChanges_ = font_->FontChanged.subscribe([this](const automation::String&) {
        look();
        lookChanged(u"Font");
    });
    return font_;
}

void DrawingWindow::Font(const StdFont& value) {
    if (!value.equals(*font_)) Font()->assign(value);
}

void DrawingWindow::look() {
    for (const platform::HDC dc : {paintContext_, windowContext_, bitmapContext_}) {
        if (dc) prepare(dc);
    }
    invalidate();
}

void DrawingWindow::Picture(const automation::Ref<host::Picture>& value) {
    picture_ = value;
    if (autoRedraw_) Cls();
    invalidate();
}

void DrawingWindow::MousePointer(host::MousePointer value) {
    pointer_ = value;
}

bool DrawingWindow::setPointer() const {
    const auto program = session().pointer;
    const auto wanted = program != host::MousePointer::Default ? program : pointer_;
    platform::WORD cursor = 0;
    switch (wanted) {
    case host::MousePointer::Default:
    case host::MousePointer::Icon:
        return false;
    case host::MousePointer::Arrow:
        cursor = platform::IDC_ARROW;
        break;
    case host::MousePointer::Cross:
        cursor = platform::IDC_CROSS;
        break;
    case host::MousePointer::IBeam:
        cursor = platform::IDC_IBEAM;
        break;
    case host::MousePointer::Size:
    case host::MousePointer::SizeAll:
        cursor = platform::IDC_SIZEALL;
        break;
    case host::MousePointer::SizeNESW:
        cursor = platform::IDC_SIZENESW;
        break;
    case host::MousePointer::SizeNS:
        cursor = platform::IDC_SIZENS;
        break;
    case host::MousePointer::SizeNWSE:
        cursor = platform::IDC_SIZENWSE;
        break;
    case host::MousePointer::SizeWE:
        cursor = platform::IDC_SIZEWE;
        break;
    case host::MousePointer::UpArrow:
        cursor = platform::IDC_UPARROW;
        break;
    case host::MousePointer::Hourglass:
        cursor = platform::IDC_WAIT;
        break;
    case host::MousePointer::NoDrop:
        cursor = platform::IDC_NO;
        break;
    case host::MousePointer::ArrowHourglass:
        cursor = platform::IDC_APPSTARTING;
        break;
    case host::MousePointer::ArrowQuestion:
        cursor = platform::IDC_HELP;
        break;
    }
    platform::SetCursor(platform::LoadCursorA({}, cursor));
    return true;
}

// Windowless children.

void DrawingWindow::addLabel(Label& label) {
    labels_.push_back(&label);
}

void DrawingWindow::removeLabel(Label& label) {
    std::erase(labels_, &label);
    if (pressedLabel_ == &label) pressedLabel_ = nullptr;
}

void DrawingWindow::zOrderLabel(Label& label, ZOrderPosition position) {
    std::erase(labels_, &label);
    labels_.insert(position == ZOrderPosition::Front ? labels_.end() : labels_.begin(), &label);
    invalidate();
}

} // namespace host
