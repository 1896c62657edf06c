#pragma once
// How tables compare cells.

#include "automation/Conversions.h"
#include "automation/Operators.h"
#include "automation/Variant.h"
#include "data/collation.h"

namespace tesela {

/// -1, 0 or 1 as the host compares values; 0 too where a side is Null. Error 13 for what does not compare.
inline int hostOrder(const automation::Variant& a, const automation::Variant& b) {
    return automation::isLess(a, b) ? -1 : automation::isLess(b, a) ? 1 : 0;
}

/// The order of two cells. With `collate` a text is compared with the other cell's text as a dictionary
/// orders them (Error 94 for a Null); all else as `hostOrder`.
inline int compareCells(const automation::Variant& a, const automation::Variant& b, bool collate) {
    if (!collate || !a.isString()) return hostOrder(a, b);
    return TS_Compara(a.asString(), b.isString() ? b.asString() : automation::CStr(b));
}

/// Gives `test` a cell. An object is held meanwhile: what its comparison sets off may change the table.
template <class Test>
bool testHeld(const automation::Variant& cell, Test test) {
    return cell.isObject() ? test(automation::Variant(cell)) : test(cell);
}

} // namespace tesela
