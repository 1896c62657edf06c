#include "conformance/Stage.h"

#include "automation/LateBound.h"
#include "conformance/Words.h"
#include "conformance/calls.h"
#include "host/Clipboard.h"
#include "host/StdFont.h"

#include <algorithm>

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
    addSurface({"surface", "main", std::to_string(mainSize), std::to_string(mainSize), "32"});
}

Stage::~Stage() {
    objects_.clear();
    places_.clear();
    boxes_.clear();
    surfaces_.clear();
    for (const std::uint32_t object : owned_)
        DeleteObject(HGDIOBJ(object));
}

void Stage::play(const Line& line) {
    const bool show = line.words[0] == "show";
    const std::size_t first = show ? 1 : 0;
    const std::string& word = line.words.at(first);
    static const std::map<std::string, void (Stage::*)(const std::vector<std::string>&)> verbs = {
        {"surface", &Stage::addSurface}, {"canvas", &Stage::addCanvas},        {"box", &Stage::addBox},
        {"font", &Stage::addFont},       {"clipboard", &Stage::readClipboard},
    };
    if (const auto verb = verbs.find(word); verb != verbs.end()) {
        (this->*verb->second)(line.words);
    } else if (word == "on") {
        goTo(line.words.at(1));
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
    for (const StageBox& box : boxes_)
        result.push_back(box.picture());
    return result;
}

tesela::cCanvas& Stage::canvas() {
    StagePlace& place = places_[current_];
    if (place.canvas) return *place.canvas;
    auto canvas = automation::make<tesela::cCanvas>();
    // The caller's context: the canvas draws on the surface itself.
    const SIZE size = place.surface->size();
    automation::callMethod(*canvas, u"Configure", static_cast<std::int32_t>(place.surface->dc().value), 0, 0,
                           size.cx, size.cy, tesela::DCProvider_User, true);
    place.canvas = canvas;
    return *place.canvas;
}

std::uint32_t Stage::handle(const std::string& word) const {
    if (const auto found = handles_.find(word); found != handles_.end()) return found->second;
    if (const StagePlace* found = place(word)) return found->dc().value;
    const std::vector<std::string> words{word};
    return static_cast<std::uint32_t>(Words(words).number());
}

const automation::Ref<automation::Object>* Stage::object(const std::string& word) const {
    const auto found = objects_.find(word);
    return found == objects_.end() ? nullptr : &found->second;
}

void Stage::name(const std::string& name, std::uint32_t handle, bool owned) {
    handles_[name] = handle;
    if (owned) owned_.push_back(handle);
}

void Stage::name(const std::string& name, automation::Ref<automation::Object> object) {
    objects_[name] = std::move(object);
}

void Stage::letGo(std::uint32_t handle) {
    std::erase(owned_, handle);
}

const StagePlace* Stage::place(const std::string& name) const {
    const auto found = std::find_if(places_.begin(), places_.end(),
                                    [&](const StagePlace& place) { return place.name == name; });
    return found == places_.end() ? nullptr : &*found;
}

void Stage::goTo(const std::string& name) {
    const StagePlace* found = place(name);
    if (!found) throw std::runtime_error("there is no surface or canvas '" + name + "'");
    current_ = static_cast<std::size_t>(found - places_.data());
}

/// A surface named main, said before anything is drawn, takes the place of the first one.
void Stage::addSurface(const std::vector<std::string>& words) {
    Words arguments(words, 1);
    const std::string name = arguments.next();
    const int width = static_cast<int>(arguments.number());
    const int height = static_cast<int>(arguments.number());
    const std::string kind = arguments.next();
    arguments.finish();
    if (name == "main") {
        places_.clear();
        surfaces_.clear();
    }
    surfaces_.push_back(std::make_unique<StageSurface>(name, width, height, kind));
    places_.push_back({name, surfaces_.back().get(), {}});
    current_ = places_.size() - 1;
}

void Stage::addCanvas(const std::vector<std::string>& words) {
    Words arguments(words, 1);
    const std::string name = arguments.next();
    arguments.finish();
    places_.push_back({name, nullptr, automation::make<tesela::cCanvas>()});
    objects_[name] = places_.back().canvas;
    current_ = places_.size() - 1;
}

void Stage::addBox(const std::vector<std::string>& words) {
    Words arguments(words, 1);
    const std::string name = arguments.next();
    const int width = static_cast<int>(arguments.number());
    const int height = static_cast<int>(arguments.number());
    arguments.finish();
    boxes_.emplace_back(name, width, height);
    objects_[name] = boxes_.back().object();
}

/// Properties follow by their names: font heading Name "Arial" Size 12 Bold True
void Stage::addFont(const std::vector<std::string>& words) {
    Words arguments(words, 1);
    const std::string name = arguments.next();
    const auto font = automation::make<host::StdFont>();
    while (!arguments.done()) {
        const std::string property = arguments.next();
        const std::string value = arguments.next();
        const bool isText = value[0] == '"';
        automation::letProperty(*font, std::u16string(property.begin(), property.end()),
                                automation::String(std::u16string(value.begin() + isText, value.end())));
    }
    objects_[name] = font;
}

/// The picture on the clipboard, in one of its formats.
void Stage::readClipboard(const std::vector<std::string>& words) {
    Words arguments(words, 1);
    const std::string name = arguments.next();
    objects_[name] = host::Clipboard::GetData(static_cast<host::ClipboardFormat>(arguments.number()));
    arguments.finish();
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
