#include "conformance/StageBox.h"

#include "host/PropertyBag.h"

namespace conformance {

StageBox::StageBox(std::string name, int width, int height)
    : name_(std::move(name)), form_(automation::make<host::Form>(u"Form1")) {
    constexpr float twipsPerPixel = 15;
    form_->SetClientSize(200 * twipsPerPixel, 200 * twipsPerPixel);
    form_->Show();
    box_ = &form_->add<host::PictureBox>(u"Box1");
    box_->BorderStyle(host::BorderStyle::None);
    box_->BackColor(0xFFFFFF);
    box_->Extender().Move(0, 0, static_cast<float>(width) * twipsPerPixel,
                          static_cast<float>(height) * twipsPerPixel);
}

StageBox::~StageBox() {
    if (form_) form_->unload();
}

Picture StageBox::picture() const {
    box_->ScaleMode(host::ScaleMode::Pixels);
    const platform::HDC dc = box_->hDC();
    Picture result{name_, static_cast<int>(box_->ScaleWidth()), static_cast<int>(box_->ScaleHeight()), {}};
    for (int y = 0; y < result.height; ++y)
        for (int x = 0; x < result.width; ++x) {
            const platform::COLORREF color = platform::GetPixel(dc, x, y);
            result.pixels.push_back((color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF));
        }
    return result;
}

} // namespace conformance
