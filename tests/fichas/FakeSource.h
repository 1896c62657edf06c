#pragma once
// Records that a test makes up.

#include "fichas/RecordSource.h"

namespace tests {

/// Records numbered from 1; `brokenFrom` and what follows cannot be read.
class FakeSource : public fichas::RecordSource {
public:
    FakeSource(std::vector<fichas::Column> columns, std::vector<std::vector<automation::Variant>> records)
        : columns_(std::move(columns)), records_(std::move(records)) {}

    automation::String name() const override { return u"prueba"; }
    const std::vector<fichas::Column>& columns() const override { return columns_; }
    std::int64_t knownCount() const override { return static_cast<std::int64_t>(records_.size()); }
    bool countIsFinal() const override { return true; }
    void countOn() override {}
    std::int64_t count() override { return knownCount(); }
    bool read(std::int64_t record, std::vector<automation::Variant>& values) override {
        ++reads;
        if (brokenFrom != 0 && record >= brokenFrom) throw fichas::SourceError("roto");
        if (record < 1 || record > knownCount()) return false;
        values = records_[static_cast<std::size_t>(record - 1)];
        return true;
    }

    int reads = 0;
    std::int64_t brokenFrom = 0;

private:
    std::vector<fichas::Column> columns_;
    std::vector<std::vector<automation::Variant>> records_;
};

} // namespace tests
