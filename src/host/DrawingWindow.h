#pragma once

#include "automation/Object.h"
#include "automation/String.h"
#include "host/Colors.h"
#include "host/Control.h"
#include "host/Picture.h"
#include "host/ScaleMode.h"
#include "host/StdFont.h"
#include "platform/windows.h"

#include <vector>

namespace host {

class Label;

enum class BackStyle : int { Transparent = 0, Opaque = 1 };

enum class MousePointer : int {
    Default = 0,
    Arrow = 1,
    Cross = 2,
    IBeam = 3,
    Icon = 4,
    Size = 5,
    SizeNESW = 6,
    SizeNS = 7,
    SizeNWSE = 8,
    SizeWE = 9,
    UpArrow = 10,
    Hourglass = 11,
    NoDrop = 12,
    ArrowHourglass = 13,
    ArrowQuestion = 14,
    SizeAll = 15,
};

/// Bits of the `Shift` argument of keys and mouse events, and of `Button`.
inline constexpr short ShiftMask = 1;
inline constexpr short CtrlMask = 2;
inline constexpr short AltMask = 4;
inline constexpr short LeftButton = 1;
inline constexpr short RightButton = 2;
inline constexpr short MiddleButton = 4;

/// The Shift argument as the keyboard stands at the present message.
short shiftState();

/// What forms, user controls and picture boxes share: a window with a scale, a font and colours, that paints
/// itself and its windowless children and turns its messages into the virtual handlers `on...`.
class DrawingWindow {
public:
    DrawingWindow();
    DrawingWindow(const DrawingWindow&) = delete;
    DrawingWindow& operator=(const DrawingWindow&) = delete;
    virtual ~DrawingWindow();

    /// Zero before the window is made and after it is gone.
    platform::HWND hWnd() const { return window_; }

    /// A device context of the client area with the window's font, its colour for text and a transparent
    /// background mode. While onPaint runs it is the one being painted; with AutoRedraw the persistent
    /// bitmap. Otherwise it is the window's and stands until the handler of the present message returns.
    platform::HDC hDC();
    /// As a program's Long.
    bool HasDC() const { return static_cast<bool>(window_); }

    OLE_COLOR BackColor() const { return backColor_; }
    void BackColor(OLE_COLOR value);
    OLE_COLOR ForeColor() const { return foreColor_; }
    void ForeColor(OLE_COLOR value);

    /// The window's own font object, made at the first call; a change of it repaints.
    const automation::Ref<StdFont>& Font();
    /// Copies the attributes into the window's own font.
    void Font(const StdFont& value);

    host::MousePointer MousePointer() const { return pointer_; }
    void MousePointer(host::MousePointer value);

    /// With True what is drawn on hDC goes to a bitmap that each paint shows again, and onPaint is not
    /// called.
    bool AutoRedraw() const { return autoRedraw_; }
    void AutoRedraw(bool value);
    /// Fills the client area (the persistent bitmap, with AutoRedraw) with the back colour.
    void Cls();
    /// Repaints the window now.
    void Refresh();

    host::ScaleMode ScaleMode() const { return scaleMode_; }
    void ScaleMode(host::ScaleMode value);
    /// Size and origin of the client area in the window's scale. Writing one changes to user units.
    float ScaleWidth() const;
    void ScaleWidth(float value);
    float ScaleHeight() const;
    void ScaleHeight(float value);
    float ScaleLeft() const { return scaleLeft_; }
    void ScaleLeft(float value);
    float ScaleTop() const { return scaleTop_; }
    void ScaleTop(float value);

    /// Converts a length; the units default to this window's. A mode that does not exist throws
    /// automation::Error 380.
    float ScaleX(float length, host::ScaleMode from, host::ScaleMode to) const;
    float ScaleX(float length, host::ScaleMode from = host::ScaleMode::Himetric) const;
    float ScaleY(float length, host::ScaleMode from, host::ScaleMode to) const;
    float ScaleY(float length, host::ScaleMode from = host::ScaleMode::Himetric) const;

    /// Extent of a text in the window's font and scale: the widest of its lines, the sum of their heights.
    float TextWidth(const automation::String& text) const;
    float TextHeight(const automation::String& text) const;

    /// A picture behind everything, at the top left corner.
    const automation::Ref<host::Picture>& Picture() const { return picture_; }
    void Picture(const automation::Ref<host::Picture>& value);
    /// Draws a picture at a place in the window's scale; a size of 0 is the picture's own.
    void PaintPicture(const host::Picture& picture, float x, float y, float width = 0, float height = 0);

    // For containers and constituents.

    /// Twips of one unit of this window's scale.
    double unitTwips(Axis axis) const;
    /// Pixels of the client area.
    platform::SIZE clientSize() const;
    /// Marks an area (pixels) to be painted, with the transparent children above it.
    void invalidate(const platform::RECT& area);
    void invalidate();
    /// Paints background and windowless children on a context whose (0, 0) is the client's corner.
    void paintContent(platform::HDC dc);
    /// Windowless children, bottom first.
    const std::vector<Label*>& labels() const { return labels_; }
    void addLabel(Label& label);
    void removeLabel(Label& label);
    void zOrderLabel(Label& label, ZOrderPosition position);

    /// Windows of other objects find their object by this; null for a window of another kind.
    static DrawingWindow* fromWindow(platform::HWND window);

