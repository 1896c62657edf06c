#pragma once

#include "host/UserControl.h"

#include <string>

namespace host {

/// The one-line text field of the host's own dialogs: caret, selection, clipboard, and scrolling sideways.
class DialogEdit : public UserControl {
public:
    DialogEdit();

    automation::String Text() const { return text_; }
    /// Replaces the text and selects all of it.
    void Text(const automation::String& value);

    const automation::ClassTable& classTable() const override;

protected:
    void onInitProperties() override;
    void onPaint() override;
    void onGotFocus() override;
    void onLostFocus() override;
    void onKeyDown(short& KeyCode, short& Shift) override;
    void onKeyPress(short& KeyAscii) override;
    void onMouseDown(short& Button, short& Shift, float& X, float& Y) override;
    void onMouseMove(short& Button, short& Shift, float& X, float& Y) override;
    void onDblClick() override;

private:
    std::size_t low() const { return std::min(caret_, anchor_); }
    std::size_t high() const { return std::max(caret_, anchor_); }
    std::size_t wordEdge(bool forward) const;
    std::size_t positionAt(float x) const;
    int widthTo(std::size_t position) const;
    void moveTo(std::size_t position, bool select);
    void replaceSelection(std::u16string_view with);
    void copy() const;
    void paste();
    void show();

    std::u16string text_;
    std::size_t caret_ = 0;
    std::size_t anchor_ = 0; ///< The other end of the selection
    int scroll_ = 0;         ///< Pixels of text out of sight at the left
};

} // namespace host
