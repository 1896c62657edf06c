#pragma once

#include "fichas/DataFile.h"
#include "fichas/FieldLayout.h"
#include "fichas/window/ColumnField.h"
#include "fichas/window/NameIndex.h"
#include "fichas/window/RecordTable.h"
#include "frame/lbl.h"
#include "host/Form.h"
#include "host/Timer.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace fichas {

/// A window with one record of a table at a time, each column in a field with its name beside it. Enter, Tab
/// and the arrows walk the fields, then those of the next page and of the next record; a value that its
/// column does not take keeps the focus, with the reason on the line below. PageUp and PageDown go to the
/// records beside, Ctrl+Home and Ctrl+End to the first and the last; with Ctrl the page keys change the table
/// and the up and down arrows the page of fields, where there are several. After F3, the letters that are
/// typed go to the first record whose name begins with them; Backspace takes the last one back, Enter and Esc
/// end the search. What was changed is written when the record is left; a record that can't be written stays
/// with all that was typed, and Esc gives its changes up.
///
/// Where nothing can be changed the arrows, Home and End walk through the records and letters need no F3.
class RecordForm final : public host::Form {
public:
    /// Throws SourceError where the table cannot be read.
    RecordForm(std::shared_ptr<const DataFile> file, const automation::String& table);

    /// Shows the first record of another table.
    void showTable(const automation::String& table);

    /// Goes to a record, or to the last one if there are fewer, or the first for a number below 1. It stays
    /// where the present one can't be written.
    void goTo(std::int64_t record);
    void goToLast();
    std::int64_t record() const { return record_; }
    /// Goes to the first record whose name begins so, or to the one that follows in the order.
    void goToName(const automation::String& start);

    /// Writes what was changed in the record. False where it can't be: then the reason is shown.
    bool save();
    /// Gives up what was changed and shows the record as it is in the file now.
    void discard();

    /// What ended the window, if the file turned out to be broken on the way.
    const std::optional<std::string>& failure() const { return failure_; }

protected:
    void onKeyDown(short& KeyCode, short& Shift) override;
    void onKeyPress(short& KeyAscii) override;
    bool onTab(bool forward) override;
    void onQueryUnload(short& Cancel, host::UnloadMode mode) override;

private:
    struct LabelledField {
        tesela::lbl* caption;
        std::unique_ptr<ColumnField> field;
    };

    template <class F>
    void guarded(F&& work);
    // Keys
    bool plainKey(short key);
    bool endKey(short key);
    bool readersKey(short key);
    bool controlKey(short key);
    bool seekingKey(short key);
    void escape();
    void nextTable(int step);
    void nextPage(int step);
    std::vector<tesela::get*> stopsOfPage(int page) const;
    void goBeyondPage(bool forward);

    // Fields
    void removeFields();
    void makeFields();
    void addField(std::size_t column);
    void place(host::Control& control, const platform::RECT& area);
    void showPage();
    bool canEdit() const;

    // The line below
    automation::String noteText() const;
    automation::String soughtText() const;
    void showNote();
    void complain(const automation::String& reason);
    void stopSeeking();

    void showRecord();
    void showTitle();
    void countOn();

    // Writing: RecordForm_editing.cpp
    void validate(ColumnField& field, tesela::get& part, bool& cancel);
    bool canLeaveField();
    bool isFaulty();
    void focusOn(std::size_t column);
    std::vector<Change> changes() const;
    void write(const std::vector<Change>& changes);
    void readAgain();
    void takeOver();

    std::shared_ptr<const DataFile> file_;
    RecordSource& source() const { return records_->source(); }

    std::optional<RecordTable> records_;
    std::optional<NameIndex> names_; ///< Made when a name is sought
    bool isSeeking_ = false;         ///< Letters go to the search
    automation::String sought_;      ///< What has been typed of a name
    bool isSoughtThere_ = true;
    automation::String reason_; ///< Why the record can't be left or written
    automation::String table_;
    FieldLayout layout_;
    std::vector<LabelledField> fields_;
    tesela::lbl* note_ = nullptr;
    int page_ = 0;
    std::int64_t record_ = 0;
    std::vector<automation::Variant> values_;
    host::Timer counting_;
    std::optional<std::string> failure_;
};

} // namespace fichas
