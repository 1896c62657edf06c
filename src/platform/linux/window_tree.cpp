// The table of windows, the tree and its geometry.

#include "platform/linux/window_system.h"

#include <algorithm>
#include <cctype>
#include <deque>

namespace platform::driver {

namespace {

constexpr std::uint32_t GenerationLimit = 0x7FFF; ///< Keeps a handle positive as a 32-bit integer

constinit int liveWindows = 0;
constinit HWND desktopHandle;

/// Those that have been free for longest last.
std::deque<std::uint32_t>& freeSlots() {
    static auto& slots = *new std::deque<std::uint32_t>; // windows may end after all statics have
    return slots;
}

} // namespace

constinit std::vector<WindowSlot> windowSlots; // made before the program runs

bool sameName(std::string_view a, std::string_view b) {
    return a == b || std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
               return std::tolower(x) == std::tolower(y);
           });
}

Attention& attention() {
    static Attention state;
    return state;
}

Window& addWindow() {
    auto& free = freeSlots();
    if (free.empty()) {
        free.push_back(static_cast<std::uint32_t>(windowSlots.size()));
        windowSlots.emplace_back();
    }
    const std::uint32_t index = free.back();
    free.pop_back();
    WindowSlot& slot = windowSlots[index];
    slot.generation = slot.generation % GenerationLimit + 1;
    slot.window = std::make_unique<Window>();
    slot.window->handle = HWND(slot.generation << windowSlotBits | (index + firstWindowSlot));
    ++liveWindows;
    return *slot.window;
}

void removeWindow(Window& window) {
    const std::uint32_t place = (window.handle.value & ((1u << windowSlotBits) - 1)) - firstWindowSlot;
    windowSlots[place].window.reset();
    freeSlots().push_front(place);
    --liveWindows;
}

int countWindows() {
    return desktopHandle ? liveWindows - 1 : liveWindows;
}

Window& desktopWindow() {
    if (!desktopHandle) {
        Window& desktop = addWindow();
        desktop.style = WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
        desktop.windowClass = std::make_shared<WindowClass>();
        desktop.windowClass->name = "#32769";
        desktop.procedure = DefWindowProcA;
        desktopHandle = desktop.handle;
    }
    Window& desktop = *findWindow(desktopHandle);
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    if (desktop.frame != screen) {
        desktop.frame = desktop.client = screen;
        rearranged(desktop);
    }
    return desktop;
}

bool isDesktop(const Window& window) {
    return window.handle == desktopHandle;
}

bool isTopLevel(const Window& window) {
    return window.parent && isDesktop(*window.parent);
}

Window* topLevelOf(Window* window) {
    while (window && window->parent && !isTopLevel(*window))
        window = window->parent;
    return window && isTopLevel(*window) ? window : nullptr;
}

bool isInside(const Window& ancestor, const Window* window) {
    while (window && window != &ancestor)
        window = window->parent;
    return window != nullptr;
}

bool isShown(const Window& window) {
    const Window* w = &window;
    while (w && w->is(WS_VISIBLE)) {
        if (w->is(WS_MINIMIZE) && w != &window) return false;
        w = w->parent;
    }
    return w == nullptr;
}

bool isReachable(const Window& window) {
    const Window* w = &window;
    while (w && !w->is(WS_DISABLED))
        w = w->parent;
    return w == nullptr;
}

namespace {

std::uint64_t& arrangementNumber() {
    static std::uint64_t number = 1;
    return number;
}

} // namespace

std::uint64_t arrangement() {
    return arrangementNumber();
}

void rearranged(Window& window) {
    ++arrangementNumber();
    awaitPaint(window);
}

void awaitPaint(Window& window) {
    for (Window* w = &window; w; w = w->parent)
        w->paintedChildren = 0;
}

void unlink(Window& window) {
    if (!window.parent) return;
    rearranged(window);
    // Most stand at an end: a new window that goes to the front, and the windows of a form that is taken
    // down.
    auto& siblings = window.parent->children;
    auto front = siblings.begin(), back = siblings.end();
    for (; front != back; ++front) {
        if (*front == &window) {
            siblings.erase(front);
            return;
        }
        if (--back == front) return;
        if (*back == &window) {
            siblings.erase(back);
            return;
        }
    }
}

