// What of each window is seen, what waits to be painted, and the contexts to paint with.

#include "platform/gdi.h"
#include "platform/linux/display.h"
#include "platform/linux/display_colors.h"
#include "platform/linux/rows.h"
#include "platform/linux/screen_contexts.h"
#include "platform/linux/window_system.h"

#include <algorithm>
#include <cstring>

namespace platform::driver {

namespace {

/// A context handed out by GetDC, GetWindowDC or BeginPaint.
struct OpenContext {
    HDC dc;
    HWND window;
    std::shared_ptr<PixelStore> pixels;
    RECT screen; ///< Bounds of what it can draw on
};

std::vector<OpenContext>& openContexts() {
    static std::vector<OpenContext> contexts;
    return contexts;
}

RECT bandIn(const Surface& surface) {
    return {0, 0, surface.width, surface.height};
}

/// The top-level window on whose pixels a window is drawn; null if there is none.
Window* drawnOn(Window& window) {
    Window* top = topLevelOf(&window);
    if (top && !top->pixels) resizePixels(*top);
    return top;
}

void needPixels(Window& top, const RECT& screen) {
    top.pixels->need(offset(screen, -top.frame.left, -top.frame.top));
}

HDC openOn(Window& top, const Window& window, POINT origin, Region visible) {
    const POINT corner{top.frame.left, top.frame.top};
    const RECT screen = visible.bounds();
    visible.translate(-corner.x, -corner.y);
    const HDC dc =
        createWindowDC(top.pixels->surface, {origin.x - corner.x, origin.y - corner.y}, std::move(visible));
    if (dc) openContexts().push_back({dc, window.handle, top.pixels, screen});
    return dc;
}

HDC openContext(Window& window, POINT origin, Region visible) {
    Window* top = drawnOn(window);
    if (!top) return {};
    needPixels(*top, visible.bounds()); // all of which may be read
    return openOn(*top, window, origin, std::move(visible));
}

bool closeContext(HDC dc) {
    auto& open = openContexts();
    const auto found =
        std::find_if(open.begin(), open.end(), [&](const OpenContext& c) { return c.dc == dc; });
    if (found == open.end()) return false;
    if (Window* window = findWindow(found->window)) markDrawn(*window, found->screen);
    const auto pixels = std::move(found->pixels);
    open.erase(found);
    return releaseWindowDC(dc);
}

Region screenRegion(const Window& window, const Region& client) {
    const POINT origin = clientOrigin(window);
    Region moved = client;
    moved.translate(origin.x, origin.y);
    return moved;
}

Region clientRegion(const Window& window, const Region& screen) {
    const POINT origin = clientOrigin(window);
    Region moved = screen;
    moved.translate(-origin.x, -origin.y);
    return moved;
}

bool needsPaint(const Window& window) {
    return (!window.update.empty() || window.frameDue) && isShown(window);
}

/// Goes on among the children where the last search ended, unless something happened there since.
HWND firstToPaint(Window& window) {
    if (!window.is(WS_VISIBLE)) return {};
    if (needsPaint(window)) return window.handle;
    for (; window.paintedChildren < window.children.size(); ++window.paintedChildren)
        if (const HWND found = firstToPaint(*window.children[window.paintedChildren])) return found;
    return {};
}

bool meet(const RECT& a, const RECT& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// Takes the frames of a window's children out of a region of the screen, those in front of `last` or all.
/// Most lie elsewhere, which their bounds tell at once.
void coverByChildren(Region& region, const Window& parent, const Window* last) {
    const POINT origin = clientOrigin(parent);
    const RECT bounds = offset(region.bounds(), -origin.x, -origin.y);
    std::vector<RECT> covers;
    for (const Window* child : parent.children) {
        if (child == last) break;
        if (meet(bounds, child->frame) && child->is(WS_VISIBLE))
            covers.push_back(offset(child->frame, origin.x, origin.y));
    }
    if (!covers.empty()) region = region.subtracted(Region::ofAll(std::move(covers)));
}

/// What is to be seen of a window within a region of the screen.
Region visibleWithin(const Window& window, Region region, bool withoutChildren) {
    for (const Window* w = &window; !isTopLevel(*w); w = w->parent) {
        region.cutTo(screenClient(*w->parent));
        if (w->is(WS_CLIPSIBLINGS)) coverByChildren(region, *w->parent, w);
    }
    if (withoutChildren) coverByChildren(region, window, nullptr);
    return region;
}

bool hasVisiblePart(const Window& window, bool whole) {
    return isShown(window) && !isDesktop(window) && (!window.is(WS_MINIMIZE) || whole);
}

/// Whether no two of a window's children that are shown lie over each other.
bool areApart(const WindowList& children) {
    std::vector<RECT> rects;
    rects.reserve(children.size());
    for (const Window* child : children)
        if (child->is(WS_VISIBLE)) rects.push_back(child->frame);
    std::sort(rects.begin(), rects.end(), [](const RECT& a, const RECT& b) { return a.top < b.top; });
    std::vector<RECT> open; // those that reach down to the next one's top
    for (const RECT& r : rects) {
        std::erase_if(open, [&r](const RECT& above) { return above.bottom <= r.top; });
        if (std::any_of(open.begin(), open.end(), [&r](const RECT& above) { return meet(above, r); }))
            return false;
        open.push_back(r);
    }
    return true;
}

void addToUpdate(Window& window, const Region& seen, bool erase) {
    if (window.update.empty())
        window.updateSeen = arrangement();
    else if (window.updateSeen != arrangement())
        window.updateSeen = 0;
    window.update = window.update.united(clientRegion(window, seen));
    window.eraseDue = window.eraseDue || erase;
    awaitPaint(window);
}

/// Marks a part of a window's client area, all of which is to be seen but for the window's children.
void invalidateSeen(Window& window, const Region& seen, bool erase, bool children) {
    Region own = seen;
    if (window.is(WS_CLIPCHILDREN)) coverByChildren(own, window, nullptr);
    if (!own.empty()) addToUpdate(window, own, erase);
    if (!children || window.children.empty()) return;
    const RECT bounds = clientRegion(window, seen).bounds();
    const bool apart = areApart(window.children);
    for (Window* child : window.children) {
        if (!meet(bounds, child->frame) || !child->is(WS_VISIBLE)) continue;
        Region part = seen;
        part.cutTo(screenFrame(*child));
        if (part.empty()) continue;
        if (child->frame != child->client) {
            child->frameDue = true;
            awaitPaint(*child);
        }
        if (!apart && child->is(WS_CLIPSIBLINGS)) coverByChildren(part, window, child);
        part.cutTo(screenClient(*child));
        if (!part.empty()) invalidateSeen(*child, part, erase, true);
    }
}

} // namespace

Region visibleRegion(const Window& window, bool whole, bool withoutChildren) {
    if (!hasVisiblePart(window, whole)) return {};
    // A program draws on one window again and again.
    struct Answer {
        HWND window;
        bool whole = false, withoutChildren = false;
        std::uint64_t arrangement = 0;
        Region region;
    };
    static Answer last;
    if (last.window != window.handle || last.whole != whole || last.withoutChildren != withoutChildren ||
        last.arrangement != arrangement()) {
        Region region(screenFrame(window));
        if (!whole) region.cutTo(screenClient(window));
        last = {window.handle, whole, withoutChildren, arrangement(),
                visibleWithin(window, std::move(region), withoutChildren)};
    }
    return last.region;
}

void resizePixels(Window& topLevel) {
    const int width = std::max(widthOf(topLevel.frame), 1);
    const int height = std::max(heightOf(topLevel.frame), 1);
    const auto former = topLevel.pixels;
    if (former && former->surface.width == width && former->surface.height == height) return;
    auto made = std::make_shared<PixelStore>();
    const RECT client = offset(topLevel.client, -topLevel.frame.left, -topLevel.frame.top);
    made->make(width, height, displayBitsPerPixel(), former ? RECT{} : client);
    if (former && haveSameFormat(former->surface, made->surface)) {
        former->needAll();
        for (int y = 0; y < std::min(height, former->surface.height); ++y)
            copyRow(former->surface, 0, y, made->surface, 0, y, std::min(width, former->surface.width));
    }
    topLevel.pixels = made;
    topLevel.unpresented = bandIn(made->surface);
}

void markDrawn(Window& window, const RECT& screen) {
    Window* top = topLevelOf(&window);
    if (!top || !top->pixels) return;
    const RECT drawn =
        overlapOf(offset(screen, -top->frame.left, -top->frame.top), bandIn(top->pixels->surface));
    top->unpresented = unionOf(top->unpresented, drawn);
}

void copyPixels(Window& topLevel, const Region& screen, POINT by) {
    if (!topLevel.pixels) return;
    PixelStore& store = pixelsOf(topLevel);
    std::vector<std::uint32_t> words(store.words().begin(), store.words().end());
    Surface before = store.surface;
    before.bits = reinterpret_cast<std::uint8_t*>(words.data());
    const RECT all = bandIn(store.surface);
    for (const RECT& r : screen.rectangles()) {
        const RECT target = overlapOf(offset(r, -topLevel.frame.left, -topLevel.frame.top), all);
        const RECT source = overlapOf(offset(target, -by.x, -by.y), all);
        for (LONG y = source.top; y < source.bottom; ++y)
            copyRow(before, source.left, y, store.surface, source.left + by.x, y + by.y, widthOf(source));
    }
    markDrawn(topLevel, screen.bounds());
}

void invalidate(Window& window, const Region& client, bool erase, bool children) {
    if (!hasVisiblePart(window, false)) return;
    Region part = screenRegion(window, client);
    part.cutTo(screenFrame(window));
    part.cutTo(screenClient(window));
    part = visibleWithin(window, std::move(part), false);
    if (!part.empty()) invalidateSeen(window, part, erase, children);
}

void invalidateAll(Window& window) {
    window.frameDue = window.frame != window.client;
    awaitPaint(window);
    invalidate(window, Region(RECT{0, 0, widthOf(window.client), heightOf(window.client)}), true, true);
}

void exposeBelow(Window& parent, const Region& screen) {
    if (screen.empty()) return;
    invalidate(parent, clientRegion(parent, screen), true, true);
}

HWND nextToPaint(HWND filter) {
    if (filter) {
        Window* window = findWindow(filter);
        return window && isShown(*window) ? firstToPaint(*window) : HWND{};
    }
    return firstToPaint(desktopWindow());
}

HDC openFrameContext(Window& window) {
    Window* top = drawnOn(window);
    if (!top) return {};
    const RECT frame = screenFrame(window);
    const Region seen = visibleRegion(window, true, false).subtracted(Region(screenClient(window)));
    for (const RECT& r : seen.rectangles())
        needPixels(*top, r);
    return openOn(*top, window, {frame.left, frame.top}, seen);
}

void releaseContexts(HWND window) {
    auto& open = openContexts();
    for (std::size_t i = open.size(); i-- > 0;) {
        if (open[i].window != window) continue;
        const OpenContext context = open[i];
        open.erase(open.begin() + static_cast<std::ptrdiff_t>(i));
        releaseWindowDC(context.dc);
    }
}

} // namespace platform::driver

namespace platform {

using namespace driver;

namespace {

RECT clientArea(const Window& window) {
    return {0, 0, widthOf(window.client), heightOf(window.client)};
}

bool takesChildren(const Window& window, UINT flags) {
    if (flags & RDW_NOCHILDREN) return false;
    return (flags & RDW_ALLCHILDREN) || !window.is(WS_CLIPCHILDREN);
}

void validate(Window& window, const Region& client, UINT flags) {
    window.update = window.update.subtracted(client);
    if (window.update.empty()) window.eraseDue = false;
    if (!takesChildren(window, flags)) return;
    for (Window* child : window.children) {
        Region part = client;
        part.translate(-child->client.left, -child->client.top);
        validate(*child, part, flags);
    }
}

/// Sends the window's frame and background messages; true when the background is erased.
bool prepare(HWND handle, HDC dc) {
    if (Window* window = findWindow(handle); window && window->frameDue) {
        window->frameDue = false;
        callProcedure(*window, WM_NCPAINT, 1, 0);
    }
    Window* window = findWindow(handle);
    if (!window || !window->eraseDue) return true;
    if (!callProcedure(*window, WM_ERASEBKGND, dc.value, 0)) return false;
    if ((window = findWindow(handle))) window->eraseDue = false;
    return true;
}

void paintNow(HWND handle, bool descend) {
    Window* window = findWindow(handle);
    if (!window) return;
    if (needsPaint(*window)) callProcedure(*window, WM_PAINT, 0, 0);
    if (!descend || !(window = findWindow(handle))) return;
    for (HWND child : childHandles(*window))
        paintNow(child, true);
}

void eraseNow(HWND handle) {
    Window* window = findWindow(handle);
    if (!window || !needsPaint(*window)) return;
    const Region area = screenRegion(*window, window->update);
    const HDC dc = openContext(*window, clientOrigin(*window), area);
    prepare(handle, dc);
    closeContext(dc);
}

} // namespace

BOOL RedrawWindow(HWND handle, const RECT* rect, HRGN region, UINT flags) {
    if (!handle) {
        for (HWND top : childHandles(desktopWindow()))
            RedrawWindow(top, nullptr, {}, flags | RDW_ALLCHILDREN);
        return TRUE_;
    }
    Window* window = findWindow(handle);
    if (!window) return FALSE_;
    RECT box = rect ? *rect : clientArea(*window);
    if (region && GetRgnBox(region, &box) == 0) return FALSE_;
    const Region area = Region(hasNoArea(box) ? RECT{} : box);
    if (flags & RDW_INVALIDATE) {
        invalidate(*window, area, (flags & RDW_ERASE) != 0, takesChildren(*window, flags));
        if ((flags & RDW_FRAME) && isShown(*window)) {
            window->frameDue = true;
            awaitPaint(*window);
        }
    } else if (flags & RDW_VALIDATE) {
        validate(*window, area, flags);
        if (flags & RDW_NOERASE) window->eraseDue = false;
    }
    if (flags & RDW_UPDATENOW)
        paintNow(handle, !(flags & RDW_NOCHILDREN));
    else if (flags & RDW_ERASENOW)
        eraseNow(handle);
    return TRUE_;
}

BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase) {
    return RedrawWindow(window, rect, {}, RDW_INVALIDATE | (erase ? RDW_ERASE : 0));
}

BOOL ValidateRect(HWND window, const RECT* rect) {
    return RedrawWindow(window, rect, {}, RDW_VALIDATE | RDW_NOCHILDREN);
}

BOOL UpdateWindow(HWND window) {
    if (!findWindow(window)) return FALSE_;
    paintNow(window, true);
    return TRUE_;
}

BOOL GetUpdateRect(HWND handle, RECT* rect, BOOL erase) {
    Window* window = findWindow(handle);
    if (!window) return FALSE_;
    if (erase && window->eraseDue) eraseNow(handle);
    if (!(window = findWindow(handle))) return FALSE_;
    if (rect) *rect = window->update.empty() ? RECT{} : window->update.bounds();
    return !window->update.empty();
}

HDC BeginPaint(HWND handle, PAINTSTRUCT* paint) {
    Window* window = findWindow(handle);
    if (!window || !paint) return {};
    if (window->frameDue) {
        window->frameDue = false;
        callProcedure(*window, WM_NCPAINT, 1, 0);
        if (!(window = findWindow(handle))) return {};
    }
    Region area = screenRegion(*window, window->update);
    if (window->updateSeen != arrangement())
        area = area.intersected(visibleRegion(*window, false, window->is(WS_CLIPCHILDREN)));
    const POINT origin = clientOrigin(*window);
    *paint = {};
    paint->rcPaint = area.empty() ? RECT{} : offset(area.bounds(), -origin.x, -origin.y);
    const HDC dc = openContext(*window, origin, std::move(area));
    paint->hdc = dc;
    window
        ->update = {}; // without a context, too: asking for the paint again and again would keep all else out
    if (!dc) return {};
    paint->fErase = !prepare(handle, dc);
    if (Window* still = findWindow(handle)) still->eraseDue = false;
    return dc;
}

BOOL EndPaint(HWND, const PAINTSTRUCT* paint) {
    if (!paint) return FALSE_;
    return closeContext(paint->hdc);
}

HDC GetDC(HWND handle) {
    if (!handle) return openScreenContext();
    Window* window = findWindow(handle);
    if (!window) return {};
    return openContext(*window, clientOrigin(*window),
                       visibleRegion(*window, false, window->is(WS_CLIPCHILDREN)));
}

HDC GetWindowDC(HWND handle) {
    if (!handle) return openScreenContext();
    Window* window = findWindow(handle);
    if (!window) return {};
    const RECT frame = screenFrame(*window);
    return openContext(*window, {frame.left, frame.top},
                       visibleRegion(*window, true, window->is(WS_CLIPCHILDREN)));
}

int ReleaseDC(HWND, HDC dc) {
    return closeContext(dc) || closeScreenContext(dc) ? 1 : 0;
}

HWND WindowFromDC(HDC dc) {
    for (const OpenContext& context : openContexts())
        if (context.dc == dc) return context.window;
    return {};
}

} // namespace platform
