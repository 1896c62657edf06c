#pragma once
// The SDL library, which is loaded when it is first used: a program that shows its windows on X11 or keeps
// them in memory never loads it.

#include <SDL.h>

namespace platform::driver {

#define TESELA_SDL_FUNCTIONS(name)                                                                           \
    name(CaptureMouse) name(CreateRGBSurfaceFrom) name(CreateSystemCursor) name(CreateWindow)                \
        name(DestroyWindow) name(FreeCursor) name(FreeSurface) name(GetClipboardText)                        \
            name(GetCurrentVideoDriver) name(GetDisplayBounds) name(GetDisplayUsableBounds)                  \
                name(GetKeyboardFocus) name(GetModState) name(GetWindowFlags) name(GetWindowFromID)          \
                    name(GetWindowID) name(GetWindowPosition) name(GetWindowSize) name(GetWindowSurface)     \
                        name(HasClipboardText) name(HideWindow) name(InitSubSystem) name(MaximizeWindow)     \
                            name(MinimizeWindow) name(PeepEvents) name(PollEvent) name(QuitSubSystem)        \
                                name(RaiseWindow) name(RestoreWindow) name(SetClipboardText) name(SetCursor) \
                                    name(SetHint) name(SetMainReady) name(SetWindowInputFocus)               \
                                        name(SetWindowModalFor) name(SetWindowPosition) name(SetWindowSize)  \
                                            name(SetWindowTitle) name(ShowCursor) name(ShowWindow)           \
                                                name(StartTextInput) name(UpdateWindowSurfaceRects)          \
                                                    name(UpperBlit) name(WaitEventTimeout)                   \
                                                        name(WarpMouseGlobal) name(free)

/// SDL's functions under their own names without the prefix.
struct SdlLibrary {
#define TESELA_SDL_MEMBER(name) decltype(&SDL_##name) name = nullptr;
    TESELA_SDL_FUNCTIONS(TESELA_SDL_MEMBER)
#undef TESELA_SDL_MEMBER
    bool complete = false; ///< False: the library is not there, or too old
};

const SdlLibrary& sdl();

} // namespace platform::driver