void linkOnTop(Window& window, Window& parent) {
    window.parent = &parent;
    auto& siblings = parent.children;
    auto place = siblings.begin();
    if (!(window.exStyle & WS_EX_TOPMOST))
        while (place != siblings.end() && ((*place)->exStyle & WS_EX_TOPMOST))
            ++place;
    siblings.insert(place, &window);
    rearranged(window);
}

std::size_t placeAmongSiblings(const Window& window) {
    const auto& siblings = window.parent->children;
    if (window.lastPlace >= siblings.size() || siblings[window.lastPlace] != &window)
        window.lastPlace =
            static_cast<std::size_t>(std::find(siblings.begin(), siblings.end(), &window) - siblings.begin());
    return window.lastPlace;
}

std::vector<HWND> childHandles(const Window& window) {
    std::vector<HWND> handles;
    handles.reserve(window.children.size());
    for (const Window* child : window.children)
        handles.push_back(child->handle);
    return handles;
}

std::vector<HWND> ownedHandles(HWND owner) {
    std::vector<HWND> handles;
    for (const Window* window : desktopWindow().children)
        if (window->owner == owner) handles.push_back(window->handle);
    return handles;
}

int widthOf(const RECT& r) {
    return r.right - r.left;
}
int heightOf(const RECT& r) {
    return r.bottom - r.top;
}
bool hasNoArea(const RECT& r) {
    return r.right <= r.left || r.bottom <= r.top;
}

RECT offset(RECT r, LONG dx, LONG dy) {
    return {r.left + dx, r.top + dy, r.right + dx, r.bottom + dy};
}

RECT overlapOf(const RECT& a, const RECT& b) {
    const RECT r{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                 std::min(a.bottom, b.bottom)};
    return hasNoArea(r) ? RECT{} : r;
}

