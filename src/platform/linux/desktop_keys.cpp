#include "platform/linux/desktop_keys.h"

#include "platform/input.h"

namespace platform::driver {

namespace {

struct SignKey {
    char16_t sign;
    int virtualKey;
};

constexpr SignKey SignKeys[] = {{u'ñ', VK_OEM_3},     {u'ç', VK_OEM_2},      {u'º', VK_OEM_5},
                                {u'¡', VK_OEM_6},     {u'+', VK_OEM_PLUS},   {u'=', VK_OEM_PLUS},
                                {u',', VK_OEM_COMMA}, {u'.', VK_OEM_PERIOD}, {u'-', VK_OEM_MINUS},
                                {u'<', VK_OEM_102},   {u';', VK_OEM_1},      {u'/', VK_OEM_2},
                                {u'`', VK_OEM_3},     {u'[', VK_OEM_4},      {u'\\', VK_OEM_5},
                                {u']', VK_OEM_6},     {u'\'', VK_OEM_7},     {u'´', VK_OEM_7}};

} // namespace

int virtualKeyOfSign(char16_t sign) {
    for (const SignKey& key : SignKeys)
        if (key.sign == sign) return key.virtualKey;
    return 0;
}

} // namespace platform::driver
