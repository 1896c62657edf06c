#pragma once

#include "host/MsgBox.h"
#include "host/Picture.h"

namespace host {

inline constexpr int DialogIconSize = 32; ///< Pixels

/// The icon of a message box on a background of one colour; null if the style has none.
automation::Ref<Picture> dialogIcon(MsgBoxStyle style, platform::COLORREF background);

/// An icon by the system's number of it: the same art for 32513 hand, 32514 question, 32515 exclamation and
/// 32516 asterisk, a window for 32512 and 32517, a shield for 32518. Null for any other number.
automation::Ref<Picture> stockIcon(std::int32_t number);

} // namespace host
