#include "host/FormReader.h"

#include "automation/Argument.h"
#include "automation/Characters.h"
#include "automation/Error.h"
#include "host/FormValues.h"
#include "host/Picture.h"
#include "host/StdFont.h"

namespace host {

namespace {

constexpr std::int32_t InvalidFileFormat = 321;
constexpr int DeepestNesting = 64;

bool isBlank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\r';
}

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool isNameCharacter(char16_t c) {
    return automation::isAsciiLetter(c) || automation::isDigit(c) || c == u'_' || c >= 0x80;
}

int hexDigit(char16_t c) {
    if (automation::isDigit(c)) return c - u'0';
    if (c >= u'A' && c <= u'F') return c - u'A' + 10;
    if (c >= u'a' && c <= u'f') return c - u'a' + 10;
    return -1;
}

} // namespace

FormReader::FormReader(const automation::String& text, automation::String fileName)
    : text_(text.string()), fileName_(std::move(fileName)) {
    std::u16string_view rest = text_;
    constexpr char16_t ByteOrderMark = 0xFEFF;
    if (!rest.empty() && rest.front() == ByteOrderMark) rest.remove_prefix(1);
    while (!rest.empty()) {
        const std::size_t end = rest.find(u'\n');
        lines_.push_back(trimmed(rest.substr(0, end)));
        rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    }
}

void FormReader::fail(int line, const automation::String& why) const {
    const automation::String number = automation::String::fromUtf8(std::to_string(line));
    throw automation::Error(InvalidFileFormat, fileName_ + u":" + number + u": " + why);
}

void FormReader::skipBlank() {
    while (!ended() && current().empty())
        ++at_;
}

FormNode FormReader::readForm() {
    skipBlank();
    if (!current().starts_with(u"Begin Form ")) fail(u"se esperaba \"Begin Form\"");
    FormNode form = readNode(0);
    skipBlank();
    if (!ended()) fail(u"hay texto después del final del formulario");
    return form;
}

PropertyBag FormReader::readBag() {
    FormNode node;
    for (skipBlank(); !ended(); skipBlank())
        readProperty(node);
    return node.properties;
}

std::u16string FormReader::readName(std::u16string_view& text) const {
    std::size_t length = 0;
    while (length < text.size() && isNameCharacter(text[length]))
        ++length;
    if (length == 0) fail(u"se esperaba un nombre");
    std::u16string name(text.substr(0, length));
    text = trimmed(text.substr(length));
    return name;
}

std::u16string FormReader::readQuoted(std::u16string_view& text) const {
    if (text.empty() || text.front() != u'"') fail(u"se esperaba un texto entre comillas");
    std::u16string result;
    std::size_t i = 1;
    for (; i < text.size() && text[i] != u'"'; ++i) {
        if (text[i] != u'\\') {
            result += text[i];
            continue;
        }
        if (++i >= text.size()) break;
        switch (text[i]) {
        case u'n':
            result += u'\n';
            break;
        case u'r':
            result += u'\r';
            break;
        case u't':
            result += u'\t';
            break;
        case u'"':
        case u'\\':
            result += text[i];
            break;
        case u'u': {
            constexpr std::size_t Digits = 4;
            int unit = 0;
            for (std::size_t d = 0; d < Digits; ++d) {
                const int digit = ++i < text.size() ? hexDigit(text[i]) : -1;
                if (digit < 0) fail(u"\"\\u\" necesita cuatro cifras hexadecimales");
                unit = unit * 16 + digit;
            }
            result += static_cast<char16_t>(unit);
            break;
        }
        default:
            fail(u"secuencia desconocida detrás de \"\\\"");
        }
    }
    if (i >= text.size()) fail(u"falta la comilla final");
    text = trimmed(text.substr(i + 1));
    return result;
}

