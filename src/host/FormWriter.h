#pragma once

#include "automation/String.h"
#include "host/FormNode.h"

#include <string>

namespace host {

/// Writes forms and property bags as text: one value a line, blocks indented between Begin and End.
///
///     Begin Form "clientes"
///         .ClientWidth = Single 6000
///         Caption = "Clientes"
///         Begin lbl "lblNombre" 2
///             .Left = Single 120
///             Font = Font
///                 Name = "Arial"
///                 Size = Currency 8.25
///             End
///         End
///     End
///
/// A leading dot marks what the container keeps. Numbers have a point for decimals in every locale.
class FormWriter {
public:
    void write(const FormNode& node);
    void write(const PropertyBag& bag, bool kept = false);
    automation::String text() const { return text_; }

private:
    void line(std::u16string_view content);
    void value(const std::u16string& head, const automation::Variant& value);

    std::u16string text_;
    std::size_t depth_ = 0;
};

} // namespace host
