#pragma once

#include "automation/String.h"
#include "host/ControlRegistry.h"

namespace host {

class Form;

/// A form with its controls, their stacking, its timers and their properties as a readable text; see
/// FormWriter for its look.
class FormFile {
public:
    /// The form as text.
    static automation::String text(Form& form);
    /// Gives the form the properties and controls of a text. The form must have no controls of those names.
    /// `fileName` stands in the messages. Throws automation::Error 321 for a text that is no form, before
    /// anything is changed; the description begins with file and line.
    static void read(Form& form, const automation::String& text, const ControlRegistry& classes,
                     const automation::String& fileName);

    /// The same with files in UTF-8. Throws automation::Error 53 for a file that can't be read and 75 for one
    /// that can't be written.
    static void save(Form& form, const automation::String& file);
    static void load(Form& form, const automation::String& file, const ControlRegistry& classes);
};

} // namespace host
