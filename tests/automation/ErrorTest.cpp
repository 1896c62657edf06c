#include "automation/Error.h"

#include <gtest/gtest.h>

using automation::Error;
using automation::String;

TEST(Error, HasTheStandingTextOfItsNumber) {
    struct Case {
        std::int32_t number;
        const char16_t* text;
    };
    constexpr Case cases[] = {
        {5, u"Llamada a procedimiento o argumento no válidos"},
        {6, u"Desbordamiento"},
        {9, u"Subíndice fuera del intervalo"},
        {11, u"División por cero"},
        {13, u"El tipo no coincide"},
        {91, u"Variable de objeto o bloque With no establecido"},
        {94, u"Uso no válido de Null"},
        {438, u"El objeto no admite esta propiedad o método"},
        {448, u"Argumento con nombre no encontrado"},
        {449, u"Argumento no opcional"},
        {450, u"Número de argumentos incorrecto o asignación de propiedad no válida"},
        {1, u"Error definido por la aplicación o el objeto"},
        {40000, u"Error definido por la aplicación o el objeto"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Error(c.number).description(), c.text) << c.number;
}

TEST(Error, TakesATextOfItsOwn) {
    const Error error(513, u"Falta el año", u"cLogFile");
    EXPECT_EQ(error.number(), 513);
    EXPECT_EQ(error.source(), u"cLogFile");
    EXPECT_STREQ(error.what(), "Falta el a\xC3\xB1o");
}

TEST(Error, HasItsFailureCode) {
    EXPECT_EQ(static_cast<std::uint32_t>(Error(13).hresult()), 0x800A000Du);
    EXPECT_EQ(static_cast<std::uint32_t>(Error(438).hresult()), 0x800A01B6u);
    const auto other = static_cast<std::int32_t>(0x80040005u);
    EXPECT_EQ(Error::hresultOf(other), other);
}

TEST(Error, FindsTheNumberOfAFailureCode) {
    struct Case {
        std::uint32_t code;
        std::int32_t number;
    };
    constexpr Case cases[] = {{0x800A000D, 13},  {0x80020005, 13},  {0x8002000A, 6}, {0x80020012, 11},
                              {0x80020003, 438}, {0x80020006, 438}, {0x8002000B, 9}, {0x8002000F, 449}};
    for (const Case& c : cases)
        EXPECT_EQ(Error::numberOf(static_cast<std::int32_t>(c.code)), c.number) << std::hex << c.code;
    EXPECT_EQ(Error::numberOf(static_cast<std::int32_t>(0x80040005u)),
              static_cast<std::int32_t>(0x80040005u));
}
