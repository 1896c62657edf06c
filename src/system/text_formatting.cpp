#include "system/text_formatting.h"

#include "automation/Strings.h"

#include <string>

namespace tesela {

using automation::String;

namespace {

constexpr std::u16string_view romanDigits = u"IVXLCDM";
constexpr std::u16string_view closers = u",;";
constexpr std::u16string_view delimiters = u"-/\"()[]<>";

bool isIn(char16_t character, std::u16string_view set) {
    return set.find(character) != std::u16string_view::npos;
}

/// Collects words and puts them out.
class Formatter {
public:
    explicit Formatter(std::int32_t format) : format_(format) {}

    String format(std::u16string_view text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char16_t character = text[i];
            const bool blankFollows = i + 1 < text.size() && text[i + 1] == u' ';
            if (isIn(character, closers) || isIn(character, delimiters)) {
                put(properCase());
                result_ += character;
            } else if (character == u' ') {
                put(romanOrProper());
                result_ += u' ';
            } else if (character == u'.') {
                put(romanOrProper());
                result_ += u'.';
                if (blankFollows || (format_ & tslGetAutoFormatEspacioTrasPunto)) result_ += u' ';
                if (blankFollows) ++i;
            } else {
                word_ += character;
            }
        }
        return automation::Trim(result_);
    }

private:
    String properCase() const {
        return format_ & tslGetAutoFormatProperCase
                   ? automation::StrConv(word_, automation::StringConversion::ProperCase)
                   : String(word_);
    }
    String romanOrProper() const { return EsNumeroRomano(word_) ? automation::UCase(word_) : properCase(); }
    void put(const String& word) {
        result_ += word.view();
        word_.clear();
    }

    std::int32_t format_;
    std::u16string word_;
    std::u16string result_;
};

} // namespace

const automation::Enumeration& enumerationOf(tslGetAutoFormatConstants) {
    static const automation::Enumeration table(
        "tslGetAutoFormatConstants",
        {
            {"tslGetAutoFormatDefault", tslGetAutoFormatDefault},
            {"tslGetAutoFormatProperCase", tslGetAutoFormatProperCase},
            {"tslGetAutoFormatEspacioTrasPunto", tslGetAutoFormatEspacioTrasPunto},
        });
    return table;
}

bool EsNumeroRomano(std::u16string_view cCad) {
    const String capitals = automation::UCase(automation::Trim(cCad));
    return capitals.view().find_first_not_of(romanDigits) == std::u16string_view::npos;
}

String AutoFormatearTexto(std::u16string_view cCad, std::int32_t nFormat) {
    // The blank at the end closes the last word.
    return Formatter(nFormat).format(automation::Trim(cCad) + u" ");
}

} // namespace tesela
