#pragma once

#include "automation/ClassTable.h"
#include "automation/Object.h"
#include "host/linux/Criteria.h"
#include "host/linux/Fields.h"
#include "host/linux/RecordCursor.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace host {

/// Records of a SQLite database, read one at a time in a fixed order. A table of any length is open at
/// once and is never held in memory: rows are found by their key, and positions by keys noted on the way. A
/// query or a view is copied to a temporary file first. Other programs may write meanwhile; what they
/// insert shows after `Requery`. A filter and an order note the keys of the records in a temporary file.
/// Errors are automation::Error: 3704 closed, 3705 already open, 3021 no present record, 3001 a wrong
/// argument, 3265 no such field; what SQLite complains about is 0x80004005 with its text.
class Recordset final : public automation::Object {
public:
    Recordset();
    ~Recordset() override;

    static const automation::ClassTable& table();
    const automation::ClassTable& classTable() const override { return table(); }

    static constexpr std::int32_t adStateClosed = 0;
    static constexpr std::int32_t adStateOpen = 1;
    static constexpr std::int32_t adPosUnknown = -1;
    static constexpr std::int32_t adPosBOF = -2;
    static constexpr std::int32_t adPosEOF = -3;
    static constexpr std::int32_t adGetRowsRest = -1;
    static constexpr std::int32_t adSearchForward = 1;
    static constexpr std::int32_t adSearchBackward = -1;
    static constexpr std::int32_t adFilterNone = 0;

    /// Opens a table, a view or a query that only reads, and goes to the first record. `source` left out is
    /// `Source`; `connection` left out is `ActiveConnection`: the path of the file, alone or as
    /// "Data Source=path".
    void Open(const automation::Variant& source = automation::Variant::missing(),
              const automation::Variant& connection = automation::Variant::missing());
    void Close();
    /// Reads the source anew and goes to the first record.
    void Requery();

    automation::String Source() const { return source_; }
    void Source(const automation::String& value);
    automation::String ActiveConnection() const { return connection_; }
    void ActiveConnection(const automation::String& value);
    /// adStateClosed or adStateOpen.
    std::int32_t State() const { return cursor_->isOpen() ? adStateOpen : adStateClosed; }

    /// Before the first record; both are True when there is none.
    bool BOF() const;
    /// After the last record. (The name in programs is "EOF", which C++ has for itself.)
    bool AtEOF() const;

    /// Error 3021 where there is no record at all.
    void MoveFirst();
    void MoveLast();
    /// One step past the end is allowed, the next raises Error 3021.
    void MoveNext();
    void MovePrevious();
    /// Moves by a signed number of records from the present one, or from `start`: a bookmark, or as a whole
    /// number 0 the present record, 1 the first, 2 the last.
    void Move(std::int32_t records, const automation::Variant& start = automation::Variant::missing());

    /// The present record's number from 1; adPosBOF, adPosEOF, or adPosUnknown when there are no records.
    /// Writing goes to that record: Error 3001 where there is none.
    std::int32_t AbsolutePosition() const;
    void AbsolutePosition(std::int32_t value);
    std::int32_t RecordCount() const;
    /// A Double that `Move`, `Find`, `GetRows` and writing it here take to come back, also under another
    /// Filter or Sort as long as the record is among theirs. Error 3021 on no record.
    automation::Variant Bookmark() const;
    void Bookmark(const automation::Variant& value);

    /// Goes to the nearest record that meets the criteria, a single comparison of those that filterCondition
    /// (Criteria.h) takes: "nombre = 'Eva'". The search begins at the present record, or at `start` as in
    /// `Move`, passes over `skipRecords` first, and goes forward or backward (adSearchForward,
    /// adSearchBackward). Where none is found it ends behind the last record or before the first. Error 3021
    /// where it cannot begin.
    void Find(const automation::String& criteria, std::int32_t skipRecords = 0,
              std::int32_t direction = adSearchForward,
              const automation::Variant& start = automation::Variant::missing());
    /// The criteria that records must meet to be there (see filterCondition), an array of the bookmarks of
    /// those that are there, or adFilterNone. Writing goes to the first of those records; the empty text and
    /// adFilterNone bring all of them back. Error 3001 for what is no bookmark.
    automation::Variant Filter() const;
    void Filter(const automation::Variant& criteria);
    /// The columns that order the records, see orderTerms: "ciudad, alta DESC". Writing goes to the first
    /// record; the empty text brings the source's own order back.
    automation::String Sort() const { return sort_; }
    void Sort(const automation::String& columns);

    /// How the present record is found in its table, for programs that write it with statements of their own;
    /// nullopt where the records are no table's, and under a Filter or Sort. Error 3021 on no record.
    std::optional<RowKey> presentKey() const;

    automation::Ref<host::Fields> Fields() const { return fields_; }
    /// The default member: the fields, or with an index one of them.
    automation::Variant FieldsOrOne(const automation::Variant& index) const;

    /// The values of `rows` records (adGetRowsRest: all that follow) from `start` on as an array with the
    /// fields in the first dimension and the records in the second, both from 0; the last record read is
    /// left behind. `start` is as in `Move`; `fields` is a name, an index or an array of them. Error 3021
    /// where there is no record to begin with.
    automation::Variant GetRows(std::int32_t rows = adGetRowsRest,
                                const automation::Variant& start = automation::Variant::missing(),
                                const automation::Variant& fields = automation::Variant::missing());

    /// What the connection has done since it was opened, for measurements.
    platform::DatabaseWork work() const;

private:
    std::int64_t positionOf(const automation::Variant& bookmark) const;
    std::vector<CriteriaColumn> criteriaColumns() const;
    std::string conditionOf(const automation::Variant& filter,
                            const std::vector<CriteriaColumn>& columns) const;
    void select(automation::Variant filter, automation::String sort);
    std::vector<std::size_t> columnsOf(const automation::Variant& fields) const;

    std::shared_ptr<RecordCursor> cursor_;
    automation::Ref<host::Fields> fields_;
    automation::String source_;
    automation::String connection_;
    automation::Variant filter_ = adFilterNone;
    automation::String sort_;
    std::unique_ptr<platform::Database> database_;
};

} // namespace host
