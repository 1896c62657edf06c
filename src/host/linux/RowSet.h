#pragma once
// The rows of a table or a query by their position, without holding them.

#include "platform/linux/database.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace host {

/// Rows in a fixed order, at positions from 1.
class RowSet {
public:
    struct Column {
        std::string name;
        std::string declaredType;
    };
    using Row = std::vector<platform::DatabaseValue>;
    using Sink = std::function<void(const platform::Statement& row)>;

    virtual ~RowSet() = default;
    const std::vector<Column>& columns() const { return columns_; }

    /// All rows; counted at the first call and then remembered.
    virtual std::int64_t count() = 0;

    /// Whether there is such a row; counts no more than is needed to know.
    virtual bool exists(std::int64_t position) = 0;

    /// The row's values. False if it has gone since its position was found.
    virtual bool read(std::int64_t position, Row& row) = 0;

    /// Hands at most `limit` rows from `position` on to `sink`.
    virtual void readOn(std::int64_t position, std::int64_t limit, const Sink& sink) = 0;

protected:
    void describe(const platform::Statement& statement);
    static Row valuesOf(const platform::Statement& statement);

private:
    std::vector<Column> columns_;
};

/// The rows of a table in the order of its key. Each is found again by its key; the keys at the start of
/// every block of rows are noted when the way first leads there, from the nearest one known. Between two
/// calls nothing in the file is locked.
class KeyedRows final : public RowSet {
public:
    /// Rows between two noted keys.
    static constexpr std::int64_t blockLength = 256;

    /// `key` is what Database::keyColumns gave for the table, and not empty.
    KeyedRows(platform::Database database, const std::string& table, const std::vector<std::string>& key);

    std::int64_t count() override;
    bool exists(std::int64_t position) override;
    bool read(std::int64_t position, Row& row) override;
    void readOn(std::int64_t position, std::int64_t limit, const Sink& sink) override;

private:
    using Key = std::vector<platform::DatabaseValue>;

    std::optional<Key> keyAt(std::int64_t position);
    bool loadBlock(std::int64_t block);
    std::optional<Key> startOf(std::int64_t block);
    std::int64_t nearestKnown(std::int64_t block);
    static std::optional<Key> firstOf(platform::Statement& statement);
    static int bindKey(platform::Statement& statement, const Key& key);

    platform::Database database_;
    std::size_t keyLength_;
    platform::Statement countAll_, first_, fromEnd_, after_, before_, block_, row_, rowsFrom_;
    std::map<std::int64_t, Key> starts_; ///< Key of the first row of a block, blocks counted from 0
    std::vector<Key> keys_;              ///< Of the block last loaded
    std::int64_t loadedBlock_ = -1;
    std::optional<std::int64_t> count_;
};

/// The rows of any query, copied once into a temporary table of the connection, which SQLite keeps in a
/// file of its own as soon as it grows.
class SpooledRows final : public RowSet {
public:
    SpooledRows(platform::Database database, const std::string& query);

    std::int64_t count() override { return count_; }
    bool exists(std::int64_t position) override { return position >= 1 && position <= count_; }
    bool read(std::int64_t position, Row& row) override;
    void readOn(std::int64_t position, std::int64_t limit, const Sink& sink) override;

private:
    void copy(platform::Statement& query);

    platform::Database database_;
    platform::Statement rowsFrom_;
    std::int64_t count_ = 0;
};

/// Opens `source`, the name of a table or view or a query that only reads. Throws DatabaseError.
std::unique_ptr<RowSet> openRows(const platform::Database& database, const std::string& source);

} // namespace host
