#pragma once
// What the window functions of the driver share: the table of windows, the classes, the one queue's
// neighbours (focus, capture, activation) and the pixels of top-level windows.

#include "platform/linux/pixel_store.h"
#include "platform/linux/surface.h"
#include "platform/linux/window_list.h"
#include "platform/windows.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform::driver {

struct WindowClass {
    std::string name; ///< As registered; compared without case
    UINT style = 0;
    WNDPROC procedure = nullptr;
    int extraBytes = 0;
    HINSTANCE instance;
    HICON icon;
    HCURSOR cursor;
    HBRUSH background;
    ATOM atom = 0;
    int windows = 0; ///< Live ones
};

struct Window {
    HWND handle;
    std::shared_ptr<WindowClass> windowClass;
    WNDPROC procedure = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    RECT frame;  ///< In the parent's client area; on the screen for top-level windows
    RECT client; ///< In the same coordinates as `frame`
    RECT restored;
    Window* parent = nullptr; ///< The desktop for top-level windows
    HWND owner;               ///< Top-level windows only
    WindowList children;      ///< Top first
    std::string text;         ///< Bytes of the ANSI code page
    LONG_PTR userData = 0;
    LONG_PTR id = 0;
    HINSTANCE instance;
    std::vector<std::uint8_t> extra;
    std::map<std::string, HANDLE> properties;
    HFONT font;
    HICON icon;
    Region update;                     ///< Client coordinates
    std::uint64_t updateSeen = 0;      ///< The arrangement in which all of `update` was to be seen
    std::size_t paintedChildren = 0;   ///< So many of the children, from the top, have nothing to paint
    mutable std::size_t lastPlace = 0; ///< Among its siblings, when it was last looked for
    bool eraseDue = false;
    bool frameDue = false;        ///< WM_NCPAINT waits
    bool sizeMessagesDue = false; ///< WM_SIZE and WM_MOVE come with the first show
    bool destroying = false;
    bool shownActive = false;           ///< Its caption is painted as the active one
    std::shared_ptr<PixelStore> pixels; ///< Top-level windows only
    RECT unpresented;                   ///< Surface coordinates: drawn since the display last showed it

    bool is(DWORD bits) const { return (style & bits) == bits; }
    bool isChild() const { return (style & (WS_CHILD | WS_POPUP)) == WS_CHILD; }
};

/// Focus, activation and capture.
struct Attention {
    HWND focus;
    HWND active;
    HWND capture;
    HWND suspended;         ///< Was active when another program came to the front
    bool foreground = true; ///< Whether the active window is also the desktop's
};

Attention& attention();

// The table.

/// A handle holds the number of its window's slot, from firstWindowSlot, and the slot's generation.
struct WindowSlot {
    std::unique_ptr<Window> window;
    std::uint32_t generation = 0;
};
inline constexpr std::uint32_t windowSlotBits = 16;
inline constexpr std::uint32_t firstWindowSlot = 0x10; ///< Leaves out the values of HWND_TOP and HWND_BOTTOM
extern std::vector<WindowSlot> windowSlots;

/// nullptr for a handle that is no live window.
inline Window* findWindow(HWND handle) {
    // Values below the first slot's wrap to places beyond the last one.
    const std::uint32_t place = (handle.value & ((1u << windowSlotBits) - 1)) - firstWindowSlot;
    if (place >= windowSlots.size()) return nullptr;
    const WindowSlot& slot = windowSlots[place];
    return slot.generation == handle.value >> windowSlotBits ? slot.window.get() : nullptr;
}

Window& desktopWindow();
Window& addWindow();
void removeWindow(Window& window);
int countWindows();

std::shared_ptr<WindowClass> findClass(const char* name);
/// Whether the names are the same, whatever the case of their letters.
bool sameName(std::string_view a, std::string_view b);

// The tree.
bool isTopLevel(const Window& window);
bool isDesktop(const Window& window);
Window* topLevelOf(Window* window);
bool isInside(const Window& ancestor, const Window* window); ///< The ancestor itself counts
bool isShown(const Window& window);
bool isReachable(const Window& window); ///< It and its parents are enabled

