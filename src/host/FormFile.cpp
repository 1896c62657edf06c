#include "host/FormFile.h"

#include "automation/Argument.h"
#include "automation/Error.h"
#include "host/Form.h"
#include "host/FormReader.h"
#include "host/FormWriter.h"
#include "host/Label.h"
#include "host/Picture.h"
#include "host/PictureBox.h"
#include "platform/files.h"
#include "platform/locale.h"
#include "platform/windows.h"

#include <algorithm>
#include <limits>

namespace host {

namespace {

constexpr std::int32_t PathAccessError = 75;
constexpr float UnknownLength = -1;

// --- The form's own properties ---------------------------------------------------------------------

float clientTwips(const Form& form, Axis axis) {
    const platform::SIZE size = form.clientSize();
    return static_cast<float>((axis == Axis::Horizontal ? size.cx : size.cy) * twipsPerPixel(axis));
}

FormNode formNode(Form& form) {
    FormNode node;
    node.className = u"Form";
    node.name = form.Name();
    PropertyBag& kept = node.kept;
    kept.WriteProperty(u"Left", form.Left());
    kept.WriteProperty(u"Top", form.Top());
    kept.WriteProperty(u"ClientWidth", clientTwips(form, Axis::Horizontal));
    kept.WriteProperty(u"ClientHeight", clientTwips(form, Axis::Vertical));
    PropertyBag& bag = node.properties;
    bag.WriteProperty(u"Caption", form.Caption(), u"");
    bag.WriteProperty(u"BackColor", form.BackColor(), colorButtonFace);
    bag.WriteProperty(u"ForeColor", form.ForeColor(), colorButtonText);
    bag.WriteProperty(u"BorderStyle", form.BorderStyle(), FormBorderStyle::Sizable);
    bag.WriteProperty(u"ControlBox", form.ControlBox(), true);
    bag.WriteProperty(u"MinButton", form.MinButton(), true);
    bag.WriteProperty(u"MaxButton", form.MaxButton(), true);
    bag.WriteProperty(u"StartUpPosition", form.StartUpPosition(), StartUpPosition::WindowsDefault);
    bag.WriteProperty(u"KeyPreview", form.KeyPreview(), false);
    bag.WriteProperty(u"Enabled", form.Enabled(), true);
    bag.WriteProperty(u"Tag", form.Tag(), u"");
    bag.WriteProperty(u"ScaleMode", form.ScaleMode(), ScaleMode::Twips);
    if (form.ScaleMode() == ScaleMode::User) {
        bag.WriteProperty(u"ScaleLeft", form.ScaleLeft());
        bag.WriteProperty(u"ScaleTop", form.ScaleTop());
        bag.WriteProperty(u"ScaleWidth", form.ScaleWidth());
        bag.WriteProperty(u"ScaleHeight", form.ScaleHeight());
    }
    bag.WriteProperty(u"AutoRedraw", form.AutoRedraw(), false);
    bag.WriteProperty(u"MousePointer", form.MousePointer(), MousePointer::Default);
    bag.WriteProperty(u"MinWidth", form.MinWidth(), 0.0F);
    bag.WriteProperty(u"MinHeight", form.MinHeight(), 0.0F);
    bag.WriteProperty(u"MaxWidth", form.MaxWidth(), 0.0F);
    bag.WriteProperty(u"MaxHeight", form.MaxHeight(), 0.0F);
    bag.WriteProperty(u"Font", form.Font(), automation::make<StdFont>());
    bag.WriteProperty(u"Icon", form.Icon(), automation::Variant::nothing());
    bag.WriteProperty(u"Picture", form.Picture(), automation::Variant::nothing());
    return node;
}

void applyForm(Form& form, const FormNode& node) {
    const PropertyBag& bag = node.properties;
    const auto read = [&bag]<class T>(const char16_t* name, T fallback) {
        return automation::fromVariant<T>(bag.ReadProperty(name, automation::toVariant(fallback)));
    };
    const auto length = [&node](const char16_t* name, float fallback) {
        return automation::fromVariant<float>(node.kept.ReadProperty(name, fallback));
    };
    form.Name(node.name);
    form.Caption(read(u"Caption", automation::String()));
    form.BorderStyle(read(u"BorderStyle", FormBorderStyle::Sizable));
    form.ControlBox(read(u"ControlBox", true));
    form.MinButton(read(u"MinButton", true));
    form.MaxButton(read(u"MaxButton", true));
    form.StartUpPosition(read(u"StartUpPosition", StartUpPosition::WindowsDefault));
    form.KeyPreview(read(u"KeyPreview", false));
    form.Enabled(read(u"Enabled", true));
    form.Tag(read(u"Tag", automation::String()));
    form.Font(*read(u"Font", automation::make<StdFont>()));
    form.BackColor(read(u"BackColor", colorButtonFace));
    form.ForeColor(read(u"ForeColor", colorButtonText));
    form.MousePointer(read(u"MousePointer", MousePointer::Default));
    form.MinWidth(read(u"MinWidth", 0.0F));
    form.MinHeight(read(u"MinHeight", 0.0F));
    form.MaxWidth(read(u"MaxWidth", 0.0F));
    form.MaxHeight(read(u"MaxHeight", 0.0F));
    form.Icon(read(u"Icon", automation::Ref<Picture>()));
    form.Picture(read(u"Picture", automation::Ref<Picture>()));
    form.AutoRedraw(read(u"AutoRedraw", false));
    const float width = length(u"ClientWidth", UnknownLength);
    const float height = length(u"ClientHeight", UnknownLength);
    if (width >= 0 && height >= 0) form.SetClientSize(width, height);
    if (node.kept.contains(u"Left") && form.StartUpPosition() == StartUpPosition::Manual)
        form.Move(length(u"Left", 0), length(u"Top", 0), form.Width(), form.Height());
    const ScaleMode mode = read(u"ScaleMode", ScaleMode::Twips);
    form.ScaleMode(mode);
    if (mode != ScaleMode::User) return;
    form.ScaleWidth(read(u"ScaleWidth", form.ScaleWidth()));
    form.ScaleHeight(read(u"ScaleHeight", form.ScaleHeight()));
    form.ScaleLeft(read(u"ScaleLeft", 0.0F));
    form.ScaleTop(read(u"ScaleTop", 0.0F));
}

// --- Controls --------------------------------------------------------------------------------------

FormNode controlNode(Control& control) {
    const Extender& extender = control.Extender();
    FormNode node;
    node.className = control.typeName();
    node.name = extender.Name();
    if (extender.Index() != NotInArray) node.index = extender.Index();
    PropertyBag& kept = node.kept;
    const Bounds& place = control.bounds();
    kept.WriteProperty(u"Left", place.left);
    kept.WriteProperty(u"Top", place.top);
    kept.WriteProperty(u"Width", place.width);
    kept.WriteProperty(u"Height", place.height);
    kept.WriteProperty(u"TabIndex", extender.TabIndex());
    kept.WriteProperty(u"TabStop", extender.TabStop(), true);
    kept.WriteProperty(u"Visible", extender.Visible(), true);
    kept.WriteProperty(u"ToolTipText", extender.ToolTipText(), u"");
    kept.WriteProperty(u"CausesValidation", extender.CausesValidation(), true);
    kept.WriteProperty(u"Default", extender.Default(), false);
    kept.WriteProperty(u"Cancel", extender.Cancel(), false);
    kept.WriteProperty(u"Tag", extender.Tag(), u"");
    control.writeProperties(node.properties);
    return node;
}

/// Gives those of the controls that `rearmostFirst` has too its order, at the places that they take together.
void restack(std::vector<Control*>& controls, const std::vector<Control*>& rearmostFirst) {
    auto next = rearmostFirst.begin();
    for (Control*& control : controls)
        if (std::find(rearmostFirst.begin(), rearmostFirst.end(), control) != rearmostFirst.end())
            control = *next++;
}

/// The controls that stand in `container`. Each one is made in front of those before it when the text is
/// read, so that they come as they are stacked: windows among windows, and behind all of them labels among
/// labels.
std::vector<Control*> controlsIn(Form& form, const DrawingWindow& container) {
    std::vector<Control*> controls;
    for (Control* control : form.controls())
        if (control->containerWindow() == &container) controls.push_back(control);
    std::vector<Control*> windows, labels;
    for (platform::HWND window = platform::GetWindow(container.hWnd(), platform::GW_CHILD); window;
         window = platform::GetWindow(window, platform::GW_HWNDNEXT))
        for (Control* control : controls)
            if (control->window() == window) windows.push_back(control);
    std::reverse(windows.begin(), windows.end());
    for (Label* label : container.labels())
        if (std::find(controls.begin(), controls.end(), label) != controls.end()) labels.push_back(label);
    restack(controls, windows);
    restack(controls, labels);
    return controls;
}

/// The controls that stand in `container`, with those inside them.
std::vector<FormNode> nodesIn(Form& form, const DrawingWindow& container) {
    std::vector<FormNode> nodes;
    for (Control* control : controlsIn(form, container)) {
        FormNode node = controlNode(*control);
        if (const auto* inner = dynamic_cast<const DrawingWindow*>(control))
            node.children = nodesIn(form, *inner);
        nodes.push_back(std::move(node));
    }
    return nodes;
}

// --- Timers ----------------------------------------------------------------------------------------

constexpr const char16_t* TimerClass = u"Timer";

bool isTimer(const FormNode& node) {
    return platform::upperCase(node.className) == platform::upperCase(TimerClass);
}

FormNode timerNode(const Form::NamedTimer& named) {
    FormNode node;
    node.className = TimerClass;
    node.name = named.name;
    if (named.index != NotInArray) node.index = named.index;
    node.properties.WriteProperty(u"Interval", named.timer->Interval(), std::int32_t{0});
    node.properties.WriteProperty(u"Enabled", named.timer->Enabled(), true);
    return node;
}

void applyTimer(Timer& timer, const FormNode& node) {
    timer.Enabled(automation::fromVariant<bool>(node.properties.ReadProperty(u"Enabled", true)));
    timer.Interval(
        automation::fromVariant<std::int32_t>(node.properties.ReadProperty(u"Interval", std::int32_t{0})));
}

/// Tries it on a timer that nobody hears.
void checkTimer(const FormNode& node, const FormReader& reader) {
    if (!node.children.empty()) reader.fail(node.children.front().line, u"un Timer no contiene controles");
    const auto trial = automation::make<Timer>();
    trial->hold(true);
    try {
        applyTimer(*trial, node);
    } catch (const automation::Error& error) {
        reader.fail(node.line, u"el Timer no es válido: " + error.description());
    }
}

// --- Controls in a form's text ---------------------------------------------------------------------

struct Placed {
    Control* control;
    short tabIndex;
};

void checkClasses(const FormNode& node, const ControlRegistry& classes, const FormReader& reader) {
    for (const FormNode& child : node.children) {
        if (isTimer(child)) {
            checkTimer(child, reader);
            continue;
        }
        if (!classes.knows(child.className))
            reader.fail(child.line, u"clase desconocida: " + child.className);
        checkClasses(child, classes, reader);
    }
}

void addControl(Form& form, const FormNode& node, DrawingWindow* container, const ControlRegistry& classes,
                std::vector<Placed>& placed) {
    if (isTimer(node)) {
        applyTimer(form.addTimer(node.name, node.index.value_or(NotInArray)), node);
        return;
    }
    const automation::Ref<Control> control = classes.make(node.className);
    const auto kept = [&node]<class T>(const char16_t* name, T fallback) {
        return automation::fromVariant<T>(node.kept.ReadProperty(name, automation::toVariant(fallback)));
    };
    const Bounds place{kept(u"Left", 0.0F), kept(u"Top", 0.0F), kept(u"Width", 0.0F), kept(u"Height", 0.0F)};
    PropertyBag properties = node.properties;
    form.add(control, node.name, node.index.value_or(NotInArray), container, &properties, place);
    Extender& extender = control->Extender();
    extender.TabStop(kept(u"TabStop", true));
    extender.Visible(kept(u"Visible", true));
    extender.ToolTipText(kept(u"ToolTipText", automation::String()));
    extender.CausesValidation(kept(u"CausesValidation", true));
    extender.Default(kept(u"Default", false));
    extender.Cancel(kept(u"Cancel", false));
    extender.Tag(kept(u"Tag", automation::String()));
    placed.push_back({control.get(), kept(u"TabIndex", std::numeric_limits<short>::max())});
    for (const FormNode& child : node.children)
        addControl(form, child, dynamic_cast<DrawingWindow*>(control.get()), classes, placed);
}

// --- Files -----------------------------------------------------------------------------------------

std::string readBytes(const automation::String& name) {
    const platform::HANDLE file =
        platform::CreateFileW(name.c_str(), platform::GENERIC_READ, platform::FILE_SHARE_READ, nullptr,
                              platform::OPEN_EXISTING, platform::FILE_ATTRIBUTE_NORMAL, {});
    if (file == platform::INVALID_HANDLE_VALUE) throw automation::Error(automation::errors::FileNotFound);
    constexpr platform::DWORD Chunk = 65536;
    std::string bytes;
    platform::DWORD moved = Chunk;
    while (moved > 0) {
        const std::size_t start = bytes.size();
        bytes.resize(start + Chunk);
        if (!platform::ReadFile(file, bytes.data() + start, Chunk, &moved, nullptr)) moved = 0;
        bytes.resize(start + moved);
    }
    platform::CloseHandle(file);
    return bytes;
}

} // namespace

automation::String FormFile::text(Form& form) {
    FormNode node = formNode(form);
    node.children = nodesIn(form, form);
    for (const Form::NamedTimer& each : form.timers())
        node.children.push_back(timerNode(each));
    FormWriter writer;
    writer.write(node);
    return writer.text();
}

void FormFile::read(Form& form, const automation::String& text, const ControlRegistry& classes,
                    const automation::String& fileName) {
    FormReader reader(text, fileName);
    const FormNode node = reader.readForm();
    checkClasses(node, classes, reader);
    applyForm(form, node);
    std::vector<Placed> placed;
    for (const FormNode& child : node.children)
        addControl(form, child, nullptr, classes, placed);
    std::stable_sort(placed.begin(), placed.end(),
                     [](const Placed& a, const Placed& b) { return a.tabIndex < b.tabIndex; });
    for (const Placed& each : placed)
        each.control->Extender().TabIndex(std::numeric_limits<short>::max());
    form.Dirty(false);
}

void FormFile::save(Form& form, const automation::String& file) {
    const std::string bytes = text(form).utf8();
    const platform::HANDLE handle =
        platform::CreateFileW(file.c_str(), platform::GENERIC_WRITE, 0, nullptr, platform::CREATE_ALWAYS,
                              platform::FILE_ATTRIBUTE_NORMAL, {});
    if (handle == platform::INVALID_HANDLE_VALUE) throw automation::Error(PathAccessError);
    platform::DWORD moved = 0;
    const bool written = platform::WriteFile(handle, bytes.data(), static_cast<platform::DWORD>(bytes.size()),
                                             &moved, nullptr) &&
                         moved == bytes.size();
    platform::CloseHandle(handle);
    if (!written) throw automation::Error(PathAccessError);
    form.Dirty(false);
}

void FormFile::load(Form& form, const automation::String& file, const ControlRegistry& classes) {
    read(form, automation::String::fromUtf8(readBytes(file)), classes, file);
}

} // namespace host
