#pragma once
// Run-time errors as automation numbers them.

#include "automation/String.h"

#include <cstdint>
#include <exception>
#include <string>

namespace automation {

using HResult = std::int32_t;

/// Numbers of the errors that the values and calls raise.
namespace errors {
inline constexpr std::int32_t InvalidCall = 5;
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t OutOfMemory = 7;
inline constexpr std::int32_t SubscriptOutOfRange = 9;
inline constexpr std::int32_t ArrayFixedOrLocked = 10;
inline constexpr std::int32_t DivisionByZero = 11;
inline constexpr std::int32_t TypeMismatch = 13;
inline constexpr std::int32_t FileNotFound = 53;
inline constexpr std::int32_t ObjectVariableNotSet = 91;
inline constexpr std::int32_t InvalidUseOfNull = 94;
inline constexpr std::int32_t InvalidPropertyValue = 380;
inline constexpr std::int32_t InvalidPropertyArrayIndex = 381;
inline constexpr std::int32_t PropertyReadOnly = 383;
inline constexpr std::int32_t PropertyWriteOnly = 394;
inline constexpr std::int32_t PropertyNotFound = 422;
inline constexpr std::int32_t ObjectRequired = 424;
inline constexpr std::int32_t CannotCreateObject = 429;
inline constexpr std::int32_t MemberNotSupported = 438;
inline constexpr std::int32_t AutomationError = 440;
inline constexpr std::int32_t NamedArgumentNotFound = 448;
inline constexpr std::int32_t ArgumentNotOptional = 449;
inline constexpr std::int32_t WrongArgumentCount = 450;
inline constexpr std::int32_t TypeNotSupported = 458;
inline constexpr std::int32_t InvalidPicture = 481;
} // namespace errors

/// A run-time error: a number and a text. Thrown by value, caught by reference.
class Error : public std::exception {
public:
    /// With the standing description of `number`.
    explicit Error(std::int32_t number);
    Error(std::int32_t number, String description, String source = {});

    std::int32_t number() const noexcept { return number_; }
    const String& description() const noexcept { return description_; }
    /// Name of the class or program that raised it; may be empty.
    const String& source() const noexcept { return source_; }
    /// 0x800A0000 plus a number of 1 to 65535; other numbers stand for themselves.
    HResult hresult() const noexcept { return hresultOf(number_); }
    /// The description in UTF-8.
    const char* what() const noexcept override { return what_.c_str(); }

    static HResult hresultOf(std::int32_t number) noexcept;
    /// The number that an automation failure code stands for (0x80020005 gives 13); codes without a
    /// number of their own come back as they are.
    static std::int32_t numberOf(HResult code) noexcept;
    /// "El tipo no coincide" for 13; numbers without a text of their own give
    /// "Error definido por la aplicación o el objeto".
    static String descriptionOf(std::int32_t number);

private:
    std::int32_t number_;
    String description_;
    String source_;
    std::string what_;
};

/// Throws Error 13; here so that inline code stays small.
[[noreturn]] void throwTypeMismatch();
[[noreturn]] void throwError(std::int32_t number);

} // namespace automation
