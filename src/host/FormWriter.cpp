#include "host/FormWriter.h"

#include "automation/Argument.h"
#include "automation/Error.h"
#include "host/FormValues.h"
#include "host/Picture.h"
#include "host/PictureFile.h"
#include "host/StdFont.h"
#include "platform/locale.h"

namespace host {

namespace {

constexpr std::size_t IndentWidth = 4;
constexpr std::size_t BytesPerLine = 32;

std::u16string hex(unsigned value, std::size_t width) {
    constexpr char16_t Digits[] = u"0123456789ABCDEF";
    std::u16string text;
    for (std::size_t i = width; i-- > 0;)
        text += Digits[value >> (4 * i) & 0xF];
    return text;
}

std::u16string quoted(std::u16string_view text) {
    std::u16string result = u"\"";
    for (const char16_t c : text) {
        switch (c) {
        case u'"':
            result += u"\\\"";
            break;
        case u'\\':
            result += u"\\\\";
            break;
        case u'\n':
            result += u"\\n";
            break;
        case u'\r':
            result += u"\\r";
            break;
        case u'\t':
            result += u"\\t";
            break;
        default: {
            // Controls, and halves of pairs, which UTF-8 could not carry if they stood alone.
            const bool unsafe =
                c < 0x20 || c == 0x7F || (c >= 0xD800 && c < 0xE000) || c == 0x2028 || c == 0x2029;
            result += unsafe ? u"\\u" + hex(c, 4) : std::u16string(1, c);
        }
        }
    }
    return result + u"\"";
}

/// A value that stands on its line; objects take a block.
std::u16string plain(const automation::Variant& value) {
    if (value.isString()) return quoted(value.asString());
    if (const auto word = wordOfValue(value)) return std::u16string(*word);
    const NumberType* const type = numberTypeOf(value.type());
    if (!type) throw automation::Error(automation::errors::TypeMismatch);
    return std::u16string(type->word) + u" " + type->write(value);
}

PropertyBag fontValues(const StdFont& font) {
    PropertyBag bag;
    bag.WriteProperty(u"Name", font.Name());
    bag.WriteProperty(u"Size", font.Size());
    bag.WriteProperty(u"Weight", font.Weight(), FontWeightNormal);
    bag.WriteProperty(u"Charset", font.Charset(), short{0});
    bag.WriteProperty(u"Italic", font.Italic(), false);
    bag.WriteProperty(u"Underline", font.Underline(), false);
    bag.WriteProperty(u"Strikethrough", font.Strikethrough(), false);
    return bag;
}

} // namespace

void FormWriter::line(std::u16string_view content) {
    text_.append(depth_ * IndentWidth, u' ').append(content).append(u"\n");
}

void FormWriter::value(const std::u16string& head, const automation::Variant& value) {
    const automation::Object* object = value.isObject() ? value.asObject().get() : nullptr;
    if (const auto* font = dynamic_cast<const StdFont*>(object)) {
        line(head + u"Font");
        ++depth_;
        write(fontValues(*font));
        --depth_;
        line(u"End");
    } else if (const auto* picture = dynamic_cast<const Picture*>(object)) {
        line(head + u"Picture");
        ++depth_;
        const auto bytes = pictureFile(*picture);
        for (std::size_t start = 0; start < bytes.size(); start += BytesPerLine) {
            std::u16string row;
            for (std::size_t i = start; i < std::min(bytes.size(), start + BytesPerLine); ++i)
                row += hex(bytes[i], 2);
            line(row);
        }
        --depth_;
        line(u"End");
    } else {
        line(head + plain(value));
    }
}

void FormWriter::write(const PropertyBag& bag, bool kept) {
    for (const auto& [name, content] : bag.items())
        value((kept ? u"." : u"") + name.string() + u" = ", content);
}

void FormWriter::write(const FormNode& node) {
    std::u16string head = u"Begin " + node.className.string() + u" " + quoted(node.name);
    if (node.index) head += u" " + writeDigits(*node.index);
    line(head);
    ++depth_;
    write(node.kept, true);
    write(node.properties);
    for (const FormNode& child : node.children)
        write(child);
    --depth_;
    line(u"End");
}

} // namespace host
