#include "host/Clipboard.h"

#include "automation/Error.h"
#include "platform/input.h"

namespace host {

namespace {

constexpr std::int32_t CannotOpenClipboard = 521;

} // namespace

void Clipboard::Clear() {
    if (!platform::OpenClipboard({})) throw automation::Error(CannotOpenClipboard);
    platform::EmptyClipboard();
    platform::CloseClipboard();
}

automation::String Clipboard::GetText() {
    return platform::clipboardText();
}

void Clipboard::SetText(const automation::String& text) {
    if (!platform::setClipboardText(text)) throw automation::Error(CannotOpenClipboard);
}

bool Clipboard::GetFormat(ClipboardFormat format) {
    return platform::IsClipboardFormatAvailable(static_cast<platform::UINT>(format)) != platform::FALSE_;
}

} // namespace host
