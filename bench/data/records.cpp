#include "records.h"

#include "sample/Names.h"
#include "sample/Places.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace bench {

namespace {

constexpr std::size_t shortest = 4, longest = 40;

/// In the ANSI code page, between the shortest and the longest.
std::string text(const std::string& utf8) {
    std::string ansi = automation::String::fromUtf8(utf8).ansi().substr(0, longest);
    if (ansi.size() < shortest) ansi.resize(shortest, '.');
    return ansi;
}

Record makeRecord(sample::Random& random, std::int32_t number) {
    constexpr std::int64_t minutesInDay = 1440, firstDay = 18000, lastDay = 46000;
    Record record;
    record.number = number;
    record.name = text(sample::makePerson(random).fullName());
    record.town = text(random.oneOf(sample::places()).town);
    if (!random.chance(10))
        record.born = static_cast<double>(random.between(firstDay, lastDay)) +
                      static_cast<double>(random.between(0, minutesInDay - 1)) / minutesInDay;
    record.amount = random.between(-500'000'000, 5'000'000'000);
    record.group = static_cast<std::int32_t>(random.between(0, groupCount - 1));
    record.active = random.chance(70);
    if (!random.chance(10)) record.remark = text(sample::makeStreet(random));
    return record;
}

} // namespace

std::vector<Record> makeRecords() {
    sample::Random random(20240229);
    std::vector<std::int32_t> numbers(rowCount);
    std::iota(numbers.begin(), numbers.end(), 1);
    std::shuffle(numbers.begin(), numbers.end(), std::mt19937(42));
    std::vector<Record> records;
    records.reserve(rowCount);
    for (const std::int32_t number : numbers)
        records.push_back(makeRecord(random, number));
    return records;
}

automation::ParamArray rowOf(const Record& record) {
    using automation::Variant;
    const auto string = [](const std::string& ansi) { return Variant(automation::String::fromAnsi(ansi)); };
    return {Variant(record.number),
            string(record.name),
            string(record.town),
            record.born ? Variant(automation::Date(*record.born)) : Variant::null(),
            Variant(automation::Currency::fromScaled(record.amount)),
            Variant(record.group),
            Variant(record.active),
            record.remark ? string(*record.remark) : Variant::null()};
}

} // namespace bench
