#include "shot/CanvasSheet.h"

#include "frame/Globales.h"
#include "shot/form_picture.h"

namespace shot {

namespace {

constexpr std::int32_t margin = 8;
constexpr std::int32_t labelHeight = 18;
constexpr float twipsPerPixel = 15;

} // namespace

CanvasSheet::CanvasSheet(std::int32_t rows) {
    tesela::EnsureInicio();
    canvas_->Configure({}, 0, 0, columns * cellWidth + margin, rows * cellHeight + margin,
                       tesela::DCProvider_Auto, false);
    canvas_->ComprobarPaletaSemitonos();
    canvas_->Clear();
}

tesela::cCanvas& CanvasSheet::begin(const char16_t* label) {
    const std::int32_t x = margin + count_ % columns * cellWidth;
    const std::int32_t y = margin + count_ / columns * cellHeight;
    ++count_;
    canvas_->SelectFont(u"Tahoma", -11);
    canvas_->SetTextColor(0);
    canvas_->TextOut(x, y, label);
    canvas_->SetWndOrg(-x, -(y + labelHeight));
    canvas_->SelectSimplePen(0);
    canvas_->SelectSolidBrush(0xFFFFFF);
    return *canvas_;
}

void CanvasSheet::end() {
    canvas_->SetWndOrg(0, 0);
    canvas_->Minimize_GDI_UsedResources();
}

bool CanvasSheet::save(const automation::String& caption, const std::string& file) {
    const auto form = sheetForm(caption, static_cast<float>(canvas_->Width()) * twipsPerPixel,
                                static_cast<float>(canvas_->Height()) * twipsPerPixel);
    form->Paint.join([&] { canvas_->Paint(form->hDC()); });
    return savePicture(*form, file);
}

} // namespace shot
