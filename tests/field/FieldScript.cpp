#include "field/FieldScript.h"

#include <fstream>

namespace tests {

std::vector<FieldScript> readScripts(const std::string& path) {
    std::vector<FieldScript> scripts;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const bool comment = line.empty() || line[0] == '#';
        if (line.rfind("== ", 0) == 0)
            scripts.push_back({line.substr(3), {}});
        else if (!comment && !scripts.empty())
            scripts.back().steps.push_back(line);
    }
    return scripts;
}

} // namespace tests
