#pragma once

#include "host/MsgBox.h"
#include "host/Picture.h"

namespace host {

inline constexpr int DialogIconSize = 32; ///< Pixels

/// The icon of a message box on a background of one colour; null if the style has none.
automation::Ref<Picture> dialogIcon(MsgBoxStyle style, platform::COLORREF background);

} // namespace host
