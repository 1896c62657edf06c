#include "host/PictureBox.h"

#include "automation/Argument.h"
#include "automation/ClassTable.h"
#include "host/Picture.h"
#include "host/PropertyBag.h"

namespace host {

PictureBox::PictureBox() = default;

void PictureBox::applyFrame() {
    platform::DWORD style = 0;
    platform::DWORD exStyle = 0;
    if (borderStyle_ == host::BorderStyle::FixedSingle) {
        if (appearance_ == host::Appearance::ThreeD)
            exStyle = platform::WS_EX_CLIENTEDGE;
        else
            style = platform::WS_BORDER;
    }
    frame(exStyle, style);
}

void PictureBox::BorderStyle(host::BorderStyle value) {
    borderStyle_ = value;
    applyFrame();
    PropertyChanged(u"BorderStyle");
}

void PictureBox::Appearance(host::Appearance value) {
    appearance_ = value;
    applyFrame();
    PropertyChanged(u"Appearance");
}

void PictureBox::AutoSize(bool value) {
    autoSize_ = value;
    fitPicture();
    PropertyChanged(u"AutoSize");
}

void PictureBox::Picture(const automation::Ref<host::Picture>& value) {
    UserControl::Picture(value);
    fitPicture();
    PropertyChanged(u"Picture");
}

void PictureBox::fitPicture() {
    if (!autoSize_ || !Picture() || !hWnd()) return;
    platform::RECT window;
    platform::GetWindowRect(hWnd(), &window);
    const platform::SIZE client = clientSize();
    const platform::SIZE wanted = Picture()->pixels();
    const int width = wanted.cx + (window.right - window.left) - client.cx;
    const int height = wanted.cy + (window.bottom - window.top) - client.cy;
    Size(static_cast<float>(width * twipsPerPixel(Axis::Horizontal)),
         static_cast<float>(height * twipsPerPixel(Axis::Vertical)));
}

void PictureBox::onInitProperties() {
    BackColor(Ambient().BackColor());
    ForeColor(Ambient().ForeColor());
    Font(*Ambient().Font());
    applyFrame();
}

void PictureBox::onReadProperties(PropertyBag& bag) {
    const auto read = [&bag]<class T>(const char16_t* name, T fallback) {
        return automation::fromVariant<T>(bag.ReadProperty(name, automation::toVariant(fallback)));
    };
    BackColor(read(u"BackColor", colorButtonFace));
    ForeColor(read(u"ForeColor", colorButtonText));
    Font(*read(u"Font", Ambient().Font()));
    borderStyle_ = read(u"BorderStyle", host::BorderStyle::FixedSingle);
    appearance_ = read(u"Appearance", host::Appearance::ThreeD);
    applyFrame();
    Enabled(read(u"Enabled", true));
    ScaleMode(read(u"ScaleMode", host::ScaleMode::Twips));
    AutoRedraw(read(u"AutoRedraw", false));
    MousePointer(read(u"MousePointer", host::MousePointer::Default));
    autoSize_ = read(u"AutoSize", false);
    Picture(read(u"Picture", automation::Ref<host::Picture>()));
}

void PictureBox::onWriteProperties(PropertyBag& bag) {
    bag.WriteProperty(u"BackColor", BackColor(), colorButtonFace);
    bag.WriteProperty(u"ForeColor", ForeColor(), colorButtonText);
    bag.WriteProperty(u"Font", Font(), Ambient().Font());
    bag.WriteProperty(u"BorderStyle", borderStyle_, host::BorderStyle::FixedSingle);
    bag.WriteProperty(u"Appearance", appearance_, host::Appearance::ThreeD);
    bag.WriteProperty(u"Enabled", Enabled(), true);
    bag.WriteProperty(u"ScaleMode", ScaleMode(), host::ScaleMode::Twips);
    bag.WriteProperty(u"AutoRedraw", AutoRedraw(), false);
    bag.WriteProperty(u"MousePointer", MousePointer(), host::MousePointer::Default);
    bag.WriteProperty(u"AutoSize", autoSize_, false);
    bag.WriteProperty(u"Picture", Picture(), automation::Variant::nothing());
}

void PictureBox::lookChanged(const char16_t* property) {
    // The box is the container whose values its own controls see.
    for (platform::HWND child = hWnd() ? platform::GetWindow(hWnd(), platform::GW_CHILD) : platform::HWND();
         child; child = platform::GetWindow(child, platform::GW_HWNDNEXT)) {
        if (auto* control = dynamic_cast<UserControl*>(fromWindow(child))) control->ambientChanged(property);
    }
    for (Label* label : labels())
        label->ambientChanged(property);
}

const automation::ClassTable& PictureBox::table() {
    static const automation::ClassTable table =
        automation::ClassTable::of<PictureBox>("PictureBox")
            .get("hWnd", &PictureBox::handle)
            .get("hDC", &PictureBox::context)
            .get("HasDC", &PictureBox::HasDC)
            .property("AutoRedraw", &PictureBox::AutoRedraw, &PictureBox::AutoRedraw)
            .property("ScaleMode", &PictureBox::ScaleMode, &PictureBox::ScaleMode)
            .property("ScaleWidth", &PictureBox::ScaleWidth, &PictureBox::ScaleWidth)
            .property("ScaleHeight", &PictureBox::ScaleHeight, &PictureBox::ScaleHeight)
            .property("BackColor", &PictureBox::BackColor, &PictureBox::BackColor)
            .property("ForeColor", &PictureBox::ForeColor, &PictureBox::ForeColor)
            .property("BorderStyle", &PictureBox::BorderStyle, &PictureBox::BorderStyle)
            .property("Appearance", &PictureBox::Appearance, &PictureBox::Appearance)
            .property("AutoSize", &PictureBox::AutoSize, &PictureBox::AutoSize)
            .property("Enabled", &PictureBox::Enabled, &PictureBox::Enabled)
            .property("MousePointer", &PictureBox::MousePointer, &PictureBox::MousePointer)
            .property("Picture", &PictureBox::picture, &PictureBox::setPicture)
            .get("Font", &PictureBox::fontObject)
            .method("Cls", &PictureBox::Cls)
            .method("Refresh", &PictureBox::Refresh)
            .event("Paint", &PictureBox::Paint)
            .event("Resize", &PictureBox::Resize)
            .event("Click", &PictureBox::Click)
            .event("DblClick", &PictureBox::DblClick)
            .event("KeyDown", &PictureBox::KeyDown, {"KeyCode", "Shift"})
            .event("KeyPress", &PictureBox::KeyPress, {"KeyAscii"})
            .event("KeyUp", &PictureBox::KeyUp, {"KeyCode", "Shift"})
            .event("MouseDown", &PictureBox::MouseDown, {"Button", "Shift", "X", "Y"})
            .event("MouseMove", &PictureBox::MouseMove, {"Button", "Shift", "X", "Y"})
            .event("MouseUp", &PictureBox::MouseUp, {"Button", "Shift", "X", "Y"});
    return table;
}

} // namespace host
