#pragma once
// Random scripts about what pixels and text become: stretches, masks, gradients, blends, icons, letters.

#include <string>

namespace conformance {

/// "gradients": what the script of that number is about.
std::string pixelSubject(int number);

/// The script's text.
std::string pixelScript(int number);

} // namespace conformance
