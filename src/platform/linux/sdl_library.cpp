#include "platform/linux/sdl_library.h"

#include <dlfcn.h>

namespace platform::driver {

namespace {

SdlLibrary load() {
    SdlLibrary functions;
    void* library = dlopen("libSDL2-2.0.so.0", RTLD_LAZY | RTLD_LOCAL);
    if (!library) return functions;
    functions.complete = true;
    const auto find = [&](auto& function, const char* name) {
        function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(dlsym(library, name));
        functions.complete = functions.complete && function;
    };
#define TESELA_SDL_FIND(name) find(functions.name, "SDL_" #name);
    TESELA_SDL_FUNCTIONS(TESELA_SDL_FIND)
#undef TESELA_SDL_FIND
    return functions;
}

} // namespace

const SdlLibrary& sdl() {
    static const SdlLibrary functions = load();
    return functions;
}

} // namespace platform::driver
