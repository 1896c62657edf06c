#pragma once
// Forms as pictures.

#include "host/Form.h"

#include <string>

namespace shot {

/// A form for a sheet, in the corner of the screen. Its inside is so large, in twips.
automation::Ref<host::Form> sheetForm(const automation::String& caption, float width, float height);

/// Shows the form, saves the picture of it and unloads it. False when the file can't be written.
bool savePicture(host::Form& form, const std::string& file);

} // namespace shot
