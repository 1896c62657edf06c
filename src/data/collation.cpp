#include "data/collation.h"

#include "automation/Strings.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace tesela {

namespace {

/// Signs, each in a place of its own. The fraction slash is no character of the code page: fractions have it.
constexpr std::u16string_view signs =
    u"\t\n\v\f\r _-–—,;:!¡?¿.·'‘’‚‹›\"“”„«»()[]{}§¶@*/\\&#%‰†‡•`´˜^¯¨¸ˆ°©®+±÷×<=>¬|¦"
    u"~⁄¤¢$£¥€";

/// Digits and letters: a line is a place, its groups differ by accent, the characters of a group by form.
constexpr std::u16string_view lines[] = {
    u"0",
    u"1¹¼½",
    u"2²",
    u"3³¾",
    u"4",
    u"5",
    u"6",
    u"7",
    u"8",
    u"9",
    u"aAª áÁ àÀ âÂ åÅ äÄ ãÃ æÆ",
    u"bB",
    u"cC çÇ",
    u"dD ðÐ",
    u"eE éÉ èÈ êÊ ëË",
    u"fF",
    u"ƒ",
    u"gG",
    u"hH",
    u"iI íÍ ìÌ îÎ ïÏ",
    u"jJ",
    u"kK",
    u"lL",
    u"mM",
    u"nN",
    u"ñÑ",
    u"oOº óÓ òÒ ôÔ öÖ õÕ øØ œŒ",
    u"pP",
    u"qQ",
    u"rR",
    u"sS šŠ ß",
    u"tT™",
    u"uU úÚ ùÙ ûÛ üÜ",
    u"vV",
    u"wW",
    u"xX",
    u"yY ýÝ ÿŸ",
    u"zZ žŽ",
    u"þÞ",
    u"µ",
};

/// A character that stands where another does, as a later form of it.
struct Form {
    char16_t character, base;
};
constexpr Form otherForms[] = {{u'\u00A0', u' '}, {u'…', u'.'}};

/// What follows in a character that stands for several.
struct Expansion {
    char16_t character;
    std::u16string_view rest;
};
constexpr Expansion expansions[] = {
    {u'æ', u"e"},  {u'Æ', u"E"},  {u'œ', u"e"},  {u'Œ', u"E"}, {u'ß', u"s"},
    {u'¼', u"⁄4"}, {u'½', u"⁄2"}, {u'¾', u"⁄4"}, {u'™', u"m"}, {u'…', u".."},
};

constexpr std::size_t longestRest = 2;

/// Where a character stands: the place decides first, the accent next and the form last. Place 0: it counts
/// for nothing.
struct Element {
    std::uint8_t place = 0, accent = 0, form = 0;
    std::uint8_t expansion = 0; ///< Number in `rests`; 0 for a character that stands for one
};

using Rest = std::array<Element, longestRest>;

/// The characters of the code page from 80 to 9F hexadecimal; 0 where there is none.
constexpr std::u16string_view specials(u"€\0‚ƒ„…†‡ˆ‰Š‹Œ\0Ž\0\0‘’“”•–—˜™š›œ\0žŸ", 32);

struct Table {
    std::array<Element, 256> elements;
    std::array<Rest, std::size(expansions) + 1> rests;
    Element fractionSlash;

    constexpr Element& at(char16_t character) {
        if (character == u'⁄') return fractionSlash;
        const std::size_t special = specials.find(character);
        return elements[special == specials.npos ? character : 0x80 + special];
    }

    constexpr void putSigns(std::uint8_t& place) {
        for (const char16_t sign : signs)
            at(sign) = {.place = ++place};
        for (const Form& form : otherForms)
            at(form.character) = {.place = at(form.base).place, .form = 1};
    }

    constexpr void putLine(std::u16string_view line, std::uint8_t place) {
        Element element{.place = place};
        for (const char16_t character : line) {
            if (character == u' ') {
                ++element.accent;
                element.form = 0;
                continue;
            }
            at(character) = element;
            ++element.form;
        }
    }

    constexpr void expand() {
        std::uint8_t number = 0;
        for (const Expansion& expansion : expansions) {
            at(expansion.character).expansion = ++number;
            for (std::size_t i = 0; i < expansion.rest.size(); ++i)
                rests[number][i] = at(expansion.rest[i]);
        }
    }
};

constexpr Table makeTable() {
    Table table{};
    std::uint8_t place = 0;
    table.putSigns(place);
    for (const auto line : lines)
        table.putLine(line, ++place);
    table.expand();
    return table;
}

constexpr Table table = makeTable();

/// Gives the elements of a text that count, one after another.
class Elements {
public:
    explicit Elements(std::string_view text) noexcept : at_(text.data()), end_(text.data() + text.size()) {}