FormNode FormReader::readNode(int depth) {
    if (depth > DeepestNesting) fail(u"demasiados niveles");
    FormNode node;
    node.line = lineNumber();
    std::u16string_view head = trimmed(current().substr(std::u16string_view(u"Begin").size()));
    node.className = readName(head);
    node.name = readQuoted(head);
    if (!head.empty()) {
        std::int16_t index = 0;
        if (!readDigits(head, index) || index < 0) fail(u"el índice no es válido");
        node.index = index;
    }
    ++at_;
    for (skipBlank(); current() != u"End"; skipBlank()) {
        if (ended()) fail(node.line, u"falta el \"End\" de este bloque");
        if (current().starts_with(u"Begin "))
            node.children.push_back(readNode(depth + 1));
        else
            readProperty(node);
    }
    ++at_;
    return node;
}

void FormReader::readProperty(FormNode& node) {
    std::u16string_view text = current();
    const bool kept = text.front() == u'.';
    if (kept) text.remove_prefix(1);
    const std::u16string name = readName(text);
    if (text.empty() || text.front() != u'=') fail(u"se esperaba \"=\"");
    PropertyBag& bag = kept ? node.kept : node.properties;
    if (bag.contains(name)) fail(u"la propiedad está repetida: " + automation::String(name));
    const automation::Variant value = readValue(trimmed(text.substr(1)));
    bag.WriteProperty(name, value, value.isEmpty() ? automation::Variant::null() : automation::Variant());
}

automation::Variant FormReader::readValue(std::u16string_view text) {
    if (text.starts_with(u'"')) {
        std::u16string content = readQuoted(text);
        if (!text.empty()) fail(u"sobra texto detrás del valor");
        ++at_;
        return content;
    }
    const std::u16string type = readName(text);
    if (!text.empty()) {
        automation::Variant value = readNumber(type, text);
        ++at_;
        return value;
    }
    if (type == u"Font") return readFont();
    if (type == u"Picture") return readPicture();
    const auto value = valueOfWord(type);
    if (!value) fail(u"valor desconocido: " + automation::String(type));
    ++at_;
    return *value;
}

automation::Variant FormReader::readNumber(std::u16string_view word, std::u16string_view digits) const {
    const NumberType* const type = numberTypeNamed(word);
    if (!type) fail(u"tipo desconocido: " + automation::String(word));
    const auto value = type->read(digits);
    if (!value) fail(u"el número no es válido: " + automation::String(digits));
    return *value;
}

automation::Variant FormReader::readFont() {
    const int start = lineNumber();
    FormNode values;
    ++at_;
    for (skipBlank(); current() != u"End"; skipBlank()) {
        if (ended()) fail(start, u"falta el \"End\" de este bloque");
        readProperty(values);
    }
    const auto font = automation::make<StdFont>();
    try {
        for (const auto& [name, value] : values.properties.items())
            font->invokeByName(name, automation::CallKind::Let, {{&value, 1}, {}});
    } catch (const automation::Error& error) {
        fail(start, u"la fuente no es válida: " + error.description());
    }
    ++at_;
    return font;
}

automation::Variant FormReader::readPicture() {
    const int start = lineNumber();
    std::vector<std::uint8_t> bytes;
    ++at_;
    for (skipBlank(); current() != u"End"; skipBlank()) {
        if (ended()) fail(start, u"falta el \"End\" de este bloque");
        const std::u16string_view row = current();
        if (row.size() % 2 != 0) fail(u"la imagen tiene un número impar de cifras");
        for (std::size_t i = 0; i < row.size(); i += 2) {
            const int high = hexDigit(row[i]);
            const int low = hexDigit(row[i + 1]);
            if (high < 0 || low < 0) fail(u"la imagen tiene cifras que no son hexadecimales");
            bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
        }
        ++at_;
    }
    ++at_;
    if (bytes.empty()) return automation::make<Picture>();
    try {
        return Picture::fromBytes(std::move(bytes));
    } catch (const automation::Error& error) {
        fail(start, u"la imagen no es válida: " + error.description());
    }
}

} // namespace host
