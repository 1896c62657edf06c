// How what was typed into a record gets into its file.

#include "fichas/window/FocusAway.h"
#include "fichas/window/RecordForm.h"

namespace fichas {

using automation::String;

/// A field that is about to lose the focus keeps it with a value that its column does not take.
void RecordForm::validate(ColumnField& field, tesela::get& part, bool& cancel) {
    const String fault = field.faultOnLeaving(part);
    cancel = !fault.empty();
    complain(fault);
}

bool RecordForm::canLeaveField() {
    for (const LabelledField& labelled : fields_)
        for (tesela::get* part : {&labelled.field->field(), labelled.field->hour()})
            if (part && part->HasFocus()) {
                bool cancel = false;
                validate(*labelled.field, *part, cancel);
                return !cancel;
            }
    return true;
}

/// Goes to the first field with a value that can't be written, and says why.
bool RecordForm::isFaulty() {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const String fault = fields_[i].field->fault();
        if (fault.empty()) continue;
        focusOn(i);
        complain(fault);
        return true;
    }
    return false;
}

void RecordForm::focusOn(std::size_t column) {
    if (page_ != layout_.fields[column].page) {
        page_ = layout_.fields[column].page;
        showPage();
    }
    if (Visible()) platform::SetFocus(fields_[column].field->field().hWnd());
}

std::vector<Change> RecordForm::changes() const {
    std::vector<Change> changes;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        if (fields_[i].field->isChanged()) changes.push_back({i, fields_[i].field->value()});
    return changes;
}

/// Throws WriteError; a record that is another one by now is then the one that the next attempt changes.
void RecordForm::write(const std::vector<Change>& changes) {
    try {
        source().write(record_, values_, changes);
    } catch (const ChangedMeanwhile&) {
        takeOver();
        throw;
    }
    names_.reset();
    readAgain();
}

/// Shows the record as it is now; the last one where there are fewer by now.
void RecordForm::readAgain() {
    records_->forget();
    if (!records_->read(record_, values_)) {
        record_ = source().count();
        if (record_ == 0 || !records_->read(record_, values_)) values_.clear();
    }
    showRecord();
}

/// Shows what another program has written, but for the fields that the user has changed.
void RecordForm::takeOver() {
    records_->forget();
    records_->read(record_, values_);
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        if (fields_[i].field->isChanged())
            fields_[i].field->rebase(values_[i]);
        else
            fields_[i].field->show(values_[i], !canEdit());
    }
}

bool RecordForm::save() {
    if (!canEdit()) return true;
    if (!canLeaveField()) return false;
    const FocusAway away;
    if (isFaulty()) return false;
    try {
        if (const std::vector<Change> list = changes(); !list.empty()) write(list);
        complain({});
        return true;
    } catch (const ChangedMeanwhile& error) {
        complain(String::fromUtf8(error.what()) +
                 u". Al salir otra vez se guarda lo tecleado; Esc lo descarta");
    } catch (const WriteError& error) {
        complain(u"No se ha guardado: " + String::fromUtf8(error.what()) + u". Esc descarta los cambios");
    }
    return false;
}

void RecordForm::discard() {
    if (record_ == 0) return;
    const FocusAway away;
    complain({});
    readAgain();
}

void RecordForm::onQueryUnload(short& Cancel, host::UnloadMode mode) {
    try {
        if (!failure_ && !save()) Cancel = 1;
    } catch (const SourceError& error) {
        failure_ = error.what(); // there is nothing more to write to
    }
    if (!Cancel) host::Form::onQueryUnload(Cancel, mode);
}

} // namespace fichas