    /// Place 0 at the end of the text.
    Element next() noexcept {
        if (expansion_ != 0) {
            if (rest_ < longestRest && table.rests[expansion_][rest_].place != 0)
                return table.rests[expansion_][rest_++];
            expansion_ = 0;
        }
        while (at_ != end_) {
            const Element element = table.elements[static_cast<std::uint8_t>(*at_++)];
            if (element.place == 0) continue;
            expansion_ = element.expansion;
            rest_ = 0;
            return element;
        }
        return {};
    }

private:
    const char* at_;
    const char* end_;
    std::size_t rest_ = 0; ///< How many elements of the expansion were given after its first
    std::uint8_t expansion_ = 0;
};

int sign(int difference) {
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

/// The capitals of the characters, by their bytes: as `UCase` has them where a character's byte is its own
/// number.
constexpr std::array<char, 256> makeCapitals() {
    constexpr int caseStep = 0x20;
    std::array<char, 256> capitals{};
    for (int code = 0; code < 256; ++code) {
        const bool isSmall = (code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7);
        capitals[static_cast<std::size_t>(code)] = static_cast<char>(isSmall ? code - caseStep : code);
    }
    capitals[0xFF] = '\x9F'; // ÿ
    return capitals;
}

constexpr std::array<char, 256> capitals = makeCapitals();

/// Whether a character's byte in the ANSI code page is its own number.
bool hasOwnNumber(char16_t c) {
    return c < 0x80 || (c >= 0xA0 && c <= 0xFF);
}

/// The byte of such a character or of its capital.
template <bool asCapital>
char byteOf(char16_t c) {
    return asCapital ? capitals[static_cast<std::uint8_t>(c)] : static_cast<char>(c);
}

/// The order of two characters, given by their bytes, where their places tell it; else 0.
int orderOfPlaces(char a, char b) {
    const int one = table.elements[static_cast<std::uint8_t>(a)].place;
    const int other = table.elements[static_cast<std::uint8_t>(b)].place;
    return one != 0 && other != 0 ? sign(one - other) : 0;
}

/// The ANSI form of a text or of its capitals. Most texts have only characters whose byte is their own
/// number.
template <bool asCapitals>
class AnsiForm {
public:
    explicit AnsiForm(const automation::String& text) {
        const std::u16string_view units = text;
        if (units.size() > sizeof few_ || !std::all_of(units.begin(), units.end(), hasOwnNumber)) {
            long_ = (asCapitals ? automation::UCase(text) : text).ansi();
            bytes_ = long_;
            return;
        }
        std::transform(units.begin(), units.end(), few_, byteOf<asCapitals>);
        bytes_ = {few_, units.size()};
    }
    AnsiForm(const AnsiForm&) = delete;
    AnsiForm& operator=(const AnsiForm&) = delete;

    std::string_view bytes() const noexcept { return bytes_; }

private:
    char few_[80];
    std::string long_;
    std::string_view bytes_;
};

/// Appends one level of a key after a 0: a byte for each element, `weight` of it and 1, as far as any of them
/// has a weight.
template <class Weight>
void appendLevel(std::string_view text, std::string& key, Weight weight) {
    key += '\0';
    std::size_t lastWeight = key.size();
    Elements elements(text);
    for (Element element = elements.next(); element.place != 0; element = elements.next()) {
        key += static_cast<char>(weight(element) + 1);
        if (weight(element) != 0) lastWeight = key.size();
    }
    key.resize(lastWeight);
}

} // namespace

int TS_Compara(std::string_view a, std::string_view b) noexcept {
    const std::size_t shorter = std::min(a.size(), b.size());
    const std::size_t same =
        static_cast<std::size_t>(std::mismatch(a.begin(), a.begin() + shorter, b.begin()).first - a.begin());
    Elements first(a.substr(same)), second(b.substr(same));
    int accents = 0, forms = 0;
    for (;;) {
        const Element one = first.next(), other = second.next();
        if (one.place != other.place) return one.place < other.place ? -1 : 1;
        if (one.place == 0) break;
        if (accents == 0) accents = one.accent - other.accent;
        if (forms == 0) forms = one.form - other.form;
    }
    return sign(accents != 0 ? accents : forms);
}

// Most texts differ in a letter, which decides whatever follows: they need not be written down as a whole.

int TS_Compara(const automation::String& a, const automation::String& b) {
    const std::u16string_view units = a, others = b;
    const std::size_t shorter = std::min(units.size(), others.size());
    std::size_t same = 0;
    while (same < shorter && units[same] == others[same])
        ++same;
    if (same < shorter && hasOwnNumber(units[same]) && hasOwnNumber(others[same]))
        if (const int order = orderOfPlaces(byteOf<false>(units[same]), byteOf<false>(others[same])))
            return order;
    return TS_Compara(AnsiForm<false>(a).bytes(), AnsiForm<false>(b).bytes());
}

int OCX_StrComp(const automation::String& cCadena1, const automation::String& cCadena2) {
    return TS_Compara(cCadena1, cCadena2);
}

int compareCapitals(const automation::String& a, std::string_view b) {
    const std::u16string_view units = a;
    const std::size_t shorter = std::min(units.size(), b.size());
    std::size_t same = 0;
    while (same < shorter && hasOwnNumber(units[same]) && byteOf<true>(units[same]) == b[same])
        ++same;
    if (same < shorter && hasOwnNumber(units[same]))
        if (const int order = orderOfPlaces(byteOf<true>(units[same]), b[same])) return order;
    return TS_Compara(AnsiForm<true>(a).bytes(), b);
}

void appendSortKey(std::string_view text, std::string& key) {
    bool hasAccents = false, hasForms = false;
    Elements elements(text);
    for (Element element = elements.next(); element.place != 0; element = elements.next()) {
        key += static_cast<char>(element.place);
        hasAccents |= element.accent != 0;
        hasForms |= element.form != 0;
    }
    if (hasAccents)
        appendLevel(text, key, [](Element element) { return element.accent; });
    else if (hasForms)
        key += '\0';
    if (hasForms) appendLevel(text, key, [](Element element) { return element.form; });
}

void appendSortKey(const automation::String& text, std::string& key) {
    appendSortKey(AnsiForm<false>(text).bytes(), key);
}

} // namespace tesela
