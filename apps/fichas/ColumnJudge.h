#pragma once
// What a column holds, judged by its values.

#include "automation/Variant.h"
#include "fichas/RecordSource.h"

namespace fichas {

/// Takes the values of a column one by one; Null says nothing.
class ColumnJudge {
public:
    void take(const automation::Variant& value);

    /// What all of them can be; Text where they have nothing in common or there were none. Texts are dates
    /// and hours in ISO form only.
    ColumnType type() const;
    /// The most decimals of a number, between 2 and 6.
    int decimals() const;

    /// A text as a value of this type; itself where it is none.
    static automation::Variant valueAs(ColumnType type, const automation::Variant& text);

private:
    void takeText(std::u16string_view text);

    bool any_ = false;
    bool whole_ = true;   ///< All were whole numbers
    bool numbers_ = true; ///< All were numbers
    bool dates_ = true;   ///< All were texts of dates
    bool hasTime_ = false;
    bool times_ = true; ///< All were texts of hours
    int decimals_ = 0;
};

} // namespace fichas
