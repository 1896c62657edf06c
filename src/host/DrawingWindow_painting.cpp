// Painting: contexts, the background, the persistent bitmap and windowless children.

#include "host/DrawingWindow.h"
#include "host/Label.h"
#include "host/Picture.h"
#include "platform/gdi.h"

namespace host {

platform::SIZE DrawingWindow::clientSize() const {
    platform::RECT client;
    if (window_) platform::GetClientRect(window_, &client);
    return {client.right, client.bottom};
}

void DrawingWindow::prepare(platform::HDC dc) {
    platform::SelectObject(dc, font_->hFont());
    platform::SetTextColor(dc, rgbFromOle(foreColor_));
    platform::SetBkColor(dc, rgbFromOle(backColor_));
    platform::SetBkMode(dc, platform::TRANSPARENT);
}

platform::HDC DrawingWindow::hDC() {
    if (autoRedraw_ && window_) {
        fitBitmap();
        return bitmapContext_;
    }
    if (paintContext_ || !window_) return paintContext_;
    if (!windowContext_) {
        windowContext_ = platform::GetDC(window_);
        prepare(windowContext_);
    }
    return windowContext_;
}

void DrawingWindow::releaseWindowContext() {
    if (!windowContext_) return;
    platform::SelectObject(windowContext_, platform::GetStockObject(platform::SYSTEM_FONT));
    platform::ReleaseDC(window_, windowContext_);
    windowContext_ = {};
}

void DrawingWindow::AutoRedraw(bool value) {
    if (value == autoRedraw_) return;
    autoRedraw_ = value;
    if (value)
        fitBitmap();
    else
        dropBitmap();
    invalidate();
}

void DrawingWindow::fitBitmap() {
    const platform::SIZE wanted = clientSize();
    if (!window_ || (bitmapContext_ && bitmapSize_ == wanted)) return;
    const platform::HDC screen = platform::GetDC(window_);
    const platform::HBITMAP bitmap =
        platform::CreateCompatibleBitmap(screen, std::max(1, wanted.cx), std::max(1, wanted.cy));
    const platform::HDC context = platform::CreateCompatibleDC(screen);
    platform::ReleaseDC(window_, screen);
    const platform::HGDIOBJ former = platform::SelectObject(context, bitmap);
    prepare(context);
    paintBackground(context);
    if (bitmapContext_)
        platform::BitBlt(context, 0, 0, bitmapSize_.cx, bitmapSize_.cy, bitmapContext_, 0, 0,
                         platform::SRCCOPY);
    dropBitmap();
    bitmapContext_ = context;
    bitmap_ = bitmap;
    formerBitmap_ = former;
    bitmapSize_ = wanted;
}

void DrawingWindow::dropBitmap() {
    if (!bitmapContext_) return;
    platform::SelectObject(bitmapContext_, platform::GetStockObject(platform::SYSTEM_FONT));
    platform::SelectObject(bitmapContext_, formerBitmap_);
    platform::DeleteDC(bitmapContext_);
    platform::DeleteObject(bitmap_);
    bitmapContext_ = {};
    bitmap_ = {};
}

void DrawingWindow::Cls() {
    if (const platform::HDC dc = hDC()) paintBackground(dc);
    if (autoRedraw_) invalidate();
}

void DrawingWindow::Refresh() {
    if (!window_) return;
    invalidate();
    platform::UpdateWindow(window_);
}

void DrawingWindow::PaintPicture(const host::Picture& picture, float x, float y, float width, float height) {
    const auto pixels = [this](float length, Axis axis) {
        return pixelsFromTwips(length * unitTwips(axis), axis);
    };
    const platform::HDC dc = hDC();
    if (!dc) return;
    const platform::SIZE own = picture.pixels();
    picture.render(dc, pixels(x - scaleLeft_, Axis::Horizontal), pixels(y - scaleTop_, Axis::Vertical),
                   width == 0 ? own.cx : pixels(width, Axis::Horizontal),
                   height == 0 ? own.cy : pixels(height, Axis::Vertical));
    if (autoRedraw_) invalidate();
}

void DrawingWindow::invalidate() {
    const platform::SIZE size = clientSize();
    invalidate({0, 0, size.cx, size.cy});
}

void DrawingWindow::invalidate(const platform::RECT& area) {
    if (!window_ || !platform::IsWindowVisible(window_)) return; // all of it is painted once it is shown
    platform::InvalidateRect(window_, &area, platform::FALSE_);
    for (platform::HWND child = platform::GetWindow(window_, platform::GW_CHILD); child;
         child = platform::GetWindow(child, platform::GW_HWNDNEXT)) {
        DrawingWindow* object = fromWindow(child);
        if (!object || object->paintedBackStyle() == BackStyle::Opaque) continue;
        platform::RECT shifted = area;
        platform::POINT corners[2] = {{area.left, area.top}, {area.right, area.bottom}};
        platform::MapWindowPoints(window_, child, corners, 2);
        shifted = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
        object->invalidate(shifted);
    }
}

void DrawingWindow::paintNow() {
    const platform::HWND window = window_;
    platform::RECT pending;
    // A WM_PAINT that somebody sent although nothing is to be painted wants the whole window shown at once.
    if (!platform::GetUpdateRect(window, &pending, platform::FALSE_)) {
        const platform::HDC dc = platform::GetDC(window);
        paintContent(dc);
        platform::ReleaseDC(window, dc);
        return;
    }
    platform::PAINTSTRUCT paint;
    const platform::HDC dc = platform::BeginPaint(window, &paint);
    paintContent(dc);
    platform::EndPaint(window, &paint);
}

/// Paints on somebody else's context.
void DrawingWindow::paintOn(platform::HDC dc) {
    const int state = platform::SaveDC(dc);
    paintContent(dc);
    platform::RestoreDC(dc, state);
}

void DrawingWindow::paintBackground(platform::HDC dc) {
    const platform::SIZE size = clientSize();
    const platform::RECT all{0, 0, size.cx, size.cy};
    if (paintedBackStyle() == BackStyle::Transparent) {
        const int state = platform::SaveDC(dc);
        paintBehind(dc);
        platform::RestoreDC(dc, state);
    } else {
        const platform::HBRUSH brush = platform::CreateSolidBrush(rgbFromOle(backColor_));
        platform::FillRect(dc, &all, brush);
        platform::DeleteObject(brush);
    }
    if (picture_) picture_->render(dc, 0, 0, picture_->pixels().cx, picture_->pixels().cy);
}

void DrawingWindow::paintContent(platform::HDC dc) {
    prepare(dc);
    if (autoRedraw_) {
        fitBitmap();
        platform::BitBlt(dc, 0, 0, bitmapSize_.cx, bitmapSize_.cy, bitmapContext_, 0, 0, platform::SRCCOPY);
    } else {
        if (!paintsOwnBackground()) paintBackground(dc);
        const platform::HDC outer = std::exchange(paintContext_, dc);
        const bool isKept = !labels_.empty(); // for them, whatever onPaint does to it
        const int state = isKept ? platform::SaveDC(dc) : 0;
        onPaint();
        if (isKept) platform::RestoreDC(dc, state);
        paintContext_ = outer;
    }
    for (const Label* label : labels_)
        label->paint(dc);
}

} // namespace host
