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

/// What tells a row of a table from all others: `columns` stand in the table's key, or are a name of its
/// rowid.
struct RowKey {
    std::string table;
    std::vector<std::string> columns;
    std::vector<platform::DatabaseValue> values;
};

/// Rows in a fixed order, at positions from 1. Conditions and orders are SQL over `expression`s.
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

    /// How the row is found in its table; nullopt where the rows are no table's or there is no such row.
    virtual std::optional<RowKey> keyOf(std::int64_t) { return std::nullopt; }

    /// Hands at most `limit` rows from `position` on to `sink`.
    virtual void readOn(std::int64_t position, std::int64_t limit, const Sink& sink) = 0;

    /// How SQL reads a column.
    virtual std::string expression(std::size_t column) const;

    /// The nearest row from `position` on, or back from it, that meets the condition; none is nullopt.
    virtual std::optional<std::int64_t> find(std::int64_t position, bool forward,
                                             const std::string& condition) = 0;

    /// A number by which a row is known whichever rows are chosen, and the way back; nullopt where the row
    /// isn't among these.
    virtual std::int64_t bookmark(std::int64_t position) { return position; }
    virtual std::optional<std::int64_t> positionOf(std::int64_t bookmark);

protected:
    void describe(const platform::Statement& statement);
    void describe(std::vector<Column> columns) { columns_ = std::move(columns); }
    static Row valuesOf(const platform::Statement& statement);

private:
    std::vector<Column> columns_;
};

/// Rows as a source gives them, of which some may be chosen or which may be put in another order.
class SourceRows : public RowSet {
public:
    /// Those that meet the condition, in the order of the terms and where those say nothing in the present
    /// one; either may be empty. These rows must live as long, and of all of a connection's only one choice
    /// may.
    virtual std::unique_ptr<RowSet> select(const std::string& condition, const std::string& order) const = 0;

    /// The condition for the rows that these bookmarks stand for.
    virtual std::string conditionOf(const std::vector<std::int64_t>& bookmarks) const = 0;
};

/// The rows of a table in the order of its key. Each is found again by its key; the keys at the start of
/// every block of rows are noted when the way first leads there, from the nearest one known. Between two
/// calls nothing in the file is locked.
class KeyedRows final : public SourceRows {
public:
    /// Rows between two noted keys.
    static constexpr std::int64_t blockLength = 256;

    /// `key` is what Database::keyColumns gave for the table, and not empty.
    KeyedRows(platform::Database database, const std::string& table, const std::vector<std::string>& key);

    std::int64_t count() override;
    bool exists(std::int64_t position) override;
    bool read(std::int64_t position, Row& row) override;
    std::optional<RowKey> keyOf(std::int64_t position) override;
    void readOn(std::int64_t position, std::int64_t limit, const Sink& sink) override;
    std::optional<std::int64_t> find(std::int64_t position, bool forward,
                                     const std::string& condition) override;
    std::unique_ptr<RowSet> select(const std::string& condition, const std::string& order) const override;
    std::string conditionOf(const std::vector<std::int64_t>& bookmarks) const override;

private:
    using Key = std::vector<platform::DatabaseValue>;

    std::optional<Key> keyAt(std::int64_t position);
    bool loadBlock(std::int64_t block);
    std::optional<Key> startOf(std::int64_t block);
    std::int64_t nearestKnown(std::int64_t block);
    static std::optional<Key> firstOf(platform::Statement& statement);
    static int bindKey(platform::Statement& statement, const Key& key);

    platform::Database database_;
    std::string name_;                    ///< The table's
    std::vector<std::string> key_;        ///< Names of the columns of its key
    std::string table_;                   ///< As SQL names it
    std::vector<std::string> keyColumns_; ///< The same
    platform::Statement countAll_, first_, fromEnd_, after_, before_, block_, row_, rowsFrom_;
    std::map<std::int64_t, Key> starts_; ///< Key of the first row of a block, blocks counted from 0
    std::vector<Key> keys_;              ///< Of the block last loaded
    std::int64_t loadedBlock_ = -1;
    std::optional<std::int64_t> count_;
};

/// The rows of any query, copied once into a temporary table of the connection, which SQLite keeps in a
/// file of its own as soon as it grows.
class SpooledRows final : public SourceRows {
public:
    SpooledRows(platform::Database database, const std::string& query);

    std::int64_t count() override { return count_; }
    bool exists(std::int64_t position) override { return position >= 1 && position <= count_; }
    bool read(std::int64_t position, Row& row) override;
    void readOn(std::int64_t position, std::int64_t limit, const Sink& sink) override;
    std::string expression(std::size_t column) const override;
    std::optional<std::int64_t> find(std::int64_t position, bool forward,
                                     const std::string& condition) override;
    std::unique_ptr<RowSet> select(const std::string& condition, const std::string& order) const override;
    std::string conditionOf(const std::vector<std::int64_t>& bookmarks) const override;

private:
    void copy(platform::Statement& query);

    platform::Database database_;
    platform::Statement rowsFrom_;
    std::int64_t count_ = 0;
};

/// Opens `source`, the name of a table or view or a query that only reads. Throws DatabaseError.
std::unique_ptr<SourceRows> openRows(const platform::Database& database, const std::string& source);

} // namespace host
