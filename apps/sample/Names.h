#pragma once
// What the sample's customers are called, where their streets are and what they buy.

#include "sample/Random.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace sample {

struct Person {
    std::string firstName;
    std::string surnames;
    std::string fullName() const { return firstName + " " + surnames; }
};

Person makePerson(Random& random);

/// A company with its legal form, "Suministros Ortega e Hijos, S.L."; `form` becomes the letter of its tax
/// number.
std::string makeCompany(Random& random, char& form);

/// "Calle Mayor, 12, 3.º B"
std::string makeStreet(Random& random);

/// A mail address out of a name: small letters without accents, dots between the words.
std::string makeMail(Random& random, std::string_view name);

/// The letters a to z, digits and dots that a name leaves in an address.
std::string plainWord(std::string_view name);

/// A kind of article and what it costs: prices in cents.
struct ArticleKind {
    const char* family;
    const char* code; ///< Three letters that start the article's code
    const char* name;
    const char* variants; ///< Sizes and makes, between bars
    std::int64_t cheapest;
    std::int64_t dearest;
    int taxPercent; ///< 21, 10 or 4
    int grams;      ///< What one usually weighs
};

std::span<const ArticleKind> articleKinds();
std::string_view makeVariant(Random& random, const ArticleKind& kind);
std::span<const std::string_view> brands();

} // namespace sample
