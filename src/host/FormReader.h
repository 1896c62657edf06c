#pragma once

#include "automation/String.h"
#include "automation/Variant.h"
#include "host/FormNode.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Reads the text that FormWriter writes. What doesn't fit throws automation::Error 321 whose description
/// begins with the file's name and the line, as "clientes.form:12: ".
class FormReader {
public:
    FormReader(const automation::String& text, automation::String fileName);

    /// The one form of the text.
    FormNode readForm();
    /// A bag's values, as PropertyBag::Contents holds them.
    PropertyBag readBag();

    /// Throws the error for a line of this file.
    [[noreturn]] void fail(int line, const automation::String& why) const;

private:
    /// What a line says, behind its indentation.
    std::u16string_view current() const { return at_ < lines_.size() ? lines_[at_] : std::u16string_view(); }
    bool ended() const { return at_ >= lines_.size(); }
    int lineNumber() const { return static_cast<int>(at_) + 1; }
    void skipBlank();
    [[noreturn]] void fail(const automation::String& why) const { fail(lineNumber(), why); }

    FormNode readNode(int depth);
    void readProperty(FormNode& node);
    automation::Variant readValue(std::u16string_view text);
    automation::Variant readFont();
    automation::Variant readPicture();
    automation::Variant readNumber(std::u16string_view word, std::u16string_view digits) const;
    std::u16string readQuoted(std::u16string_view& text) const;
    std::u16string readName(std::u16string_view& text) const;

    std::u16string text_;
    std::vector<std::u16string_view> lines_;
    std::size_t at_ = 0;
    automation::String fileName_;
};

} // namespace host
