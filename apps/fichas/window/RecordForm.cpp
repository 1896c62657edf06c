#include "fichas/window/RecordForm.h"

#include "fichas/Display.h"
#include "fichas/window/FocusAway.h"
#include "host/Colors.h"
#include "host/Screen.h"
#include "platform/input.h"
#include "platform/windows.h"

#include <algorithm>

namespace fichas {

using automation::String;
using tesela::lbl;

namespace {

constexpr std::int32_t countingInterval = 20; // milliseconds

/// In a label's caption "&" underlines what follows; a doubled one is itself.
String literal(const String& text) {
    return text.replaced(u"&", u"&&");
}

constexpr host::OLE_COLOR reasonColor = 0x0000A0; // dark red

} // namespace

RecordForm::RecordForm(std::shared_ptr<const DataFile> file, const String& table)
    : host::Form(u"fichas"), file_(std::move(file)) {
    BorderStyle(host::FormBorderStyle::FixedSingle);
    MaxButton(false);
    StartUpPosition(host::StartUpPosition::CenterScreen);
    KeyPreview(true);
    counting_.Enabled(false);
    counting_.Interval(countingInterval);
    counting_.Tick.join([this] { countOn(); });
    showTable(table);
}

void RecordForm::showTable(const String& table) {
    RecordTable records(file_->open(table));
    std::vector<automation::Variant> first;
    const bool hasRecords = records.read(1, first);
    if (!records.source().countIsFinal()) records.source().countOn();
    records_ = std::move(records);
    names_.reset();
    isSeeking_ = false;
    sought_ = {};
    reason_ = {};
    table_ = table;
    record_ = hasRecords ? 1 : 0;
    values_ = std::move(first);
    page_ = 0;
    removeFields();
    makeFields();
    showRecord();
    counting_.Enabled(!source().countIsFinal());
}

// -------------------------------------------------------------------------------------------- fields

void RecordForm::removeFields() {
    for (const LabelledField& labelled : fields_) {
        remove(*labelled.caption);
        labelled.field->remove(*this);
    }
    fields_.clear();
    if (note_) remove(*note_);
    note_ = nullptr;
}

void RecordForm::place(host::Control& control, const platform::RECT& area) {
    const float x = host::Screen::TwipsPerPixelX();
    const float y = host::Screen::TwipsPerPixelY();
    const auto twips = [](int pixels, float each) { return static_cast<float>(pixels) * each; };
    control.Extender().Move(twips(area.left, x), twips(area.top, y), twips(area.right - area.left, x),
                            twips(area.bottom - area.top, y));
}

void RecordForm::makeFields() {
    const float x = host::Screen::TwipsPerPixelX();
    const float y = host::Screen::TwipsPerPixelY();
    std::vector<FieldMeasure> measures;
    for (const Column& column : source().columns())
        measures.push_back(
            {static_cast<int>(TextWidth(column.name) / x) + 1, column.type, column.length, column.lines});
    layout_ = FieldLayout();
    const int noteWidth = static_cast<int>(TextWidth(noteText()) / x) + 1;
    layout_ = layOutFields(measures, static_cast<int>(TextHeight(u"Ág") / y), noteWidth);
    SetClientSize(static_cast<float>(layout_.client.cx) * x, static_cast<float>(layout_.client.cy) * y);

    for (std::size_t i = 0; i < layout_.fields.size(); ++i)
        addField(i);
    note_ = &add<lbl>(u"lblNota");
    note_->AutoSize(tesela::tslAutoSize_NO);
    place(*note_, layout_.note);
    showPage();
}

void RecordForm::addField(std::size_t column) {
    const Column& about = source().columns()[column];
    const FieldPlace& area = layout_.fields[column];
    const auto index = static_cast<short>(column);
    lbl& caption = add<lbl>(u"lblCampo", index);
    caption.AutoSize(tesela::tslAutoSize_NO);
    caption.Alignment(tesela::tslAlignmentRightJustify);
    caption.Caption(literal(about.name));
    place(caption, area.caption);

    auto made = std::make_unique<ColumnField>(*this, about, table_, index);
    ColumnField& field = *made;
    fields_.push_back({&caption, std::move(made)});
    place(field.field(), area.value);
    if (field.hour()) place(*field.hour(), area.hour);
    for (tesela::get* part : {&field.field(), field.hour()})
        if (part)
            part->Extender().Validate.join(
                [this, &field, part](bool& cancel) { validate(field, *part, cancel); });
}

void RecordForm::showPage() {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const bool visible = layout_.fields[i].page == page_;
        fields_[i].caption->Extender().Visible(visible);
        fields_[i].field->field().Extender().Visible(visible);
        if (tesela::get* hour = fields_[i].field->hour()) hour->Extender().Visible(visible);
    }
    showNote();
}

