#pragma once
// What programs write to choose and to order the records of a recordset, turned into SQL.

#include "automation/String.h"
#include "host/linux/ColumnValue.h"
#include "platform/linux/database.h"

#include <string>
#include <vector>

namespace host {

/// A column that criteria may name, in any case.
struct CriteriaColumn {
    automation::String name;
    FieldType type = FieldType::Variant;
    std::string expression; ///< How SQL reads it
};

/// The functions that the conditions and orders call. Each connection needs them once.
void defineCriteriaFunctions(const platform::Database& database);

/// A condition out of comparisons joined by AND and OR, which count alike and are taken from left to right,
/// with parentheses around what belongs together:
///
///     ciudad = 'Cádiz' and (importe >= 12.5 or [fecha de alta] < #2/29/2024#)
///
/// A comparison is a column, =, <>, <, <=, >, >= or LIKE, and a value: a text in single quotes, which are
/// doubled inside; a number with a point; a date between # signs, month first or in ISO form; True, False or
/// Null. The value is taken as the column's type; texts are compared without regard to case, before and after
/// as in the dictionary. A pattern of LIKE may end in * or %, or begin and end so. A column's name with
/// blanks stands in brackets. Error 3001 for what is no such thing, 3265 for a column that there is not.
std::string filterCondition(const automation::String& criteria, const std::vector<CriteriaColumn>& columns);

/// The same of a single comparison.
std::string findCondition(const automation::String& criteria, const std::vector<CriteriaColumn>& columns);

/// Terms for ORDER BY out of columns with ASC, which may be left out, or DESC behind them: "ciudad, alta
/// DESC". Empty for no columns. Errors as above.
std::string orderTerms(const automation::String& columnsInOrder, const std::vector<CriteriaColumn>& columns);

} // namespace host
