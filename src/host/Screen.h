#pragma once

#include "automation/String.h"
#include "host/DrawingWindow.h"

namespace host {

class Control;
class Form;

/// The display and what stands on it.
class Screen {
public:
    /// How many fonts the system offers.
    static short FontCount();
    /// Name of a font, index from 0; the empty text for an index that doesn't exist.
    static automation::String Fonts(short index);
    static float TwipsPerPixelX();
    static float TwipsPerPixelY();
    /// Size of the screen in twips.
    static float Width();
    static float Height();
    /// Null while no form of this program is active.
    static Form* ActiveForm();
    static Control* ActiveControl();
    /// Not Default: this pointer is shown over all windows of the program.
    static host::MousePointer MousePointer();
    static void MousePointer(host::MousePointer value);
};

} // namespace host
