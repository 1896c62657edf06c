#pragma once
// The lines that call something.

#include <string>
#include <vector>

namespace conformance {

class Stage;

/// Calls the function that the word at `first` names, or "NAME = FUNCTION ...", and tells its results:
/// "LPtoDP 1 (3, 4)". Throws when there is no such function or its arguments are wrong.
std::string callGdi(Stage& stage, const std::vector<std::string>& words, std::size_t first);

/// Calls the canvas's member that the word at `first` names.
std::string callCanvas(Stage& stage, const std::vector<std::string>& words, std::size_t first);

} // namespace conformance
