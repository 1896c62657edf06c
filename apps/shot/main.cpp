// Paints a named scene on the headless display and saves it as a picture.
#include "shot/scenes.h"

#include <cstdio>
#include <cstring>
#include <exception>

namespace {

int list() {
    for (const shot::Scene& scene : shot::scenes())
        std::printf("%-10s %s\n", scene.name, scene.help);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) return list();
    if (argc != 3) {
        std::fprintf(stderr, "tesela-shot NAME OUT.png; alone it lists the scenes.\n");
        return 2;
    }
    try {
        for (const shot::Scene& scene : shot::scenes())
            if (std::strcmp(scene.name, argv[1]) == 0) {
                if (scene.paint(argv[2])) return 0;
                std::fprintf(stderr, "%s: the picture can't be written.\n", argv[2]);
                return 1;
            }
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s: %s\n", argv[1], failure.what());
        return 1;
    }
    std::fprintf(stderr, "There is no scene '%s'. There are:\n", argv[1]);
    list();
    return 2;
}
