// compare-results OURS THEIRS ACCEPTED [PICTURES]   compares the results of two runs
//
// Tells each script whose results differ and is not covered by a row of the table ACCEPTED, and each name in
// a row that covers nothing; the exit status is 1 then. With PICTURES, a folder, three pictures of each are
// written: NAME-ours.png, NAME-theirs.png and NAME-difference.png (red where they differ).

#include "conformance/linux/AcceptedTable.h"
#include "platform/linux/png_file.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>

namespace conformance {

namespace {

AcceptedTable readTable(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error("cannot read " + path);
    return AcceptedTable(file);
}

std::vector<Result> readResults(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path);
    std::vector<Result> results;
    for (Result result; readResult(file, result);)
        results.push_back(std::move(result));
    return results;
}

void save(const std::filesystem::path& path, Picture picture) {
    platform::driver::Surface surface;
    surface.width = picture.width;
    surface.height = picture.height;
    surface.stride = picture.width * 4;
    surface.bits = reinterpret_cast<std::uint8_t*>(picture.pixels.data());
    if (!platform::driver::savePng(path.string(), surface))
        throw std::runtime_error("cannot write " + path.string());
}

/// Theirs in pale grey, with every differing pixel red.
Picture markedDifference(const Picture& ours, const Picture& theirs) {
    constexpr std::uint32_t red = 0xFF0000;
    Picture result = theirs;
    for (std::size_t i = 0; i < result.pixels.size(); ++i) {
        const bool differs = i >= ours.pixels.size() || ours.pixels[i] != theirs.pixels[i];
        const std::uint32_t pale = 0xC0C0C0 | (theirs.pixels[i] & 0x3F3F3F);
        result.pixels[i] = differs ? red : pale;
    }
    return result;
}

void savePictures(const std::filesystem::path& folder, const Result& ours, const Result& theirs) {
    std::filesystem::create_directories(folder);
    std::string name = ours.script;
    std::replace(name.begin(), name.end(), '/', '-');
    for (std::size_t i = 0; i < std::min(ours.pictures.size(), theirs.pictures.size()); ++i) {
        const Picture& a = ours.pictures[i];
        const Picture& b = theirs.pictures[i];
        if (a == b) continue;
        const std::string stem = name + "-" + a.name;
        save(folder / (stem + "-ours.png"), a);
        save(folder / (stem + "-theirs.png"), b);
        save(folder / (stem + "-difference.png"), markedDifference(a, b));
    }
}

void tellDifference(const Result& ours, const Result& theirs, const AcceptedTable& table) {
    std::cout << ours.script << ':';
    for (std::size_t i = 0; i < std::min(ours.pictures.size(), theirs.pictures.size()); ++i) {
        const std::size_t count = differingPixels(ours.pictures[i], theirs.pictures[i]);
        if (count > 0) std::cout << ' ' << count << " pixels of " << ours.pictures[i].name;
    }
    if (const std::optional<std::size_t> pixels = table.pixelsOf(ours.script))
        std::cout << ", where the table accepts " << *pixels;
    if (ours.shown != theirs.shown)
        std::cout << " shown:\n  ours   " << ours.shown << "  theirs " << theirs.shown;
    std::cout << '\n';
}

/// "lines" for "random/lines/7", else the folder of the script.
std::string subjectOf(const std::string& script) {
    return script.substr(0, script.rfind('/'));
}

int compare(const std::vector<std::string>& arguments) {
    if (arguments.size() < 3) {
        std::cerr << "compare-results OURS THEIRS ACCEPTED [PICTURES]\n";
        return 2;
    }
    const std::vector<Result> ours = readResults(arguments[0]);
    const std::vector<Result> theirs = readResults(arguments[1]);
    AcceptedTable table = readTable(arguments[2]);
    if (ours.empty() || ours.size() != theirs.size()) {
        std::cout << "The runs have " << ours.size() << " and " << theirs.size() << " results.\n";
        return 1;
    }
    int failures = 0;
    std::map<std::string, std::pair<int, int>> subjects; // scripts, and those that differ
    for (std::size_t i = 0; i < ours.size(); ++i) {
        auto& [count, different] = subjects[subjectOf(ours[i].script)];
        ++count;
        if (ours[i] == theirs[i]) continue;
        ++different;
        if (table.accepts(ours[i].script, difference(ours[i], theirs[i]))) continue;
        ++failures;
        tellDifference(ours[i], theirs[i], table);
        if (arguments.size() > 3) savePictures(arguments[3], ours[i], theirs[i]);
    }
    for (const auto& [name, counts] : subjects)
        if (counts.second > 0)
            std::cout << name << ": " << counts.second << " of " << counts.first << " differ\n";
    for (const std::string& name : table.unused()) {
        ++failures;
        std::cout << "No difference is left of what the table accepts for " << name << '\n';
    }
    std::cout << ours.size() << " scripts compared, " << failures << " failures\n";
    return failures == 0 ? 0 : 1;
}

} // namespace

} // namespace conformance

int main(int argc, char** argv) {
    try {
        return conformance::compare({argv + 1, argv + argc});
    } catch (const std::exception& problem) {
        std::cerr << "compare-results: " << problem.what() << '\n';
        return 1;
    }
}
