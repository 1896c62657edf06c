#include "conformance/Stage.h"

#include "conformance/Words.h"
#include "conformance/calls.h"
#include "drawing/cCanvas.h"

namespace conformance {

using namespace platform;

namespace {

constexpr int mainSize = 64;

/// Black and white at the ends, as palettes of devices have them, so that masks can be all zeros and all
/// ones; between them colours that differ in every component.
void fillColors(BITMAPINFO& info) {
    const unsigned last = info.bmiHeader.biBitCount > 8 ? 0 : (1u << info.bmiHeader.biBitCount) - 1;
    for (unsigned i = 1; i < last; ++i)
        info.bmiColors[i] = {static_cast<BYTE>(i * 37), static_cast<BYTE>(i * 101 + 50),
                             static_cast<BYTE>(i * 59 + 100), 0};
    info.bmiColors[0] = {0, 0, 0, 0};
    if (last > 0) info.bmiColors[last] = {0xFF, 0xFF, 0xFF, 0};
}

HBITMAP makeSection(int width, int height, int bits) {
    BITMAPINFO info;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biBitCount = static_cast<WORD>(bits);
    fillColors(info);
    void* pixels = nullptr;
    return CreateDIBSection(HDC(), &info, DIB_RGB_COLORS, &pixels, HANDLE(), 0);
}

} // namespace

StageSurface::StageSurface(std::string name, int width, int height, const std::string& kind)
    : name_(std::move(name)), width_(width), height_(height), dc_(CreateCompatibleDC(HDC())) {
    bitmap_ = kind == "1" ? CreateBitmap(width, height, 1, 1, nullptr)
                          : makeSection(width, height, std::stoi(kind));
    if (!bitmap_) throw std::runtime_error("no bitmap of kind " + kind);
    previous_ = SelectObject(dc_, bitmap_);
    const RECT all{0, 0, width, height};
    FillRect(dc_, &all, HBRUSH(GetStockObject(WHITE_BRUSH).value));
}

StageSurface::~StageSurface() {
    DeleteDC(dc_);
    DeleteObject(bitmap_);
}

Picture StageSurface::picture() const {
    Picture result{name_, width_, height_, {}};
    result.pixels.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    BITMAPINFO info;
    info.bmiHeader.biWidth = width_;
    info.bmiHeader.biHeight = -height_;
    info.bmiHeader.biBitCount = 32;
    const HDC reader = CreateCompatibleDC(HDC());
    SelectObject(dc_, previous_); // the rows of a selected bitmap cannot be read everywhere
    GetDIBits(reader, bitmap_, 0, static_cast<UINT>(height_), result.pixels.data(), &info, DIB_RGB_COLORS);
    SelectObject(dc_, bitmap_);
    DeleteDC(reader);
    for (std::uint32_t& pixel : result.pixels)
        pixel &= 0x00FFFFFF; // the fourth byte has no meaning
    return result;
}

Stage::Stage() {
    surfaces_.push_back(std::make_unique<StageSurface>("main", mainSize, mainSize, "32"));
    current_ = surfaces_.back().get();
}

Stage::~Stage() {
    canvases_.clear();
    surfaces_.clear();
    for (const std::uint32_t object : owned_)
        DeleteObject(HGDIOBJ(object));
}

void Stage::play(const Line& line) {
    const bool show = line.words[0] == "show";
    const std::size_t first = show ? 1 : 0;
    const std::string& word = line.words.at(first);
    if (word == "surface") {
        addSurface(line.words);
    } else if (word == "on") {
        current_ = &surface(line.words.at(1));
    } else {
        const std::string told =
            word == "gdi" ? callGdi(*this, line.words, first + 1) : callCanvas(*this, line.words, first);
        if (show) shown += told + "\n";
    }
}

std::vector<Picture> Stage::pictures() const {
    std::vector<Picture> result;
    for (const auto& surface : surfaces_)
        result.push_back(surface->picture());
    return result;
}

std::uint32_t Stage::handle(const std::string& word) const {
    if (const auto object = objects_.find(word); object != objects_.end()) return object->second;
    for (const auto& surface : surfaces_)
        if (surface->name() == word) return surface->dc().value;
    const std::vector<std::string> words{word};
    return static_cast<std::uint32_t>(Words(words).number());
}

void Stage::name(const std::string& name, std::uint32_t object) {
    objects_[name] = object;
    owned_.push_back(object);
}

StageSurface& Stage::surface(const std::string& name) {
    for (const auto& surface : surfaces_)
        if (surface->name() == name) return *surface;
    throw std::runtime_error("there is no surface '" + name + "'");
}

/// A surface named main, said before anything is drawn, takes the place of the first one.
void Stage::addSurface(const std::vector<std::string>& words) {
    Words arguments(words, 1);
    const std::string name = arguments.next();
    const int width = static_cast<int>(arguments.number());
    const int height = static_cast<int>(arguments.number());
    const std::string kind = arguments.next();
    arguments.finish();
    if (name == "main") surfaces_.clear();
    surfaces_.push_back(std::make_unique<StageSurface>(name, width, height, kind));
    current_ = surfaces_.back().get();
}

Result play(const Script& script) {
    Stage stage;
    for (const Line& line : script.lines) {
        try {
            stage.play(line);
        } catch (const std::exception& problem) {
            throw std::runtime_error(script.name + ", line " + std::to_string(line.number) + ": " +
                                     problem.what());
        }
    }
    std::vector<Picture> pictures = stage.pictures();
    return {script.name, stage.shown, std::move(pictures)};
}

} // namespace conformance
