#pragma once

#include "activex/windows/ComPointer.h"
#include "activex/windows/ConnectionPoint.h"
#include "activex/windows/ModuleUse.h"

#include <utility>
#include <vector>

namespace activex {

/// By this interface the library knows its own objects when they come back.
class OwnObject : public ::IUnknown {
public:
    virtual automation::Ref<automation::Object> object() = 0;
    static const ::IID& id();
};

/// The face of an object towards programs: its members are called by name through its member table. There is
/// one face an object at a time; it keeps the object alive. It may be a part of another object (aggregation),
/// whose interfaces are then given out in its place.
class ComObject : public ::IDispatch,
                  public ::IProvideClassInfo2,
                  public ::IConnectionPointContainer,
                  public ::ISupportErrorInfo,
                  public OwnObject {
public:
    /// The face of that object, counted for the caller.
    static ::IDispatch* of(automation::Object& object);
    /// A new face, of a control where the object is one; `outer` is null outside of aggregation. Gives its
    /// own IUnknown, counted for the caller.
    static ::IUnknown* create(automation::Ref<automation::Object> object, ::IUnknown* outer);

    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    virtual ~ComObject();

    // IUnknown: that of the outer object
    ::HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
    ::ULONG STDMETHODCALLTYPE AddRef() override;
    ::ULONG STDMETHODCALLTYPE Release() override;
    // IDispatch
    ::HRESULT STDMETHODCALLTYPE GetTypeInfoCount(::UINT* count) override;
    ::HRESULT STDMETHODCALLTYPE GetTypeInfo(::UINT which, ::LCID locale, ::ITypeInfo** result) override;
    ::HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, ::LPOLESTR* names, ::UINT count, ::LCID locale,
                                              ::DISPID* ids) override;
    ::HRESULT STDMETHODCALLTYPE Invoke(::DISPID member, REFIID id, ::LCID locale, WORD flags,
                                       ::DISPPARAMS* parameters, ::VARIANT* result, ::EXCEPINFO* exception,
                                       ::UINT* wrongArgument) override;
    // IProvideClassInfo2
    ::HRESULT STDMETHODCALLTYPE GetClassInfo(::ITypeInfo** result) override;
    ::HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, ::GUID* result) override;
    // IConnectionPointContainer
    ::HRESULT STDMETHODCALLTYPE EnumConnectionPoints(::IEnumConnectionPoints** result) override;
    ::HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, ::IConnectionPoint** result) override;
    // ISupportErrorInfo
    ::HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;
    // OwnObject
    automation::Ref<automation::Object> object() override { return object_; }

protected:
    ComObject(automation::Ref<automation::Object> object, ::IUnknown* outer);

    automation::Object& target() const { return *object_; }
    /// Null for an object of a class that programs cannot create.
    const ExportedClass* exported() const { return exported_; }
    ::IUnknown& outer() const { return *outer_; }
    /// The interface of that identifier, not counted; null where there is none.
    virtual void* find(REFIID id);
    virtual std::vector<ConnectionPoint*> connectionPoints();
    /// The container wants no events now.
    virtual bool eventsFrozen() const { return false; }
    /// The last count is gone, the object still there.
    virtual void finish() {}

private:
    /// The object's own counting, which an outer object sees.
    class Inner final : public ::IUnknown {
    public:
        explicit Inner(ComObject& owner) : owner_(owner) {}
        ::HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
        ::ULONG STDMETHODCALLTYPE AddRef() override;
        ::ULONG STDMETHODCALLTYPE Release() override;

    private:
        ComObject& owner_;
        ::ULONG count_ = 1;
    };

    std::u16string source() const;
    void joinEvents();
    void raise(const automation::Member& event, std::span<automation::Variant> arguments);

    ModuleUse use_;
    automation::Ref<automation::Object> object_;
    const ExportedClass* exported_;
    Inner inner_;
    ::IUnknown* outer_; ///< Not counted: it lives longer
    ConnectionPoint events_;
    std::vector<std::pair<automation::EventBase*, automation::EventCookie>> joined_;
};

} // namespace activex
