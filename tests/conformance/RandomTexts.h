#pragma once
// Random scripts about text in paths and in metafiles.

#include <string>

namespace conformance {

/// "traced": what the script of that number is about.
std::string textSubject(int number);

/// The script's text.
std::string textScript(int number);

} // namespace conformance
