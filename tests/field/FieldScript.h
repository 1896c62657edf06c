#pragma once
// Scripts of keystrokes, which read like the behaviour they state. A script begins with a line "== Title";
// then come steps, one a line:
//
//     locale en-US            the library and the form anew in that locale
//     set Mascara ##:##       a property of the field
//     enter | leave           the focus comes into the field, goes to the next one
//     type 31/2               characters
//     press Shift+Home Enter  keys
//     paste some text         the clipboard gets the text, and Ctrl+V is pressed
//     expect Text 31/02       what a property shows; "" is the empty text
//     expect Caret 3          the place of the caret
//     expect Selected abc     the selected text
//     expect Clipboard abc
//     expect Events KeyWatch Change   what the field raised since the last such line
//     expect Focus after      which field has the focus: before, field or after
//
// Quotes keep blanks at the ends of a value. "today+3" in a value of expect stands for that date in long
// form.

#include <string>
#include <vector>

namespace tests {

struct FieldScript {
    std::string title;
    std::vector<std::string> steps;
};

/// The scripts of a file.
std::vector<FieldScript> readScripts(const std::string& path);

} // namespace tests
