// conformance FOLDER COUNT OUT   plays all scripts below the folder and COUNT random ones; the results go to
// OUT conformance --grid FILE        plays one script and shows its pictures as text conformance --random
// NUMBER    prints a random script

#include "conformance/Picture.h"
#include "conformance/RandomScript.h"
#include "conformance/Script.h"
#include "conformance/Stage.h"
#include "frame/Globales.h"

#include <fstream>
#include <iostream>
#include <map>

namespace conformance {

namespace {

/// White is a point, black a cross, other colours letters in the order in which they come.
void printGrid(const Picture& picture, std::ostream& out) {
    std::map<std::uint32_t, char> letters{{0xFFFFFF, '.'}, {0, '#'}};
    char nextLetter = 'a';
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            const std::size_t index = static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width);
            const auto [letter, isNew] =
                letters.try_emplace(picture.pixels[index + static_cast<std::size_t>(x)], nextLetter);
            if (isNew) ++nextLetter;
            out << letter->second;
        }
        out << '\n';
    }
}

int showGrids(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path);
    const Result result = play(parseScript(path, {std::istreambuf_iterator<char>(file), {}}));
    std::cout << result.shown;
    for (const Picture& picture : result.pictures) {
        std::cout << picture.name << '\n';
        printGrid(picture, std::cout);
    }
    return 0;
}

int playAll(const std::string& folder, int count, const std::string& path) {
    std::ofstream out(path, std::ios::binary);
    if (!out) throw std::runtime_error("cannot write " + path);
    for (const Script& script : readScripts(folder))
        writeResult(out, play(script));
    for (int i = 0; i < count; ++i)
        writeResult(out, play(parseScript(randomName(i), randomScript(i))));
    return out.flush() ? 0 : 1;
}

int run(const std::vector<std::string>& arguments) {
    if (arguments.size() == 2 && arguments[0] == "--grid") return showGrids(arguments[1]);
    if (arguments.size() == 2 && arguments[0] == "--random") {
        std::cout << "# " << randomName(std::stoi(arguments[1])) << '\n'
                  << randomScript(std::stoi(arguments[1]));
        return 0;
    }
    if (arguments.size() == 3) return playAll(arguments[0], std::stoi(arguments[1]), arguments[2]);
    std::cerr << "conformance FOLDER COUNT OUT | --grid FILE | --random NUMBER\n";
    return 2;
}

} // namespace

} // namespace conformance

int main(int argc, char** argv) {
    try {
        tesela::ProcedimientoInicio();
        return conformance::run({argv + 1, argv + argc});
    } catch (const std::exception& problem) {
        std::cerr << "conformance: " << problem.what() << '\n';
        return 1;
    }
}
