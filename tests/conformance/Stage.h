#pragma once
// Where a script plays: its surfaces, the objects that it names, and what it shows.

#include "automation/Variant.h"
#include "conformance/Picture.h"
#include "conformance/Script.h"
#include "conformance/StageBox.h"
#include "drawing/cCanvas.h"
#include "platform/gdi.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace conformance {

/// A memory context with a bitmap, white at first. 1 bit is a plain bitmap; other depths, and "1c", are
/// sections with colours of their own.
class StageSurface {
public:
    StageSurface(std::string name, int width, int height, const std::string& kind);
    ~StageSurface();
    StageSurface(const StageSurface&) = delete;
    StageSurface& operator=(const StageSurface&) = delete;

    const std::string& name() const { return name_; }
    platform::HDC dc() const { return dc_; }
    platform::SIZE size() const { return {width_, height_}; }
    Picture picture() const;

private:
    std::string name_;
    int width_;
    int height_;
    platform::HDC dc_;
    platform::HBITMAP bitmap_;
    platform::HGDIOBJ previous_;
};

/// Where lines draw: a surface, or a canvas of its own, which has none until the script configures it.
struct StagePlace {
    std::string name;
    StageSurface* surface = nullptr;
    automation::Ref<tesela::cCanvas> canvas; ///< Of a surface from its first call on

    platform::HDC dc() const { return canvas ? canvas->GetPaintDC() : surface->dc(); }
};

class Stage {
public:
    Stage();
    ~Stage();

    /// Plays one line. Throws std::runtime_error with what is wrong with it.
    void play(const Line& line);

    std::string shown;
    /// Of all surfaces, then of all boxes.
    std::vector<Picture> pictures() const;

    // For the calls
    platform::HDC dc() const { return places_[current_].dc(); }
    /// The canvas that draws on the current surface, or the current canvas.
    tesela::cCanvas& canvas();
    /// A handle by the name of a place or object, or a number; 0 is no handle.
    std::uint32_t handle(const std::string& word) const;
    /// The object of that name: a canvas, picture, font or box, or Nothing; null if there is no such name.
    const automation::Ref<automation::Object>* object(const std::string& word) const;
    /// Keeps a handle for later lines, and ends it with the script if it is `owned`.
    void name(const std::string& name, std::uint32_t handle, bool owned = true);
    void name(const std::string& name, automation::Ref<automation::Object> object);
    /// Leaves the end of an object to whoever has it now.
    void letGo(std::uint32_t handle);

private:
    const StagePlace* place(const std::string& name) const;
    void goTo(const std::string& name);
    void addSurface(const std::vector<std::string>& words);
    void addCanvas(const std::vector<std::string>& words);
    void addBox(const std::vector<std::string>& words);
    void addFont(const std::vector<std::string>& words);
    void readClipboard(const std::vector<std::string>& words);

    std::vector<std::unique_ptr<StageSurface>> surfaces_;
    std::vector<StageBox> boxes_;
    std::vector<StagePlace> places_;
    std::size_t current_ = 0;
    std::map<std::string, std::uint32_t> handles_;
    std::map<std::string, automation::Ref<automation::Object>> objects_;
    std::vector<std::uint32_t> owned_;
};

/// The script's result. A line that cannot be played throws, naming script and line.
Result play(const Script& script);

} // namespace conformance
