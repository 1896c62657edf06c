#pragma once
// Records (structures) of the interface: their tables, and their way through Variants.

#include "automation/Argument.h"
#include "automation/Ref.h"
#include "automation/String.h"
#include "automation/TypeDescription.h"
#include "automation/Variant.h"

#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace automation {

/// A record inside a Variant. Copies of the Variant share it; `field` and `putField` reach its fields by
/// name.
class Record {
public:
    Record() noexcept = default;
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    virtual ~Record() = default;

    void AddRef() const noexcept { ++count_; }
    void Release() const noexcept {
        if (--count_ == 0) delete this;
    }

    virtual const RecordTable& table() const = 0;
    /// The C++ structure.
    virtual void* structure() noexcept = 0;
    const void* structure() const noexcept { return const_cast<Record*>(this)->structure(); }
    virtual Ref<Record> clone() const = 0;

    /// Error 438 for a name that the record does not have.
    Variant field(std::u16string_view name) const;
    void putField(std::u16string_view name, const Variant& value);

private:
    mutable std::int32_t count_ = 1;
};

/// The table of a structure's fields, in order. A structure is tied to its table by a function beside it:
///
///     struct SmallDateTime { ... };
///     const automation::RecordTable& recordOf(const SmallDateTime*);
///
/// whose body holds
/// `static const RecordTable table = RecordTable::of<SmallDateTime>("SmallDateTime").field("dFecha",
/// &SmallDateTime::dFecha)...; return table;`.
class RecordTable {
public:
    struct Field {
        String name;
        TypeDescription type;
        std::function<Variant(const void*)> get;
        std::function<void(void*, const Variant&)> put;
    };
    template <class S>
    class Builder;
    template <class S>
    static Builder<S> of(const char* name);

    const String& name() const noexcept { return name_; }
    const std::vector<Field>& fields() const noexcept { return fields_; }
    /// The field of that name, whatever its case, or null.
    const Field* find(std::u16string_view name) const;
    /// A new record with its start values.
    Ref<Record> create() const { return create_(); }

private:
    String name_;
    std::vector<Field> fields_;
    Ref<Record> (*create_)() = nullptr;
};

/// A structure in a counted block.
template <class S>
class RecordOf final : public Record {
public:
    RecordOf() = default;
    explicit RecordOf(const S& source) : value(source) {}
    const RecordTable& table() const override { return recordOf(static_cast<const S*>(nullptr)); }
    void* structure() noexcept override { return &value; }
    Ref<Record> clone() const override { return make<RecordOf<S>>(value); }

    S value{};
};

template <class S>
class RecordTable::Builder {
public:
    explicit Builder(const char* name) {
        table_.name_ = String::fromUtf8(name);
        table_.create_ = []() -> Ref<Record> { return make<RecordOf<S>>(); };
    }
    template <class T>
    Builder& field(const char* name, T S::*member) {
        table_.fields_.push_back(
            {String::fromUtf8(name), describe<T>(),
             [member](const void* record) { return toVariant<T>(static_cast<const S*>(record)->*member); },
             [member](void* record, const Variant& v) {
                 static_cast<S*>(record)->*member = fromVariant<T>(v);
             }});
        return *this;
    }
    operator RecordTable() { return std::move(table_); }

private:
    RecordTable table_;
};

template <class S>
RecordTable::Builder<S> RecordTable::of(const char* name) {
    return Builder<S>(name);
}

} // namespace automation
