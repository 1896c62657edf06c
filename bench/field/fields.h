#pragma once
// A data-entry field as a program of each library uses it, drawn off screen.

#include "host/PropertyBag.h"

#include <functional>
#include <memory>
#include <vector>

namespace bench {

inline constexpr int fieldWidth = 120, fieldHeight = 20; // pixels
inline constexpr int fontPixels = 11; // of our field's own font: the peers' letters get the same size
inline constexpr int formColumns = 10, formRows = 100;
inline constexpr int formFields = formColumns * formRows;

/// One field with the focus.
class TypingField {
public:
    virtual ~TypingField() = default;
    /// Types a character and has the field painted.
    virtual void type(char character) = 0;
    virtual void clear() = 0;
    /// Waits until the last picture is finished, where another program draws.
    virtual void finish() {}
};

using MakeField = std::function<std::unique_ptr<TypingField>()>;

// An empty mask is none.
std::unique_ptr<TypingField> makeOurField(const char* mask);
std::unique_ptr<TypingField> makeQtField(const char* mask);
std::unique_ptr<TypingField> makeFltkField();

/// What a designer saved of the fields of the form, made at the first call: text, length and alignment. Each
/// library goes through a bag and applies what it finds there.
std::vector<host::PropertyBag>& savedFields();

/// Makes a form of so many fields, gives them their properties, paints it and takes it down again.
void showOurForm();
void showQtForm();
void showFltkForm();

/// What a field of ours keeps while nothing happens.
struct IdleField {
    double bytes = 0;   ///< Besides the pixels of its bitmap
    double objects = 0; ///< Handles of drawing objects, its bitmap's included
};
IdleField idleField();

} // namespace bench
