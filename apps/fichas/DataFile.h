#pragma once
// A file that fichas can show: a database with its tables, or a CSV file, which is one table.

#include "automation/String.h"
#include "fichas/RecordSource.h"

#include <memory>
#include <string>
#include <vector>

namespace fichas {

class DataFile {
public:
    virtual ~DataFile() = default;

    /// The tables' names, at least one; a CSV file's is the file's own.
    virtual std::vector<automation::String> tables() const = 0;

    /// Throws SourceError for a table that there is not.
    virtual std::unique_ptr<RecordSource> open(const automation::String& table) const = 0;
};

/// Tells by its content what a file is, and by its name only when the content says nothing. Throws
/// SourceError for what cannot be read as either.
std::unique_ptr<DataFile> openFile(const automation::String& path);

/// Opens a file that is, or is named as, a SQLite database. On a system without SQLite it throws.
std::unique_ptr<DataFile> openDatabaseFile(const automation::String& path);

/// The part of a path behind its folders.
automation::String fileName(const automation::String& path);

} // namespace fichas
