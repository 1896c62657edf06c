#include "activex/windows/Fonts.h"

#include "activex/windows/Counted.h"
#include "activex/windows/Values.h"
#include "host/Raised.h"

#include <unordered_map>

namespace activex {

using automation::Ref;

namespace {

void readFrom(::IFont& from, host::StdFont& to) {
    ::BSTR name = nullptr;
    ::CY size{};
    ::BOOL bold = FALSE;
    ::BOOL italic = FALSE;
    ::BOOL underline = FALSE;
    ::BOOL strikethrough = FALSE;
    SHORT weight = host::FontWeightNormal;
    SHORT charset = 0;
    from.get_Name(&name);
    from.get_Size(&size);
    from.get_Bold(&bold);
    from.get_Charset(&charset);
    from.get_Italic(&italic);
    from.get_Strikethrough(&strikethrough);
    from.get_Underline(&underline);
    from.get_Weight(&weight);
    to.Bold(bold != FALSE);
    to.Charset(charset);
    to.Italic(italic != FALSE);
    to.Name(fromBstr(name));
    to.Size(automation::Currency::fromScaled(size.int64));
    to.Strikethrough(strikethrough != FALSE);
    to.Underline(underline != FALSE);
    to.Weight(weight);
    ::SysFreeString(name);
}

void writeTo(const host::StdFont& from, ::IFont& to) {
    ::BSTR name = toBstr(from.Name());
    ::CY size{};
    size.int64 = from.Size().scaled();
    to.put_Charset(from.Charset());
    to.put_Italic(from.Italic());
    to.put_Name(name);
    to.put_Size(size);
    to.put_Strikethrough(from.Strikethrough());
    to.put_Underline(from.Underline());
    to.put_Weight(from.Weight());
    ::SysFreeString(name);
}

class FontLink;

/// The links by the library's fonts and by the system's ones.
std::unordered_map<host::StdFont*, FontLink*>& links() {
    static auto& all = *new std::unordered_map<host::StdFont*, FontLink*>;
    return all;
}

/// Keeps a font and its face alike. The face holds it as one that listens to its changes, so it lives as long
/// as the face does.
class FontLink final : public Counted<::IPropertyNotifySink> {
public:
    FontLink(host::StdFont& font, ::IFont& face) : font_(&font), face_(face) {
        links()[&font] = this;
        changes_ = font.FontChanged.subscribe([this](const automation::String&) { fontChanged(); });
    }
    ~FontLink() override { links().erase(font_.get()); }

    ::IFont& face() const { return face_; }
    const Ref<host::StdFont>& font() const { return font_; }

    ::HRESULT STDMETHODCALLTYPE OnChanged(::DISPID) override {
        if (busy_) return S_OK;
        const host::Raised busy(busy_);
        readFrom(face_, *font_);
        return S_OK;
    }
    ::HRESULT STDMETHODCALLTYPE OnRequestEdit(::DISPID) override { return S_OK; }

private:
    void fontChanged() {
        if (busy_) return;
        const host::Raised busy(busy_);
        writeTo(*font_, face_);
    }

    Ref<host::StdFont> font_;
    ::IFont& face_; // it holds this link
    automation::Subscription changes_;
    bool busy_ = false;
};

} // namespace

::IDispatch* fontFace(host::StdFont& font) {
    const auto found = links().find(&font);
    if (found != links().end()) return ComPointer<::IDispatch>::of(&found->second->face()).detach();
    ComPointer<::IFont> face;
    wchar_t name[] = L"MS Sans Serif";
    ::FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name;
    description.cySize.int64 = font.Size().scaled();
    check(::OleCreateFontIndirect(&description, __uuidof(::IFont), face.address()));
    writeTo(font, *face.get());
    if (const auto points = ComPointer<::IConnectionPointContainer>::of(face.get())) {
        ComPointer<::IConnectionPoint> point;
        const auto link = ComPointer<FontLink>::adopt(new FontLink(font, *face.get()));
        ::DWORD cookie = 0;
        if (SUCCEEDED(points->FindConnectionPoint(__uuidof(::IPropertyNotifySink), point.out())))
            point->Advise(link.get(), &cookie);
    }
    return ComPointer<::IDispatch>::of(face.get()).detach();
}

Ref<host::StdFont> fontOf(::IFont& font) {
    const auto identity = ComPointer<::IUnknown>::of(&font);
    for (const auto& [own, link] : links())
        if (ComPointer<::IUnknown>::of(&link->face()).get() == identity.get()) return link->font();
    auto copy = automation::make<host::StdFont>();
    readFrom(font, *copy);
    return copy;
}

} // namespace activex
