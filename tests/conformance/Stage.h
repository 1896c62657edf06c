#pragma once
// Where a script plays: its surfaces, the objects that it names, and what it shows.

#include "automation/Ref.h"
#include "conformance/Picture.h"
#include "conformance/Script.h"
#include "platform/gdi.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tesela {
class cCanvas;
}

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
    Picture picture() const;

private:
    std::string name_;
    int width_;
    int height_;
    platform::HDC dc_;
    platform::HBITMAP bitmap_;
    platform::HGDIOBJ previous_;
};

class Stage {
public:
    Stage();
    ~Stage();

    /// Plays one line. Throws std::runtime_error with what is wrong with it.
    void play(const Line& line);

    std::string shown;
    std::vector<Picture> pictures() const;

    // For the calls
    platform::HDC dc() const { return current_->dc(); }
    /// The canvas that draws on the current surface.
    tesela::cCanvas& canvas();
    /// A handle by the name of a surface or object, or a number; 0 is no handle.
    std::uint32_t handle(const std::string& word) const;
    /// Keeps an object for later lines and for its end.
    void name(const std::string& name, std::uint32_t object);

private:
    StageSurface& surface(const std::string& name);
    void addSurface(const std::vector<std::string>& words);

    std::vector<std::unique_ptr<StageSurface>> surfaces_;
    std::vector<automation::Ref<tesela::cCanvas>> canvases_;
    StageSurface* current_ = nullptr;
    std::map<std::string, std::uint32_t> objects_;
    std::vector<std::uint32_t> owned_;
};

/// The script's result. A line that cannot be played throws, naming script and line.
Result play(const Script& script);

} // namespace conformance
