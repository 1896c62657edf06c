#pragma once
// Random scripts about outlines: pens of every form, widened paths, flat curves and thin regions.

#include <string>

namespace conformance {

/// "joints": what the script of that number is about.
std::string outlineSubject(int number);

/// The script's text.
std::string outlineScript(int number);

} // namespace conformance
