#include "fichas/RecordSource.h"

#include "automation/Array.h"
#include "automation/Operators.h"

#include <algorithm>

namespace fichas {

using automation::Variant;

bool isSameValue(const Variant& a, const Variant& b) {
    if (a.isNull() || b.isNull()) return a.isNull() && b.isNull();
    if (a.isArray() || b.isArray())
        return a.isArray() && b.isArray() && std::ranges::equal(a.asArray().bytes(), b.asArray().bytes());
    return a.isString() == b.isString() && automation::isEqual(a, b);
}

int countLines(const Variant& value) {
    if (!value.isString()) return 1;
    const std::u16string_view text = value.asString();
    int lines = 1;
    for (std::size_t i = 0; i < text.size(); ++i)
        lines += text[i] == u'\n' || (text[i] == u'\r' && (i + 1 == text.size() || text[i + 1] != u'\n'));
    return lines;
}

void RecordSource::write(std::int64_t, const std::vector<Variant>&, const std::vector<Change>&) {
    throw WriteError("estos registros sólo se pueden leer");
}

} // namespace fichas
