#include "conformance/Script.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace conformance {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

/// A quoted word keeps its opening quote, by which it is known as text.
std::vector<std::string> wordsOf(const std::string& line) {
    std::vector<std::string> words;
    std::size_t at = 0;
    while (at < line.size() && line[at] != '#') {
        if (isBlank(line[at])) {
            ++at;
            continue;
        }
        std::size_t end = at;
        if (line[at] == '"') {
            end = std::min(line.find('"', at + 1), line.size());
            words.push_back(line.substr(at, end - at));
            at = end + 1;
            continue;
        }
        while (end < line.size() && !isBlank(line[end]))
            ++end;
        words.push_back(line.substr(at, end - at));
        at = end;
    }
    return words;
}

} // namespace

Script parseScript(std::string name, const std::string& text) {
    Script script{std::move(name), {}};
    std::istringstream in(text);
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        std::vector<std::string> words = wordsOf(line);
        if (!words.empty()) script.lines.push_back({number, std::move(words)});
    }
    return script;
}

std::vector<Script> readScripts(const std::filesystem::path& folder) {
    std::vector<Script> scripts;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".draw") continue;
        std::ifstream file(entry.path(), std::ios::binary);
        if (!file) throw std::runtime_error("cannot read " + entry.path().string());
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        const std::filesystem::path name =
            std::filesystem::relative(entry.path(), folder).replace_extension();
        scripts.push_back(parseScript(name.generic_string(), text));
    }
    std::sort(scripts.begin(), scripts.end(),
              [](const Script& a, const Script& b) { return a.name < b.name; });
    return scripts;
}

} // namespace conformance
