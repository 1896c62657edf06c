#pragma once

#include "activex/windows/ControlLibrary.h"
#include "activex/windows/Counted.h"

#include <functional>
#include <map>
#include <set>
#include <string>

namespace support {

/// A property bag of a program.
class Bag final : public activex::Counted<::IPropertyBag> {
public:
    std::map<std::wstring, automation::Variant> values;
    std::set<std::wstring> times;                    ///< Names of values that are times of files
    std::set<std::wstring> asked;                    ///< Names of the values that were wanted
    std::function<void(const std::wstring&)> onRead; ///< Before a value is given

    ::HRESULT STDMETHODCALLTYPE Read(::LPCOLESTR name, ::VARIANT* value, ::IErrorLog*) override {
        asked.insert(name);
        if (onRead) onRead(name);
        if (times.contains(name)) {
            value->vt = VT_FILETIME; // which variants in general cannot have
            return S_OK;
        }
        const auto found = values.find(name);
        if (found == values.end()) return E_INVALIDARG;
        activex::toSystem(found->second, *value);
        return S_OK;
    }
    ::HRESULT STDMETHODCALLTYPE Write(::LPCOLESTR name, ::VARIANT* value) override {
        values[name] = activex::fromSystem(*value);
        return S_OK;
    }
};

inline ComPointer<Bag> makeBag() {
    return ComPointer<Bag>::adopt(new Bag);
}

/// What a control stores of itself.
inline std::map<std::wstring, automation::Variant> stored(::IUnknown& control) {
    const auto bag = makeBag();
    const auto storing = ComPointer<::IPersistPropertyBag>::of(&control);
    return storing && storing->Save(bag.get(), FALSE, TRUE) == S_OK
               ? bag->values
               : std::map<std::wstring, automation::Variant>();
}

/// The same as texts that can be compared; objects by the name of their class.
inline std::map<std::wstring, std::string> storedTexts(::IUnknown& control) {
    std::map<std::wstring, std::string> texts;
    for (const auto& [name, value] : stored(control))
        texts[name] = value.isObject() ? "object" : automation::CStr(value).utf8();
    return texts;
}

} // namespace support