bool RecordForm::canEdit() const {
    return record_ > 0 && source().takesChanges();
}

// ------------------------------------------------------------------------------------ the line below

/// What is wrong; what is sought while it is typed; where the fields take several pages, which one this is;
/// what the keys do.
String RecordForm::noteText() const {
    if (!reason_.empty()) return reason_;
    if (isSeeking_) return soughtText();
    if (layout_.pages > 1) {
        const std::string page = std::to_string(page_ + 1) + " de " + std::to_string(layout_.pages);
        return u"Campos: página " + String::fromUtf8(page) + u"   Ctrl+flechas arriba y abajo: otra página";
    }
    String keys = u"RePág: anterior   AvPág: siguiente   Ctrl+Inicio: primero   Ctrl+Fin: último";
    if (nameColumn(source().columns())) keys += u"   F3: buscar";
    if (file_->tables().size() > 1) keys += u"   Ctrl+AvPág: otra tabla";
    return keys;
}

String RecordForm::soughtText() const {
    const String& name = source().columns()[*nameColumn(source().columns())].name;
    return name + u": \u201C" + sought_ + (isSoughtThere_ ? u"\u201D" : u"\u201D   No hay ninguno así");
}

void RecordForm::showNote() {
    note_->ForeColor(reason_.empty() ? host::colorButtonText : reasonColor);
    note_->Caption(literal(noteText()));
    const float width = note_->Extender().Width();
    note_->ToolTip(TextWidth(noteText()) > width ? noteText() : String());
}

void RecordForm::complain(const String& reason) {
    reason_ = reason;
    showNote();
}

void RecordForm::showRecord() {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const bool has = i < values_.size();
        fields_[i].field->show(has ? values_[i] : automation::Variant::null(), !canEdit());
        // What is clipped can be read in full under the mouse.
        tesela::get& field = fields_[i].field->field();
        const float width = field.Extender().Width() - 6 * host::Screen::TwipsPerPixelX();
        field.ToolTip(TextWidth(field.Text()) > width ? field.Text() : String());
    }
    showTitle();
}

void RecordForm::showTitle() {
    Caption(titleText(source().name(), record_, std::max(source().knownCount(), record_),
                      source().countIsFinal()));
}

// -------------------------------------------------------------------------------------------- moving

/// Runs what may find the file broken; then the window has nothing more to show.
template <class F>
void RecordForm::guarded(F&& work) {
    if (failure_) return;
    try {
        work();
    } catch (const SourceError& error) {
        failure_ = error.what();
        counting_.Enabled(false);
        unload();
    }
}

void RecordForm::goTo(std::int64_t record) {
    if (!save()) return;
    record = std::max<std::int64_t>(record, 1);
    std::vector<automation::Variant> values;
    if (!records_->read(record, values)) {
        record = source().count();
        if (record == 0 || !records_->read(record, values)) return;
    }
    const FocusAway away;
    record_ = record;
    values_ = std::move(values);
    showRecord();
}

void RecordForm::goToLast() {
    goTo(std::max<std::int64_t>(source().count(), 1));
}

void RecordForm::goToName(const String& start) {
    const auto column = nameColumn(source().columns());
    if (!column || !save()) return;
    if (!names_) names_.emplace(source(), *column);
    sought_ = start;
    isSeeking_ = true;
    const auto found = names_->seek(start);
    isSoughtThere_ = start.empty() || (found && found->begins);
    showNote();
    if (found && !start.empty()) goTo(found->record);
}

void RecordForm::stopSeeking() {
    if (!isSeeking_) return;
    isSeeking_ = false;
    sought_ = {};
    showNote();
}

void RecordForm::countOn() {
    guarded([this] {
        source().countOn();
        if (source().countIsFinal()) counting_.Enabled(false);
        showTitle();
    });
}

// ---------------------------------------------------------------------------------------------- keys

void RecordForm::nextTable(int step) {
    const std::vector<String> tables = file_->tables();
    const auto count = static_cast<int>(tables.size());
    const auto here = std::find(tables.begin(), tables.end(), source().name()) - tables.begin();
    if (count < 2 || !save()) return;
    showTable(tables[static_cast<std::size_t>((static_cast<int>(here) + step + count) % count)]);
    if (Visible()) moveFocus(true); // to the first field
}

void RecordForm::nextPage(int step) {
    page_ = std::clamp(page_ + step, 0, layout_.pages - 1);
    showPage();
}

