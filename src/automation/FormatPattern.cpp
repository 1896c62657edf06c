#include "automation/FormatPattern.h"

#include "automation/DateFunctions.h"
#include "automation/DateText.h"
#include "automation/Locale.h"
#include "automation/PatternLiteral.h"
#include "automation/TextBuilder.h"

#include "platform/locale.h"

#include <algorithm>
#include <string>

namespace automation {

namespace {

constexpr int noonHour = 12;

char16_t lowered(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | 0x20) : unit;
}

bool startsWithWord(std::u16string_view pattern, std::u16string_view word) {
    if (pattern.size() < word.size()) return false;
    return std::equal(word.begin(), word.end(), pattern.begin(),
                      [](char16_t wanted, char16_t unit) { return lowered(unit) == wanted; });
}

/// The marks of the half day that a pattern may ask for.
constexpr std::u16string_view halfDayMarks[] = {u"am/pm", u"a/p", u"ampm"};

/// Length of a mark of the half day at the start, 0 for none.
std::size_t halfDayLength(std::u16string_view pattern) {
    if (lowered(pattern[0]) != u'a') return 0;
    for (const std::u16string_view mark : halfDayMarks)
        if (startsWithWord(pattern, mark)) return mark.size();
    return 0;
}

/// Length of the run of one letter in any case, up to `most`.
std::size_t runLength(std::u16string_view pattern, std::size_t most) {
    std::size_t length = 1;
    while (length < most && length < pattern.size() && lowered(pattern[length]) == lowered(pattern[0]))
        ++length;
    return length;
}

/// How many letters of a kind belong together at most; 0 for units that are no letters of dates.
std::size_t longestRun(char16_t letter) {
    switch (letter) {
    case u'c':
    case u'q':
        return 1;
    case u'd':
        return 6;
    case u'w':
    case u'h':
    case u'n':
    case u's':
        return 2;
    case u'm':
    case u'y':
        return 4;
    case u't':
        return 5;
    default:
        return 0;
    }
}

/// The length of the date item that starts the pattern, 0 when none does.
std::size_t dateItemLength(std::u16string_view pattern) {
    const char16_t letter = lowered(pattern[0]);
    if (letter < u'a' || letter > u'y') return 0;
    if (letter == u'a') return halfDayLength(pattern);
    const std::size_t most = longestRun(letter);
    if (most == 0) return 0;
    const std::size_t run = runLength(pattern, most);
    if (letter == u't') return run == most ? run : 0; // only the whole time has a run of t
    if (letter == u'y') return run == 3 ? 2 : run;
    return run;
}

class DatePatternWriter {
public:
    DatePatternWriter(TextBuilder& out, Date date, int firstDay, int firstWeek, const Locale& locale)
        : out_(out), date_(date), parts_(date.split()), firstDay_(firstDay), firstWeek_(firstWeek),
          locale_(locale) {}

    void write(std::u16string_view pattern) {
        twelveHours_ = hasHalfDay(pattern);
        while (!pattern.empty()) {
            std::size_t taken = literalLength(pattern);
            if (taken > 0) {
                writeLiteral(out_, pattern.substr(0, taken));
            } else if ((taken = dateItemLength(pattern)) > 0) {
                writeItem(pattern.substr(0, taken));
            } else {
                taken = 1;
                writeOther(pattern[0]);
            }
            pattern.remove_prefix(taken);
        }
    }

private:
    static bool hasHalfDay(std::u16string_view pattern) {
        while (!pattern.empty()) {
            if (halfDayLength(pattern) > 0) return true;
            pattern.remove_prefix(std::max<std::size_t>(1, literalLength(pattern)));
        }
        return false;
    }

    void writeOther(char16_t unit) {
        if (unit == u'/')
            out_.add(locale_.dateSeparator);
        else if (unit == u':')
            out_.add(locale_.timeSeparator);
        else
            out_.add(unit);
    }

    void writeHalfDay(std::u16string_view mark) {
        const bool morning = parts_.hour < noonHour;
        const bool upper = mark[0] == u'A';
        if (mark.size() == 4) return out_.add(morning ? locale_.morning : locale_.afternoon);
        out_.add(morning ? (upper ? u'A' : u'a') : (upper ? u'P' : u'p'));
        if (mark.size() == 5) out_.add(upper ? u'M' : u'm');
    }

    void writeDay(std::size_t run) {
        const std::size_t weekday = static_cast<std::size_t>(parts_.weekday);
        switch (run) {
        case 3:
            return out_.add(locale_.shortDayNames[weekday]);
        case 4:
            return out_.add(locale_.dayNames[weekday]);
        case 5:
            return writeSystemPattern(out_, locale_.shortDate, parts_, locale_);
        case 6:
            return writeSystemPattern(out_, locale_.longDate, parts_, locale_);
        default:
            return out_.addNumber(parts_.day, static_cast<int>(run));
        }
    }

    void writeMonth(std::size_t run) {
        const std::size_t month = static_cast<std::size_t>(parts_.month - 1);
        if (run > 2) return out_.add(run == 3 ? locale_.shortMonthNames[month] : locale_.monthNames[month]);
        out_.addNumber(afterHour_ ? parts_.minute : parts_.month, static_cast<int>(run));
    }

    void writeYear(std::size_t run) {
        constexpr int century = 100;
        if (run == 1) return out_.addNumber(dayOfYear(parts_));
        out_.addNumber(run == 2 ? parts_.year % century : parts_.year, static_cast<int>(run));
    }

