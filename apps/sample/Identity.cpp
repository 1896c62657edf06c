#include "sample/Identity.h"

#include <algorithm>

namespace sample {

namespace {

constexpr std::string_view personLetters = "TRWAGMYFPDXBNJZSQVHLCKE";
constexpr std::string_view foreignerLetters = "XYZ";
constexpr std::string_view companyForms = "ABEH"; ///< The forms whose check character is a digit
constexpr std::int64_t tenMillions = 10'000'000;

std::string digits(std::int64_t number, std::size_t width) {
    std::string text = std::to_string(number);
    return std::string(width - std::min(width, text.size()), '0') + text;
}

char personLetter(std::int64_t number) {
    return personLetters[static_cast<std::size_t>(number) % personLetters.size()];
}

/// Digits in odd places (from 1) count twice, the two digits of the double added.
char companyDigit(std::string_view sevenDigits) {
    int sum = 0;
    for (std::size_t i = 0; i < sevenDigits.size(); ++i) {
        const int digit = sevenDigits[i] - '0';
        const int doubled = 2 * digit;
        sum += i % 2 == 0 ? doubled / 10 + doubled % 10 : digit;
    }
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

char eanDigit(std::string_view twelveDigits) {
    constexpr int weightOfEvenPlaces = 3;
    int sum = 0;
    for (std::size_t i = 0; i < twelveDigits.size(); ++i)
        sum += (twelveDigits[i] - '0') * (i % 2 == 0 ? 1 : weightOfEvenPlaces);
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

bool allDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

std::string nifOfPerson(std::int64_t number) {
    return digits(number, 8) + personLetter(number);
}

std::string nifOfForeigner(std::int64_t number) {
    const auto series = static_cast<std::size_t>(number / tenMillions);
    return foreignerLetters[series] + digits(number % tenMillions, 7) + personLetter(number);
}

std::string nifOfCompany(char form, int province, std::int64_t number) {
    const std::string body = digits(province, 2) + digits(number, 5);
    return form + body + companyDigit(body);
}

bool isValidNif(std::string_view nif) {
    constexpr std::size_t length = 9;
    if (nif.size() != length) return false;
    const std::string_view middle = nif.substr(1, 7);
    if (!allDigits(middle)) return false;
    if (companyForms.find(nif[0]) != std::string_view::npos) return nif[8] == companyDigit(middle);
    const std::size_t series = foreignerLetters.find(nif[0]);
    if (series != std::string_view::npos)
        return nif[8] == personLetter(static_cast<std::int64_t>(series) * tenMillions +
                                      std::stoll(std::string(middle)));
    return allDigits(nif.substr(0, 8)) && nif[8] == personLetter(std::stoll(std::string(nif.substr(0, 8))));
}

std::string ean13(std::int64_t twelveDigits) {
    const std::string body = digits(twelveDigits, 12);
    return body + eanDigit(body);
}

bool isValidEan13(std::string_view code) {
    return code.size() == 13 && allDigits(code) && code[12] == eanDigit(code.substr(0, 12));
}

} // namespace sample