    /// The counted object that this window belongs to; it is kept alive while a message is handled.
    virtual automation::Object& self() = 0;

protected:
    // What happens to the window. Coordinates are in the window's scale. A handler may change the arguments
    // that are references; a zeroed key, character or button is forgotten by the host.
    virtual void onPaint() {}
    virtual void onResize() {}
    virtual void onGotFocus() {}
    virtual void onLostFocus() {}
    virtual void onKeyDown(short& KeyCode, short& Shift);
    virtual void onKeyPress(short& KeyAscii); ///< The character's code in the ANSI code page
    virtual void onKeyUp(short& KeyCode, short& Shift);
    virtual void onMouseDown(short& Button, short& Shift, float& X, float& Y);
    virtual void onMouseMove(short& Button, short& Shift, float& X, float& Y);
    virtual void onMouseUp(short& Button, short& Shift, float& X, float& Y);
    virtual void onMouseWheel(short Delta, short Shift, float X, float Y); ///< Delta 120 is one notch up
    virtual void onClick() {}
    virtual void onDblClick() {}
    /// Any message, before the host looks at it; true with `result` set if there is nothing left to do.
    virtual bool message(platform::UINT, platform::WPARAM, platform::LPARAM, platform::LRESULT&) {
        return false;
    }

    /// Whether the back colour is painted at all; a transparent one shows its container.
    virtual BackStyle paintedBackStyle() const { return BackStyle::Opaque; }
    /// True: onPaint covers the whole window or paints the background itself where it doesn't.
    virtual bool paintsOwnBackground() const { return false; }
    /// The container of a key message's window, asked before the handlers.
    virtual bool translateKey(platform::UINT message, platform::WPARAM& wParam, platform::LPARAM lParam);
    /// Takes the focus because the mouse went down in the window.
    virtual void focusByMouse() {}
    virtual void focusCame();
    virtual void focusGoes(platform::HWND next);
    /// The window's client area has another size. Forms raise Resize by it; controls follow their bounds.
    virtual void windowSized() {}
    /// Twips of one unit of whatever holds the window, for the container scale modes.
    virtual double containerUnitTwips(Axis) const { return 1.0; }
    /// What lies under a transparent window.
    virtual void paintBehind(platform::HDC) {}
    /// A property that contained controls see as an ambient value has changed.
    virtual void lookChanged(const char16_t*) {}
    /// Any mouse message of the window, before the handlers, with the tool tip of the label under the
    /// pointer.
    virtual void mouseActivity(platform::UINT, const automation::String&) {}
    /// Messages that neither the handlers nor the classes above use.
    virtual platform::LRESULT otherMessage(platform::UINT, platform::WPARAM, platform::LPARAM);
    virtual bool takesInput() const { return true; }

    void makeWindow(const char* className, platform::DWORD style, platform::DWORD exStyle,
                    platform::POINT corner, platform::SIZE size, platform::HWND parent);
    void destroyWindow();
    /// The context of the paint that is under way; zero when none is.
    platform::HDC paintContext() const { return paintContext_; }
    void paintBackground(platform::HDC dc);

private:
    static platform::LRESULT procedure(platform::HWND, platform::UINT, platform::WPARAM, platform::LPARAM);
    platform::LRESULT dispatch(platform::UINT, platform::WPARAM, platform::LPARAM);
    platform::LRESULT handle(platform::UINT, platform::WPARAM, platform::LPARAM);
    platform::LRESULT handleKey(platform::UINT, platform::WPARAM, platform::LPARAM);
    void handleMouse(platform::UINT, platform::WPARAM, platform::LPARAM);
    void buttonDown(short button, platform::POINT at, bool second);
    void buttonUp(short button, platform::POINT at);
    double unitOf(host::ScaleMode mode, Axis axis) const;
    float unitX(int pixels) const;
    float unitY(int pixels) const;
    void toUserScale();
    void paintNow();
    void paintOn(platform::HDC dc);
    void prepare(platform::HDC dc);
    void look();
    void releaseWindowContext();
    void fitBitmap();
    void dropBitmap();
    bool setPointer() const;
    Label* labelAt(platform::POINT at) const;

    platform::HWND window_;
    automation::Ref<StdFont> font_; ///< The plain one, shared, until somebody asks for the window's own
    automation::Subscription fontChanges_;
    automation::Ref<host::Picture> picture_;
    std::vector<Label*> labels_;
    OLE_COLOR backColor_ = colorButtonFace;
    OLE_COLOR foreColor_ = colorButtonText;
    host::MousePointer pointer_ = host::MousePointer::Default;
    host::ScaleMode scaleMode_ = host::ScaleMode::Twips;
    float scaleLeft_ = 0;
    float scaleTop_ = 0;
    double userX_ = 1; ///< Twips of one user unit
    double userY_ = 1;
    bool autoRedraw_ = false;
    platform::HDC paintContext_;  ///< While onPaint runs
    platform::HDC windowContext_; ///< Borrowed for hDC, until the message ends
    platform::HDC bitmapContext_; ///< The persistent bitmap's, with AutoRedraw
    platform::HBITMAP bitmap_;
    platform::HGDIOBJ formerBitmap_;
    platform::SIZE bitmapSize_;
    int depth_ = 0; ///< Messages of this window being handled
    short buttonsDown_ = 0;
    bool secondPress_ = false; ///< The press was the second of a double click
    int skipCharacter_ = 0;    ///< Character of a key that the container has used
    Label* pressedLabel_ = nullptr;
};

} // namespace host
