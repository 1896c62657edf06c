#pragma once

#include "fichas/DataFile.h"
#include "fichas/FieldLayout.h"
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

/// A window that shows one record of a table at a time, each field in a label with its name beside it.
/// Arrows and PageUp and PageDown go to the records beside, Home and End to the first and the last; with Ctrl
/// the page keys change the table and the up and down arrows the page of fields, where there are several.
/// Letters that are typed go to the first record whose name begins with them; Backspace takes the last one
/// back.
class RecordForm final : public host::Form {
public:
    /// Throws SourceError where the table cannot be read.
    RecordForm(std::shared_ptr<const DataFile> file, const automation::String& table);

    /// Shows the first record of another table.
    void showTable(const automation::String& table);

    /// Goes to a record, or to the last one if there are fewer, or the first for a number below 1.
    void goTo(std::int64_t record);
    void goToLast();
    std::int64_t record() const { return record_; }
    /// Goes to the first record whose name begins so, or to the one that follows in the order.
    void goToName(const automation::String& start);

    /// What ended the window, if the file turned out to be broken on the way.
    const std::optional<std::string>& failure() const { return failure_; }

protected:
    void onKeyDown(short& KeyCode, short& Shift) override;
    void onKeyPress(short& KeyAscii) override;

private:
    struct FieldLabels {
        tesela::lbl* caption;
        tesela::lbl* value;
    };

    template <class F>
    void guarded(F&& work);
    bool plainKey(short key);
    bool controlKey(short key);
    void nextTable(int step);
    void nextPage(int step);
    void removeLabels();
    void makeLabels();
    void place(host::Control& control, const platform::RECT& area);
    void showPage();
    automation::String noteText() const;
    automation::String soughtText() const;
    void stopSeeking();
    void showRecord();
    void showTitle();
    void countOn();

    std::shared_ptr<const DataFile> file_;
    RecordSource& source() const { return records_->source(); }

    std::optional<RecordTable> records_;
    std::optional<NameIndex> names_; ///< Made when a name is sought
    automation::String sought_;      ///< What has been typed of it
    bool isSoughtThere_ = true;
    automation::String table_;
    FieldLayout layout_;
    std::vector<FieldLabels> labels_;
    tesela::lbl* note_ = nullptr;
    int page_ = 0;
    std::int64_t record_ = 0;
    std::vector<automation::Variant> values_;
    host::Timer counting_;
    std::optional<std::string> failure_;
};

} // namespace fichas
