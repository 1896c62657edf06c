#pragma once
// Records by the start of their name.

#include "data/cMatriz.h"
#include "fichas/RecordSource.h"

#include <cstdint>
#include <optional>
#include <span>

namespace fichas {

/// The place of the column with the records' names: one that is called so, or the first with text; none where
/// there is no text.
std::optional<std::size_t> nameColumn(std::span<const Column> columns);

/// The names of all records in the order of a Spanish dictionary, without regard to case. Records without a
/// name are left out.
class NameIndex {
public:
    /// Reads all records. Throws SourceError.
    NameIndex(RecordSource& source, std::size_t column);

    struct Found {
        std::int64_t record;
        bool begins; ///< Whether its name begins so; if not, it is the one that follows in the order
    };
    /// The first record whose name begins so, accents or not; nothing where all names come before.
    std::optional<Found> seek(const automation::String& start) const;

private:
    automation::Ref<tesela::cMatriz> names_ = automation::make<tesela::cMatriz>();
};

} // namespace fichas
