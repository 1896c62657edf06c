#include "fichas/window/RecordForm.h"

#include "fichas/Display.h"
#include "host/Screen.h"
#include "platform/input.h"

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

tesela::tslTipoDatoConstants dataTypeOf(ColumnType type) {
    switch (type) {
    case ColumnType::Integer:
    case ColumnType::Number:
    case ColumnType::Currency:
        return tesela::tslTipoDatoNumero;
    case ColumnType::Date:
    case ColumnType::DateTime:
    case ColumnType::Time:
        return tesela::tslTipoDatoFecha;
    default:
        return tesela::tslTipoDatoCaracter;
    }
}

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
    sought_ = {};
    table_ = table;
    record_ = hasRecords ? 1 : 0;
    values_ = std::move(first);
    page_ = 0;
    removeLabels();
    makeLabels();
    showRecord();
    counting_.Enabled(!source().countIsFinal());
}

// -------------------------------------------------------------------------------------------- labels

void RecordForm::removeLabels() {
    for (const FieldLabels& field : labels_) {
        remove(*field.caption);
        remove(*field.value);
    }
    labels_.clear();
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

void RecordForm::makeLabels() {
    const float x = host::Screen::TwipsPerPixelX();
    const float y = host::Screen::TwipsPerPixelY();
    std::vector<FieldMeasure> measures;
    for (const Column& column : source().columns())
        measures.push_back({static_cast<int>(TextWidth(column.name) / x) + 1, column.type});
    layout_ = FieldLayout();
    const int noteWidth = static_cast<int>(TextWidth(noteText()) / x) + 1;
    layout_ = layOutFields(measures, static_cast<int>(TextHeight(u"Ág") / y), noteWidth);
    SetClientSize(static_cast<float>(layout_.client.cx) * x, static_cast<float>(layout_.client.cy) * y);

    for (std::size_t i = 0; i < layout_.fields.size(); ++i) {
        const Column& column = source().columns()[i];
        const auto index = static_cast<short>(i);
        lbl& caption = add<lbl>(u"lblCampo", index);
        caption.AutoSize(tesela::tslAutoSize_NO);
        caption.Alignment(tesela::tslAlignmentRightJustify);
        caption.Caption(literal(column.name));
        place(caption, layout_.fields[i].caption);

        lbl& value = add<lbl>(u"lblValor", index);
        value.AutoSize(tesela::tslAutoSize_NO);
        value.BorderStyle(tesela::tslBorderStyleFixedSingle);
        value.BackColor(host::colorWindowBackground);
        value.ForeColor(host::colorWindowText);
        value.Alias(table_);
        value.Campo(column.name);
        value.TipoDato(dataTypeOf(column.type));
        place(value, layout_.fields[i].value);
        labels_.push_back({&caption, &value});
    }
    note_ = &add<lbl>(u"lblNota");
    note_->AutoSize(tesela::tslAutoSize_NO);
    place(*note_, layout_.note);
    showPage();
}

void RecordForm::showPage() {
    for (std::size_t i = 0; i < labels_.size(); ++i) {
        const bool visible = layout_.fields[i].page == page_;
        labels_[i].caption->Extender().Visible(visible);
        labels_[i].value->Extender().Visible(visible);
    }
    note_->Caption(literal(noteText()));
}

/// What the keys do; where the fields take several pages, which one this is; what is sought while it is
/// typed.
String RecordForm::noteText() const {
    if (!sought_.empty()) return soughtText();
    if (layout_.pages > 1) {
        const std::string page = std::to_string(page_ + 1) + " de " + std::to_string(layout_.pages);
        return u"Campos: página " + String::fromUtf8(page) + u"   Ctrl+flechas arriba y abajo: otra página";
    }
    String keys = u"RePág: anterior   AvPág: siguiente   Inicio: primero   Fin: último";
    if (nameColumn(source().columns())) keys += u"   Letras: buscar";
    if (file_->tables().size() > 1) keys += u"   Ctrl+AvPág: otra tabla";
    return keys;
}

String RecordForm::soughtText() const {
    const String& name = source().columns()[*nameColumn(source().columns())].name;
    return name + u": \u201C" + sought_ + (isSoughtThere_ ? u"\u201D" : u"\u201D   No hay ninguno así");
}

void RecordForm::showRecord() {
    for (std::size_t i = 0; i < labels_.size(); ++i) {
        const Column& column = source().columns()[i];
        lbl& label = *labels_[i].value;
        String text;
        if (i < values_.size()) {
            text = displayText(values_[i], column);
            label.Alignment(standsAtRight(values_[i], column) ? tesela::tslAlignmentRightJustify
                                                              : tesela::tslAlignmentLeftJustify);
        }
        const String shown = literal(text);
        if (shown == label.Caption()) continue;
        label.Caption(shown);
        // What is clipped can be read in full under the mouse.
        const float width = label.Extender().Width() - 4 * host::Screen::TwipsPerPixelX();
        label.ToolTip(TextWidth(text) > width ? text : String());
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
    record = std::max<std::int64_t>(record, 1);
    std::vector<automation::Variant> values;
    if (!records_->read(record, values)) {
        record = source().count();
        if (record == 0 || !records_->read(record, values)) return;
    }
    record_ = record;
    values_ = std::move(values);
    showRecord();
}

void RecordForm::goToLast() {
    goTo(std::max<std::int64_t>(source().count(), 1));
}

void RecordForm::goToName(const String& start) {
    const auto column = nameColumn(source().columns());
    if (!column) return;
    if (!names_) names_.emplace(source(), *column);
    sought_ = start;
    const auto found = names_->seek(start);
    isSoughtThere_ = found && found->begins;
    note_->Caption(literal(noteText()));
    if (found) goTo(found->record);
}

void RecordForm::stopSeeking() {
    if (sought_.empty()) return;
    sought_ = {};
    note_->Caption(literal(noteText()));
}

void RecordForm::countOn() {
    guarded([this] {
        source().countOn();
        if (source().countIsFinal()) counting_.Enabled(false);
        showTitle();
    });
}

void RecordForm::nextTable(int step) {
    const std::vector<String> tables = file_->tables();
    const auto count = static_cast<int>(tables.size());
    const auto here = std::find(tables.begin(), tables.end(), source().name()) - tables.begin();
    if (count > 1)
        showTable(tables[static_cast<std::size_t>((static_cast<int>(here) + step + count) % count)]);
}

void RecordForm::nextPage(int step) {
    page_ = std::clamp(page_ + step, 0, layout_.pages - 1);
    showPage();
}

bool RecordForm::plainKey(short key) {
    switch (key) {
    case platform::VK_NEXT:
    case platform::VK_DOWN:
    case platform::VK_RIGHT:
        goTo(record_ + 1);
        return true;
    case platform::VK_PRIOR:
    case platform::VK_UP:
    case platform::VK_LEFT:
        goTo(record_ - 1);
        return true;
    case platform::VK_HOME:
        goTo(1);
        return true;
    case platform::VK_END:
        goToLast();
        return true;
    default:
        return false;
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
        return false;
    }
}

void RecordForm::onKeyDown(short& KeyCode, short& Shift) {
    guarded([&] {
        const bool used = Shift == 0                ? plainKey(KeyCode)
                          : Shift == host::CtrlMask ? controlKey(KeyCode)
                                                    : false;
        if (used) {
            stopSeeking();
            KeyCode = 0;
        }
    });
    if (!failure_) host::Form::onKeyDown(KeyCode, Shift);
}

void RecordForm::onKeyPress(short& KeyAscii) {
    guarded([&] {
        const auto code = static_cast<char>(KeyAscii);
        if (KeyAscii == platform::VK_ESCAPE) {
            stopSeeking();
        } else if (KeyAscii == platform::VK_BACK) {
            if (sought_.length() > 1)
                goToName(sought_.left(sought_.length() - 1));
            else
                stopSeeking();
        } else if (KeyAscii > u' ' || (KeyAscii == u' ' && !sought_.empty())) {
            goToName(sought_ + String::fromAnsi({&code, 1}));
        } else {
            return;
        }
        KeyAscii = 0;
    });
    if (!failure_) host::Form::onKeyPress(KeyAscii);
}

} // namespace fichas
