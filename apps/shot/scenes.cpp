#include "shot/scenes.h"

namespace shot {

std::span<const Scene> scenes() {
    static const Scene all[] = {
        {"label", "every look of the label", label},
        {"field", "every look of the data-entry field", field},
        {"canvas", "every primitive of the canvas", canvas},
        {"html", "marked-up texts", html},
        {"fichas", "the first record of the sample database", fichas},
    };
    return all;
}

} // namespace shot
