#pragma once
// Random scripts. The same number gives the same script everywhere.

#include <string>

namespace conformance {

/// "random/lines/140": the subject that the script of that number is about.
std::string randomName(int number);

/// The script's text.
std::string randomScript(int number);

} // namespace conformance
