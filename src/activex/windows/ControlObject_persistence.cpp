// A control's properties in streams, storages and property bags.

#include "activex/windows/ControlObject.h"
#include "activex/windows/Failures.h"
#include "activex/windows/Values.h"

#include <array>

namespace activex {

using automation::String;
using automation::Variant;

namespace {

constexpr char16_t extentX[] = u"_ExtentX";
constexpr char16_t extentY[] = u"_ExtentY";
constexpr wchar_t storedStream[] = L"Contents";
/// What a stream begins with: a mark, and the length in bytes of the text that follows.
constexpr std::uint32_t streamMark = 0x4C535431;
constexpr std::uint32_t longestText = 64u << 20;
constexpr std::int32_t badFormat = 321;

/// A container's bag, asked for each value when the control wants it.
class ContainerBag final : public host::PropertyBag {
public:
    ContainerBag(::IPropertyBag& bag, ::IErrorLog* log) : bag_(bag), log_(log) {}

    Variant ReadProperty(const String& name, const Variant& defaultValue) const override {
        return read(name).value_or(defaultValue);
    }
    void ReadProperties(const host::PropertyNames& names,
                        std::span<std::optional<Variant>> values) const override {
        for (std::size_t place = 0; place < names.size(); ++place) {
            try {
                values[place] = read(names[place]);
            } catch (const automation::Error&) {
                // A value of a kind that the library does not know counts as none; the others are read.
            }
        }
    }

private:
    std::optional<Variant> read(const String& name) const {
        SystemValue value;
        if (bag_.Read(wide(name.c_str()), &value, log_) != S_OK) return {};
        return fromSystem(value);
    }

    ::IPropertyBag& bag_;
    ::IErrorLog* log_;
};

void readAll(::IStream& stream, void* target, std::size_t size) {
    ::ULONG read = 0;
    const ::HRESULT result = stream.Read(target, static_cast<::ULONG>(size), &read);
    if (FAILED(result) || read != size) automation::throwError(badFormat);
}

void writeAll(::IStream& stream, const void* source, std::size_t size) {
    ::ULONG written = 0;
    check(stream.Write(source, static_cast<::ULONG>(size), &written));
    if (written != size) check(STG_E_MEDIUMFULL);
}

std::string readText(::IStream& stream) {
    std::array<std::uint32_t, 2> head{};
    readAll(stream, head.data(), sizeof head);
    if (head[0] != streamMark || head[1] > longestText) automation::throwError(badFormat);
    std::string text;
    constexpr std::uint32_t piece = 64u << 10; // a false length must not take all memory
    while (text.size() < head[1]) {
        const std::size_t start = text.size();
        text.resize(start + std::min<std::size_t>(piece, head[1] - start));
        readAll(stream, text.data() + start, text.size() - start);
    }
    return text;
}

} // namespace

::HRESULT ControlObject::InitNew() {
    const auto alive = keepAlive();
    return guarded([&]() -> ::HRESULT {
        control_->initProperties();
        dirty_ = true;
        return S_OK;
    });
}

/// The size that the bag states; the present one where it states none or one that no control can have.
::SIZEL ControlObject::storedSize(const host::PropertyBag& bag) const {
    const ::SIZEL own = himetricSize();
    try {
        const auto side = [&](const char16_t* name, ::LONG present) {
            const Variant value = bag.ReadProperty(name, static_cast<std::int32_t>(present));
            return static_cast<::LONG>(automation::fromVariant<std::int32_t>(value));
        };
        const ::SIZEL size{side(extentX, own.cx), side(extentY, own.cy)};
        return isPossible(size) ? size : own;
    } catch (const automation::Error&) {
        return own;
    }
}

/// The size first, which a control whose height follows its width needs, and again when all is read: on the
/// way properties may have changed it.
void ControlObject::load(host::PropertyBag& bag) {
    ::SIZEL size = storedSize(bag);
    check(SetExtent(DVASPECT_CONTENT, &size));
    control_->readProperties(bag);
    check(SetExtent(DVASPECT_CONTENT, &size));
    dirty_ = false;
}

host::PropertyBag ControlObject::saved() {
    host::PropertyBag values;
    const ::SIZEL size = himetricSize();
    values.WriteProperty(extentX, static_cast<std::int32_t>(size.cx));
    values.WriteProperty(extentY, static_cast<std::int32_t>(size.cy));
    control_->writeProperties(values);
    return values;
}

::HRESULT ControlObject::Load(::IPropertyBag* bag, ::IErrorLog* log) {
    if (!bag) return E_POINTER;
    const auto alive = keepAlive();
    return guarded([&]() -> ::HRESULT {
        ContainerBag values(*bag, log);
        load(values);
        return S_OK;
    });
}

::HRESULT ControlObject::Save(::IPropertyBag* bag, BOOL clearDirty, BOOL) {
    if (!bag) return E_POINTER;
    const auto alive = keepAlive();
    return guarded([&]() -> ::HRESULT {
        const host::PropertyBag values = saved();
        for (const auto& [name, content] : values.items()) {
            SystemValue value;
            toSystem(content, value);
            if (value.vt == VT_DISPATCH) value.vt = VT_UNKNOWN; // as containers know stored objects
            check(bag->Write(wide(name.c_str()), &value));
        }
        if (clearDirty) dirty_ = false;
        return S_OK;
    });
}

::HRESULT ControlObject::Load(::IStream* stream) {
    if (!stream) return E_POINTER;
    const auto alive = keepAlive();
    return guarded([&]() -> ::HRESULT {
        host::PropertyBag values;
        values.Contents(String::fromUtf8(readText(*stream)));
        load(values);
        return S_OK;
    });
}

::HRESULT ControlObject::Save(::IStream* stream, BOOL clearDirty) {
    if (!stream) return E_POINTER;
    const auto alive = keepAlive();
    return guarded([&]() -> ::HRESULT {
        const std::string text = saved().Contents().utf8();
        const std::array<std::uint32_t, 2> head{streamMark, static_cast<std::uint32_t>(text.size())};
        writeAll(*stream, head.data(), sizeof head);
        writeAll(*stream, text.data(), text.size());
        if (clearDirty) dirty_ = false;
        return S_OK;
    });
}

::HRESULT ControlObject::Load(::IStorage* storage) {
    if (!storage) return E_POINTER;
    ComPointer<::IStream> stream;
    const ::HRESULT result =
        storage->OpenStream(storedStream, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.out());
    return FAILED(result) ? result : Load(stream.get());
}

::HRESULT ControlObject::Save(::IStorage* storage, BOOL) {
    if (!storage) return E_POINTER;
    ComPointer<::IStream> stream;
    const ::HRESULT result = storage->CreateStream(
        storedStream, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0, stream.out());
    return FAILED(result) ? result : Save(stream.get(), TRUE);
}

} // namespace activex
