#include "fichas/DataFile.h"

namespace fichas {

std::unique_ptr<DataFile> openDatabaseFile(const automation::String& path) {
    throw SourceError(path.utf8() + ": en este sistema sólo se leen archivos CSV");
}

} // namespace fichas