    void writeHour(std::size_t run) {
        const int shown = parts_.hour % noonHour == 0 ? noonHour : parts_.hour % noonHour;
        out_.addNumber(twelveHours_ ? shown : parts_.hour, static_cast<int>(run));
    }

    void writeItem(std::u16string_view item) {
        const int width = static_cast<int>(item.size());
        const char16_t letter = lowered(item[0]);
        switch (letter) {
        case u'c':
            writeDate(out_, date_, locale_);
            break;
        case u'd':
            writeDay(item.size());
            break;
        case u'w':
            out_.addNumber(width == 1 ? DatePart(u"w", date_, firstDay_, firstWeek_)
                                      : weekOfYear(parts_, firstDay_, firstWeek_));
            break;
        case u'm':
            writeMonth(item.size());
            break;
        case u'q':
            out_.addNumber((parts_.month - 1) / 3 + 1);
            break;
        case u'y':
            writeYear(item.size());
            break;
        case u'h':
            writeHour(item.size());
            break;
        case u'n':
            out_.addNumber(parts_.minute, width);
            break;
        case u's':
            out_.addNumber(parts_.second, width);
            break;
        case u't':
            writeSystemPattern(out_, locale_.timeFormat, parts_, locale_);
            break;
        default:
            writeHalfDay(item);
        }
        afterHour_ = letter == u'h';
    }

    TextBuilder& out_;
    Date date_;
    DateParts parts_;
    int firstDay_;
    int firstWeek_;
    const Locale& locale_;
    bool twelveHours_ = false;
    bool afterHour_ = false;
};

/// The places of a text pattern, counted before anything is written.
struct TextLayout {
    std::size_t places = 0;
    bool fromLeft = false;
    bool lower = false;
    bool upper = false;
};

TextLayout textLayoutOf(std::u16string_view section) {
    TextLayout layout;
    while (!section.empty()) {
        const std::size_t literal = literalLength(section);
        switch (literal > 0 ? u'\0' : section[0]) {
        case u'@':
        case u'&':
            ++layout.places;
            break;
        case u'!':
            layout.fromLeft = true;
            break;
        case u'<':
            layout.lower = true;
            layout.upper = false;
            break;
        case u'>':
            layout.upper = true;
            layout.lower = false;
            break;
        default:
            break;
        }
        section.remove_prefix(std::max<std::size_t>(1, literal));
    }
    return layout;
}

} // namespace

PatternKind kindOfPattern(std::u16string_view pattern) {
    while (!pattern.empty()) {
        const std::size_t literal = literalLength(pattern);
        if (literal == 0) {
            switch (pattern[0]) {
            case u'0':
            case u'#':
            case u'.':
            case u',':
            case u'%':
                return PatternKind::Number;
            case u'@':
            case u'&':
            case u'<':
            case u'>':
            case u'!':
                return PatternKind::Text;
            default:
                break;
            }
            if (dateItemLength(pattern) > 0) return PatternKind::Date;
        }
        pattern.remove_prefix(std::max<std::size_t>(1, literal));
    }
    return PatternKind::Plain;
}

PatternSections::PatternSections(std::u16string_view pattern) {
    std::size_t start = 0, at = 0;
    while (count < most) {
        if (at == pattern.size() || pattern[at] == u';') {
            section[count++] = pattern.substr(start, at - start);
            if (at == pattern.size()) return;
            start = ++at;
        } else {
            at += std::max<std::size_t>(1, literalLength(pattern.substr(at)));
        }
    }
}

void writeDatePattern(TextBuilder& out, std::u16string_view pattern, Date date, int firstDay, int firstWeek,
                      const Locale& locale) {
    DatePatternWriter(out, date, firstDay, firstWeek, locale).write(pattern);
}

void writeTextPattern(TextBuilder& out, std::u16string_view section, std::u16string_view text) {
    const TextLayout layout = textLayoutOf(section);
    std::u16string converted;
    if (layout.lower || layout.upper) {
        converted = layout.lower ? platform::lowerCase(text) : platform::upperCase(text);
        text = converted;
    }
    // Places without a character stand at the left, or with "!" at the right; what has no place is written
    // with the first place, or with "!" with the last.
    const std::size_t blanks = layout.places > text.size() ? layout.places - text.size() : 0;
    const std::size_t excess = text.size() > layout.places ? text.size() - layout.places : 0;
    std::size_t place = 0;
    const auto writePlace = [&](char16_t kind) {
        const bool filled = layout.fromLeft ? place < text.size() : place >= blanks;
        if (!layout.fromLeft && place == 0) {
            out.add(text.substr(0, excess));
            text.remove_prefix(excess);
        }
        if (filled)
            out.add(text[layout.fromLeft ? place : place - blanks]);
        else if (kind == u'@')
            out.add(u' ');
        ++place;
        if (layout.fromLeft && place == layout.places && excess > 0) out.add(text.substr(place));
    };
    while (!section.empty()) {
        const std::size_t literal = literalLength(section);
        const char16_t unit = section[0];
        if (literal > 0)
            writeLiteral(out, section.substr(0, literal));
        else if (unit == u'@' || unit == u'&')
            writePlace(unit);
        else if (unit != u'!' && unit != u'<' && unit != u'>')
            out.add(unit);
        section.remove_prefix(std::max<std::size_t>(1, literal));
    }
    if (layout.places == 0) out.add(text);
}

} // namespace automation
