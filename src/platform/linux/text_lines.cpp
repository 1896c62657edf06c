#include "platform/linux/text_lines.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr char16_t mark = u'&';
constexpr std::u16string_view ellipsis = u"...";

bool has(UINT format, UINT flag) {
    return (format & flag) != 0;
}

/// Takes the marks out of a line. Two in a row stand for one that is shown, as does
/// one at the end; of several that mark a character the last counts.
TextLineLayout withoutMarks(std::u16string_view text, UINT format) {
    TextLineLayout line;
    if (has(format, DT_NOPREFIX)) {
        line.text = text;
        return line;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == mark) {
            const bool isLast = i + 1 == text.size();
            if (!isLast && text[++i] != mark) line.underlined = static_cast<int>(line.text.size());
        }
        line.text += text[i];
    }
    return line;
}

/// The end of the first paragraph of `text`, and where the next begins.
struct Paragraph {
    std::size_t end;
    std::size_t next;
};

Paragraph firstParagraph(std::u16string_view text, UINT format) {
    if (has(format, DT_SINGLELINE)) return {text.size(), text.size()};
    const std::size_t end = std::min(text.find_first_of(u"\r\n"), text.size());
    if (end == text.size()) return {end, end};
    const bool isPair = end + 1 < text.size() && text[end] != text[end + 1] &&
                        (text[end + 1] == u'\r' || text[end + 1] == u'\n');
    return {end, end + (isPair ? 2 : 1)};
}

/// How many characters of `text` fit in the room.
std::size_t fitting(std::u16string_view text, const LineRules& rules, const TextMeasure& measure) {
    std::size_t low = 0;
    std::size_t high = text.size();
    while (low < high) {
        const std::size_t middle = (low + high + 1) / 2;
        if (lineWidth(text.substr(0, middle), rules, measure) <= rules.width) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    return low;
}

/// The end of a line, and where the next begins.
struct LineBreak {
    std::size_t end;
    std::size_t next;
};

/// Where a line that begins `text` ends when `fit` characters have room and the next has not.
LineBreak lineBreak(std::u16string_view text, std::size_t fit, UINT format) {
    const bool keepsSpaces = !has(format, DT_RIGHT | DT_CENTER);
    // Best before the last word that begins within the room; the spaces stay behind.
    for (std::size_t i = fit; i > 0; --i)
        if (text[i] != u' ' && text[i - 1] == u' ') return {keepsSpaces ? i : i - 1, i};
    std::size_t end = fit;
    if (text[fit] != u' ') {
        const std::size_t space = fit == 0 ? std::u16string_view::npos : text.rfind(u' ', fit - 1);
        if (space != std::u16string_view::npos) {
            end = keepsSpaces ? space + 1 : space;
        } else if (has(format, DT_EDITCONTROL)) {
            end = std::max<std::size_t>(fit, 1);
        } else {
            end = std::min(text.find(u' ', fit), text.size());
        }
    }
    // One space behind the break is left out.
    return {end, end < text.size() && text[end] == u' ' ? end + 1 : end};
}

/// A piece of a line's text moved into a line of its own; the underlined character goes where it lies.
TextLineLayout piece(const TextLineLayout& whole, std::size_t begin, std::size_t end, UINT format) {
    TextLineLayout line{whole.text.substr(begin, end - begin), -1, {}};
    if (has(format, DT_END_ELLIPSIS)) line.rest = whole.text.substr(end);
    const int first = static_cast<int>(begin);
    if (whole.underlined >= first && whole.underlined < static_cast<int>(end))
        line.underlined = whole.underlined - first;
    return line;
}

/// Cuts a paragraph between words. A word wider than the room has a line of its own, or is cut for
/// DT_EDITCONTROL.
void wrap(const TextLineLayout& whole, const LineRules& rules, const TextMeasure& measure,
          std::vector<TextLineLayout>& out) {
    const std::u16string_view text = whole.text;
    std::size_t begin = 0;
    while (lineWidth(text.substr(begin), rules, measure) > rules.width) {
        const std::u16string_view rest = text.substr(begin);
        const LineBreak at = lineBreak(rest, fitting(rest, rules, measure), rules.format);
        if (at.end >= rest.size()) break;
        out.push_back(piece(whole, begin, begin + at.end, rules.format));
        begin += at.next;
    }
    out.push_back(piece(whole, begin, text.size(), rules.format));
}

} // namespace

int lineWidth(std::u16string_view line, const LineRules& rules, const TextMeasure& measure) {
    if (!has(rules.format, DT_EXPANDTABS) || rules.tabWidth <= 0) return measure(line);
    int width = 0;
    for (;;) {
        const std::size_t tab = line.find(u'\t');
        width += measure(line.substr(0, tab));
        if (tab == std::u16string_view::npos) return width;
        width = (width / rules.tabWidth + 1) * rules.tabWidth;
        line.remove_prefix(tab + 1);
    }
}

std::vector<TextLineLayout> layOutLines(std::u16string_view text, const LineRules& rules,
                                        const TextMeasure& measure) {
    std::vector<TextLineLayout> lines;
    do {
        const Paragraph paragraph = firstParagraph(text, rules.format);
        const TextLineLayout line = withoutMarks(text.substr(0, paragraph.end), rules.format);
        if (has(rules.format, DT_WORDBREAK) && !has(rules.format, DT_SINGLELINE)) {
            wrap(line, rules, measure, lines);
        } else {
            lines.push_back(line);
        }
        text.remove_prefix(paragraph.next);
    } while (!text.empty());
    return lines;
}

void endWithEllipsis(TextLineLayout& line, bool always, const LineRules& rules, const TextMeasure& measure) {
    if (!always && lineWidth(line.text, rules, measure) <= rules.width) return;
    LineRules cut = rules;
    cut.width = rules.width - measure(ellipsis);
    const std::size_t kept = fitting(line.text, cut, measure);
    line.text.resize(kept);
    if (line.underlined >= static_cast<int>(kept)) line.underlined = -1;
    line.text += ellipsis;
}

} // namespace platform::driver
