#pragma once
// Numbers that carry a check character: tax numbers of persons and companies, bar codes of articles.

#include <cstdint>
#include <string>
#include <string_view>

namespace sample {

/// Eight digits and their letter, as on a Spanish identity card: "12345678Z".
std::string nifOfPerson(std::int64_t number);

/// A resident foreigner's: X, Y or Z, seven digits and the letter. `number` below 30,000,000: its tens of
/// millions choose the first letter.
std::string nifOfForeigner(std::int64_t number);

/// A company's: the letter of its legal form (A, B, E or H), the province's two digits, five more and the
/// check digit: "B28" "12345" "6".
std::string nifOfCompany(char form, int province, std::int64_t number);

/// Whether the check character of any of the three is right.
bool isValidNif(std::string_view nif);

/// Twelve digits and their check digit.
std::string ean13(std::int64_t twelveDigits);

/// Whether the thirteenth digit is right.
bool isValidEan13(std::string_view code);

} // namespace sample
