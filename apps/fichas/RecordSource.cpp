#include "fichas/RecordSource.h"

namespace fichas {

void RecordSource::write(std::int64_t, const std::vector<automation::Variant>&, const std::vector<Change>&) {
    throw WriteError("estos registros sólo se pueden leer");
}

} // namespace fichas
