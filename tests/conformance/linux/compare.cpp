// compare-results OURS THEIRS ACCEPTED [PICTURES]   compares the results of two runs
//
// Tells each script whose results differ and is not covered by a row of the table ACCEPTED, and each name in
// a row that covers nothing; the exit status is 1 then. With PICTURES, a folder, three pictures of each are
// written: NAME-ours.png, NAME-theirs.png and NAME-difference.png (red where they differ).
//
// A row of the table has script names, the difference that is accepted, and the reason, with tabs between.
// Commas part several last names ("random/fills/7,12"), of which * stands for all. The difference is "any",
// or a number: by so much may each component of each pixel differ, and nothing else. "sometimes" is any
// difference that need not be there: they paint it one way in one run and another way in the next.

#include "conformance/Picture.h"
#include "platform/linux/png_file.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>

namespace conformance {

namespace {

constexpr int anyDifference = 255; ///< Of two components

/// One name of a row of the table. The reason is for its readers.
struct Accepted {
    std::string name; ///< Or "folder/*"
    int most = 0;
    bool isSteady = true; ///< Fails when nothing differs
    int covered = 0;

    bool covers(const std::string& script) const {
        if (name.back() != '*') return script == name;
        return script.starts_with(name.substr(0, name.size() - 1));
    }
};

/// Adds each name of a row: "random/fills/7,12" gives "random/fills/7" and "random/fills/12".
void addNames(const std::string& names, const std::string& difference, std::vector<Accepted>& table) {
    const bool isSteady = difference != "sometimes";
    const int most = difference == "any" || !isSteady ? anyDifference : std::stoi(difference);
    const std::size_t last = names.rfind('/') + 1;
    for (std::size_t from = last; from <= names.size();) {
        const std::size_t to = std::min(names.find(',', from), names.size());
        table.push_back({names.substr(0, last) + names.substr(from, to - from), most, isSteady});
        from = to + 1;
    }
}

std::vector<Accepted> readTable(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error("cannot read " + path);
    std::vector<Accepted> table;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        const std::size_t difference = line.find('\t') + 1;
        const std::size_t reason = line.find('\t', difference) + 1;
        if (difference == 0 || reason == 0) throw std::runtime_error("a row without reason: " + line);
        const std::string told = line.substr(difference, reason - difference - 1);
        addNames(line.substr(0, difference - 1), told, table);
    }
    return table;
}

std::vector<Result> readResults(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path);
    std::vector<Result> results;
    for (Result result; readResult(file, result);)
        results.push_back(std::move(result));
    return results;
}

std::size_t differingPixels(const Picture& a, const Picture& b) {
    if (a.width != b.width || a.height != b.height) return std::max(a.pixels.size(), b.pixels.size());
    std::size_t count = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i)
        count += a.pixels[i] != b.pixels[i] ? 1u : 0u;
    return count;
}

int largestDifference(std::uint32_t a, std::uint32_t b) {
    int largest = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const int one = static_cast<int>(a >> shift & 0xFF);
        const int other = static_cast<int>(b >> shift & 0xFF);
        largest = std::max(largest, std::abs(one - other));
    }
    return largest;
}

/// Of all components of all pixels.
int largestDifference(const Result& ours, const Result& theirs) {
    if (ours.shown != theirs.shown || ours.pictures.size() != theirs.pictures.size()) return anyDifference;
    int largest = 0;
    for (std::size_t i = 0; i < ours.pictures.size(); ++i) {
        const Picture& a = ours.pictures[i];
        const Picture& b = theirs.pictures[i];
        if (a.pixels.size() != b.pixels.size()) return anyDifference;
        for (std::size_t k = 0; k < a.pixels.size(); ++k)
            largest = std::max(largest, largestDifference(a.pixels[k], b.pixels[k]));
    }
    return largest;
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
Picture difference(const Picture& ours, const Picture& theirs) {
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
        save(folder / (stem + "-difference.png"), difference(a, b));
    }
}

void tellDifference(const Result& ours, const Result& theirs) {
    std::cout << ours.script << ':';
    for (std::size_t i = 0; i < std::min(ours.pictures.size(), theirs.pictures.size()); ++i) {
        const std::size_t count = differingPixels(ours.pictures[i], theirs.pictures[i]);
        if (count > 0) std::cout << ' ' << count << " pixels of " << ours.pictures[i].name;
    }
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
    std::vector<Accepted> table = readTable(arguments[2]);
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
        const int difference = largestDifference(ours[i], theirs[i]);
        const auto row = std::find_if(table.begin(), table.end(), [&](const Accepted& a) {
            return difference <= a.most && a.covers(ours[i].script);
        });
        if (row != table.end()) {
            ++row->covered;
            continue;
        }
        ++failures;
        tellDifference(ours[i], theirs[i]);
        if (arguments.size() > 3) savePictures(arguments[3], ours[i], theirs[i]);
    }
    for (const auto& [name, counts] : subjects)
        if (counts.second > 0)
            std::cout << name << ": " << counts.second << " of " << counts.first << " differ\n";
    for (const Accepted& row : table) {
        if (row.covered > 0 || !row.isSteady) continue;
        ++failures;
        std::cout << "No difference is left of what the table accepts for " << row.name << '\n';
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