/// To be called when a window has another place, size, order or visibility: what is seen of windows is to be
/// found out anew. Arrangements are numbered from 1.
void rearranged(Window& window);
std::uint64_t arrangement();
/// To be called when there may be something to paint in the window.
void awaitPaint(Window& window);

/// Takes the window out of its parent's children, or puts it among them.
void unlink(Window& window);
void linkOnTop(Window& window, Window& parent);

/// Handles of the children, top first: safe to walk while procedures run.
std::vector<HWND> childHandles(const Window& window);
std::size_t placeAmongSiblings(const Window& window);
std::vector<HWND> ownedHandles(HWND owner);

// Geometry. Screen coordinates.
POINT clientOrigin(const Window& window);
RECT screenFrame(const Window& window);
RECT screenClient(const Window& window);
int widthOf(const RECT& r);
int heightOf(const RECT& r);
bool hasNoArea(const RECT& r);
RECT offset(RECT r, LONG dx, LONG dy);
RECT overlapOf(const RECT& a, const RECT& b);
RECT unionOf(const RECT& a, const RECT& b); ///< An empty one counts for nothing

/// The deepest enabled and visible window at a point that does not answer HTTRANSPARENT; `hit` takes its
/// WM_NCHITTEST. A disabled top-level window is returned with HTNOWHERE.
Window* windowAt(POINT screen, int& hit);

// Messages to procedures.
LRESULT callProcedure(Window& window, UINT message, WPARAM wParam, LPARAM lParam);

// Pixels and painting (window_painting.cpp).

/// What of the window is seen on its surface, in screen coordinates. `whole`: with its frame.
Region visibleRegion(const Window& window, bool whole, bool withoutChildren);
void resizePixels(Window& topLevel);
void invalidate(Window& window, const Region& client, bool erase, bool children);
void invalidateAll(Window& window);
void exposeBelow(Window& parent, const Region& screen); ///< Uncovered: the parent and children repaint
void copyPixels(Window& topLevel, const Region& screen, POINT by);
HWND nextToPaint(HWND filter);
/// For drawing on what is seen of the window outside of its client area; ended by ReleaseDC.
HDC openFrameContext(Window& window);
void releaseContexts(HWND window);
void markDrawn(Window& window, const RECT& screen);

// Pictures (composition.cpp). Plain words of 32 bits unless said otherwise.
/// The pixels of a top-level window that has some, ready to be read.
PixelStore& pixelsOf(const Window& topLevel);
/// Puts together the desktop: its background, the visible top-level windows in their order, the caret.
void composeDesktop(PixelStore& picture);
/// The screen in the display's depth, with the windows of other programs where they are known, of the size
/// that the picture has already.
void composeScreen(PixelStore& picture);
/// Where words of the same size have other colours.
Region differenceOf(const Surface& words, const Surface& others);
/// One top-level window with the caret on it, if it is there.
void composeWindow(const Window& topLevel, PixelStore& picture);
/// Any pixels as words.
void copyAsWords(const PixelStore& pixels, PixelStore& words);
/// The window's pixels as words: its own, or a copy in `buffer`.
const Surface& plainSurface(const PixelStore& pixels, PixelStore& buffer);

// The caret (caret.cpp).
void inkCaret(const Window& topLevel, PixelStore& picture,
              POINT corner); ///< `corner`: the window's on the picture
std::int64_t nextBlink();    ///< Milliseconds until the caret changes; negative: it does not
void noteBlink();            ///< Marks the caret's place as drawn when it has gone on or off
void loseCaret(HWND window); ///< Its window is gone

// The frame (window_frame.cpp).
RECT frameWidths(DWORD style, DWORD exStyle); ///< Left, top, right, bottom of the non-client area
int hitTestFrame(const Window& window, POINT screen);
void paintFrame(Window& window);

// Activation (activation.cpp).
bool activate(HWND window, bool byMouse);
void activateAnother(HWND leaving); ///< After the active window went away
void loseForeground();
void regainForeground();
void forgetWindow(HWND window); ///< Clears focus, capture and activation that name a dead window

// Position (window_position.cpp).
void recalculateClient(Window& window);
RECT defaultPlace(DWORD style);

// Class windows of the driver.
void destroyAllWindows();

} // namespace platform::driver
