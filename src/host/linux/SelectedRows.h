#pragma once

#include "host/linux/RowSet.h"

#include <string>
#include <vector>

namespace host {

/// Rows chosen from others, or the same in another order. Their keys, and nothing else, are noted in a
/// temporary table of the connection, which SQLite keeps in a file of its own as soon as it grows; a
/// connection has one at a time. What others delete is found missing when it is read.
class SelectedRows final : public RowSet {
public:
    /// Where the rows lie: a table as SQL names it, which is called t, and what tells its rows apart and
    /// orders them.
    struct Source {
        std::string table;
        std::vector<std::string> key;
    };

    /// `from` must live as long. Condition and order are SQL, or empty.
    SelectedRows(platform::Database database, const RowSet& from, const Source& source,
                 const std::string& condition, const std::string& order);

    std::int64_t count() override { return count_; }
    bool exists(std::int64_t position) override { return position >= 1 && position <= count_; }
    bool read(std::int64_t position, Row& row) override;
    void readOn(std::int64_t position, std::int64_t limit, const Sink& sink) override;
    std::string expression(std::size_t column) const override { return from_.expression(column); }
    std::optional<std::int64_t> find(std::int64_t position, bool forward,
                                     const std::string& condition) override;
    std::int64_t bookmark(std::int64_t position) override;
    std::optional<std::int64_t> positionOf(std::int64_t bookmark) override;

private:
    void note(const Source& source, const std::string& condition, const std::string& order);
    void prepare(const Source& source);

    platform::Database database_;
    const RowSet& from_;
    std::string joined_; ///< The noted keys, e, with the rows that they lead to, t
    std::int64_t count_ = 0;
    platform::Statement row_, rowsFrom_, rank_, positionOf_;
};

} // namespace host
