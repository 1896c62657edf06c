#pragma once
// The pictures that ./tesela shot paints.

#include <span>
#include <string>

namespace shot {

struct Scene {
    const char* name;
    const char* help;
    bool (*paint)(const std::string& file); ///< False when the picture can't be written
};

std::span<const Scene> scenes();

bool label(const std::string& file);
bool field(const std::string& file);
bool canvas(const std::string& file);
bool html(const std::string& file);
bool fichas(const std::string& file);

} // namespace shot