RECT unionOf(const RECT& a, const RECT& b) {
    if (hasNoArea(a)) return b;
    if (hasNoArea(b)) return a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

POINT clientOrigin(const Window& window) {
    POINT origin{window.client.left, window.client.top};
    for (const Window* w = window.parent; w; w = w->parent) {
        origin.x += w->client.left;
        origin.y += w->client.top;
    }
    return origin;
}

RECT screenClient(const Window& window) {
    const POINT origin = clientOrigin(window);
    return {origin.x, origin.y, origin.x + widthOf(window.client), origin.y + heightOf(window.client)};
}

RECT screenFrame(const Window& window) {
    const POINT origin = clientOrigin(window);
    return offset(window.frame, origin.x - window.client.left, origin.y - window.client.top);
}

namespace {

/// Windows below `window` at the point in the order in which they would get a mouse message.
void collectAt(Window& window, POINT screen, std::vector<HWND>& found) {
    if (contains(screenClient(window), screen)) {
        for (Window* child : window.children)
            if (child->is(WS_VISIBLE) && !child->is(WS_DISABLED) && contains(screenFrame(*child), screen))
                collectAt(*child, screen, found);
    }
    found.push_back(window.handle);
}

} // namespace

Window* windowAt(POINT screen, int& hit) {
    std::vector<HWND> found;
    for (Window* top : desktopWindow().children) {
        if (!top->is(WS_VISIBLE) || !contains(screenFrame(*top), screen)) continue;
        if (top->is(WS_DISABLED))
            found.push_back(top->handle);
        else
            collectAt(*top, screen, found);
    }
    for (HWND handle : found) {
        Window* window = findWindow(handle);
        if (!window) continue;
        if (window->is(WS_DISABLED)) {
            hit = HTNOWHERE;
            return window;
        }
        hit = static_cast<int>(callProcedure(*window, WM_NCHITTEST, 0, MAKELPARAM(screen.x, screen.y)));
        if (hit != HTTRANSPARENT) return findWindow(handle);
    }
    hit = HTNOWHERE;
    return nullptr;
}

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL IsWindow(HWND window) {
    return findWindow(window) != nullptr;
}

BOOL IsChild(HWND parent, HWND window) {
    const Window* p = findWindow(parent);
    const Window* w = findWindow(window);
    if (!p || !w || p == w || isDesktop(*p)) return FALSE_;
    while (w && w->isChild()) {
        w = w->parent;
        if (w == p) return TRUE_;
    }
    return FALSE_;
}

HWND GetParent(HWND window) {
    const Window* w = findWindow(window);
    if (!w || isDesktop(*w)) return {};
    if (w->isChild()) return w->parent ? w->parent->handle : HWND{};
    return w->is(WS_POPUP) ? w->owner : HWND{};
}

HWND GetDesktopWindow() {
    return desktopWindow().handle;
}

HWND GetTopWindow(HWND window) {
    return GetWindow(window ? window : GetDesktopWindow(), GW_CHILD);
}

HWND GetWindow(HWND window, UINT command) {
    const Window* w = findWindow(window);
    if (!w) return {};
    if (command == GW_OWNER) return w->owner;
    if (command == GW_CHILD) return w->children.empty() ? HWND{} : w->children.front()->handle;
    if (!w->parent) return {};
    const auto& siblings = w->parent->children;
    const std::size_t here = placeAmongSiblings(*w);
    const auto at = [&siblings](std::size_t place) {
        siblings[place]->lastPlace = place;
        return siblings[place]->handle;
    };
    switch (command) {
    case GW_HWNDFIRST:
        return at(0);
    case GW_HWNDLAST:
        return at(siblings.size() - 1);
    case GW_HWNDNEXT:
        return here + 1 == siblings.size() ? HWND{} : at(here + 1);
    case GW_HWNDPREV:
        return here == 0 ? HWND{} : at(here - 1);
    default:
        return {};
    }
}

int GetDlgCtrlID(HWND window) {
    return static_cast<int>(GetWindowLongPtrA(window, GWLP_ID));
}

HWND WindowFromPoint(POINT screen) {
    int hit = 0;
    const Window* found = windowAt(screen, hit);
    return found ? found->handle : GetDesktopWindow();
}

HWND ChildWindowFromPoint(HWND parent, POINT client) {
    Window* p = findWindow(parent);
    if (!p || !contains({0, 0, widthOf(p->client), heightOf(p->client)}, client)) return {};
    for (const Window* child : p->children)
        if (contains(child->frame, client)) return child->handle;
    return parent;
}

namespace {

bool visitDescendants(const Window& parent, BOOL (*visit)(HWND, LPARAM), LPARAM parameter) {
    for (HWND child : childHandles(parent)) {
        if (!findWindow(child)) continue;
        if (!visit(child, parameter)) return false;
        const Window* still = findWindow(child);
        if (still && !visitDescendants(*still, visit, parameter)) return false;
    }
    return true;
}

} // namespace

HWND FindWindowA(const char* className, const char* windowName) {
    for (const Window* top : desktopWindow().children) {
        if (className && !sameName(top->windowClass->name, className)) continue;
        if (windowName && !sameName(top->text, windowName)) continue;
        return top->handle;
    }
    return {};
}

BOOL EnumChildWindows(HWND parent, BOOL (*visit)(HWND, LPARAM), LPARAM parameter) {
    const Window* p = parent ? findWindow(parent) : &desktopWindow();
    if (!p || !visit) return FALSE_;
    return visitDescendants(*p, visit, parameter);
}

BOOL GetWindowRect(HWND window, RECT* screen) {
    const Window* w = findWindow(window);
    if (!w || !screen) return FALSE_;
    *screen = screenFrame(*w);
    return TRUE_;
}

BOOL GetClientRect(HWND window, RECT* client) {
    const Window* w = findWindow(window);
    if (!w || !client) return FALSE_;
    *client = {0, 0, widthOf(w->client), heightOf(w->client)};
    return TRUE_;
}

int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count) {
    const Window* source = from ? findWindow(from) : &desktopWindow();
    const Window* target = to ? findWindow(to) : &desktopWindow();
    if (!source || !target || !points) return 0;
    const POINT a = clientOrigin(*source);
    const POINT b = clientOrigin(*target);
    for (UINT i = 0; i < count; ++i) {
        points[i].x += a.x - b.x;
        points[i].y += a.y - b.y;
    }
    return static_cast<int>(MAKELPARAM(a.x - b.x, a.y - b.y));
}

BOOL ClientToScreen(HWND window, POINT* point) {
    if (!findWindow(window) || !point) return FALSE_;
    MapWindowPoints(window, {}, point, 1);
    return TRUE_;
}

BOOL ScreenToClient(HWND window, POINT* point) {
    if (!findWindow(window) || !point) return FALSE_;
    MapWindowPoints({}, window, point, 1);
    return TRUE_;
}

} // namespace platform