/// The fields of a page that Tab stops at, in their order.
std::vector<tesela::get*> RecordForm::stopsOfPage(int page) const {
    std::vector<tesela::get*> stops;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        for (tesela::get* part : {&fields_[i].field->field(), fields_[i].field->hour()})
            if (part && layout_.fields[i].page == page && part->Extender().TabStop()) stops.push_back(part);
    return stops;
}

/// Behind the last field of a page come those of the next one, then the next record; in front of the first
/// one it is the other way round. The first and the last record have none beside: there it begins anew.
bool RecordForm::onTab(bool forward) {
    const std::vector<tesela::get*> stops = stopsOfPage(page_);
    const host::Control* end = stops.empty() ? nullptr : forward ? stops.back() : stops.front();
    if (!canEdit() || !end || ActiveControl() != end) return host::Form::onTab(forward);
    guarded([&] { goBeyondPage(forward); });
    return true;
}

void RecordForm::goBeyondPage(bool forward) {
    const int step = forward ? 1 : -1, ends = forward ? layout_.pages : -1;
    int page = page_ + step;
    while (page != ends && stopsOfPage(page).empty())
        page += step;
    if (page == ends) {
        if (!save()) return;
        goTo(record_ + step);
        for (page = forward ? 0 : layout_.pages - 1; stopsOfPage(page).empty();)
            page += step;
    } else if (!canLeaveField()) {
        return;
    }
    page_ = page;
    showPage();
    const std::vector<tesela::get*> stops = stopsOfPage(page);
    platform::SetFocus((forward ? stops.front() : stops.back())->hWnd());
}

bool RecordForm::plainKey(short key) {
    switch (key) {
    case platform::VK_NEXT:
        goTo(record_ + 1);
        return true;
    case platform::VK_PRIOR:
        goTo(record_ - 1);
        return true;
    case platform::VK_F3:
        if (save()) goToName({});
        return true;
    case platform::VK_ESCAPE:
        escape();
        return true;
    default:
        return !canEdit() && readersKey(key);
    }
}

/// To the first and the last record.
bool RecordForm::endKey(short key) {
    if (key != platform::VK_HOME && key != platform::VK_END) return false;
    if (key == platform::VK_HOME)
        goTo(1);
    else
        goToLast();
    return true;
}

/// The keys that belong to the fields where these can be edited.
bool RecordForm::readersKey(short key) {
    switch (key) {
    case platform::VK_DOWN:
    case platform::VK_RIGHT:
        goTo(record_ + 1);
        return true;
    case platform::VK_UP:
    case platform::VK_LEFT:
        goTo(record_ - 1);
        return true;
    default:
        return endKey(key);
    }
}

bool RecordForm::controlKey(short key) {
    switch (key) {
    case platform::VK_NEXT:
        nextTable(1);
        return true;
    case platform::VK_PRIOR:
        nextTable(-1);
        return true;
    case platform::VK_DOWN:
        nextPage(1);
        return true;
    case platform::VK_UP:
        nextPage(-1);
        return true;
    default:
        return endKey(key);
    }
}

void RecordForm::escape() {
    if (isSeeking_)
        stopSeeking();
    else
        discard();
}

/// While a name is sought: the keys that end it or that its characters come from.
bool RecordForm::seekingKey(short key) {
    switch (key) {
    case platform::VK_RETURN:
    case platform::VK_F3:
        stopSeeking();
        return true;
    case platform::VK_DELETE:
        return true;
    default:
        return false;
    }
}

void RecordForm::onKeyDown(short& KeyCode, short& Shift) {
    guarded([&] {
        if (isSeeking_ && seekingKey(KeyCode)) {
            KeyCode = 0;
            return;
        }
        const bool used = Shift == 0                ? plainKey(KeyCode)
                          : Shift == host::CtrlMask ? controlKey(KeyCode)
                                                    : false;
        if (!used) return;
        if (KeyCode != platform::VK_F3) stopSeeking();
        KeyCode = 0;
    });
    if (!failure_) host::Form::onKeyDown(KeyCode, Shift);
}

/// The characters of a name that is sought.
void RecordForm::onKeyPress(short& KeyAscii) {
    guarded([&] {
        if (!isSeeking_ && canEdit()) return;
        const auto code = static_cast<char>(KeyAscii);
        if (KeyAscii == platform::VK_BACK) {
            if (sought_.length() > 1)
                goToName(sought_.left(sought_.length() - 1));
            else
                stopSeeking();
        } else if (KeyAscii > u' ' || (KeyAscii == u' ' && !sought_.empty())) {
            goToName(sought_ + String::fromAnsi({&code, 1}));
        } else if (KeyAscii < u' ' && !isSeeking_) {
            return;
        }
        KeyAscii = 0;
    });
    if (!failure_) host::Form::onKeyPress(KeyAscii);
}

} // namespace fichas
