#include "platform/linux/font_catalog.h"

#include "platform/locale.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <unistd.h>

namespace platform::driver {

namespace {

/// Where the set-up's packages put their fonts. Looking here first spares the reading of all font folders.
constexpr const char* fontFolders[] = {
    "/usr/share/wine/fonts/",
    "/usr/share/fonts/truetype/liberation/",
    "/usr/share/fonts/truetype/liberation2/",
    "/usr/share/fonts/truetype/dejavu/",
};

/// The four styles of a family: regular, bold, italic, bold italic. An empty name is made from another style.
struct FamilyFiles {
    const char16_t* name;
    FontFamily family;
    std::array<const char*, 4> files;
};

constexpr std::array<const char*, 4> liberationSans = {"LiberationSans-Regular.ttf",
                                                       "LiberationSans-Bold.ttf", "LiberationSans-Italic.ttf",
                                                       "LiberationSans-BoldItalic.ttf"};
constexpr std::array<const char*, 4> liberationSerif = {
    "LiberationSerif-Regular.ttf", "LiberationSerif-Bold.ttf", "LiberationSerif-Italic.ttf",
    "LiberationSerif-BoldItalic.ttf"};
constexpr std::array<const char*, 4> liberationMono = {"LiberationMono-Regular.ttf",
                                                       "LiberationMono-Bold.ttf", "LiberationMono-Italic.ttf",
                                                       "LiberationMono-BoldItalic.ttf"};
constexpr std::array<const char*, 4> dejavuSans = {"DejaVuSans.ttf", "DejaVuSans-Bold.ttf",
                                                   "DejaVuSans-Oblique.ttf", "DejaVuSans-BoldOblique.ttf"};
constexpr std::array<const char*, 4> dejavuMono = {"DejaVuSansMono.ttf", "DejaVuSansMono-Bold.ttf",
                                                   "DejaVuSansMono-Oblique.ttf",
                                                   "DejaVuSansMono-BoldOblique.ttf"};
constexpr std::array<const char*, 4> tahoma = {"tahoma.ttf", "tahomabd.ttf", "", ""};

/// The platform's families, as programs name them.
constexpr FamilyFiles platformFamilies[] = {
    {u"MS Sans Serif", FontFamily::Sans, {"sserife.fon", "", "", ""}},
    {u"Tahoma", FontFamily::Sans, tahoma},
    {u"Arial", FontFamily::Sans, liberationSans},
    {u"Times New Roman", FontFamily::Serif, liberationSerif},
    {u"Courier New", FontFamily::Fixed, liberationMono},
    {u"Verdana", FontFamily::Sans, dejavuSans},
    {u"Courier", FontFamily::Fixed, {"coure.fon", "", "", ""}},
    {u"System", FontFamily::Sans, {"", "vgasys.fon", "", ""}},
    {u"Fixedsys", FontFamily::Fixed, {"vgafix.fon", "", "", ""}},
    {u"Small Fonts", FontFamily::Sans, {"smalle.fon", "", "", ""}},
    {u"Georgia", FontFamily::Serif, liberationSerif},
    {u"Consolas", FontFamily::Fixed, dejavuMono},
    {u"Lucida Console", FontFamily::Fixed, dejavuMono},
    {u"Symbol", FontFamily::Decorative, {"symbol.ttf", "", "", ""}},
    {u"Marlett", FontFamily::Decorative, {"marlett.ttf", "", "", ""}},
    {u"Webdings", FontFamily::Decorative, {"webdings.ttf", "", "", ""}},
    {u"Wingdings", FontFamily::Decorative, {"wingding.ttf", "", "", ""}},
};

/// Families that stand in when a name is unknown.
constexpr FamilyFiles defaultFamilies[] = {
    {u"Liberation Sans", FontFamily::Sans, liberationSans},
    {u"Liberation Serif", FontFamily::Serif, liberationSerif},
    {u"Liberation Mono", FontFamily::Fixed, liberationMono},
};

/// Names that mean another family of the table.
struct Alias {
    const char16_t* name;
    const char16_t* family;
};

constexpr Alias aliases[] = {
    {u"MS Shell Dlg", u"Tahoma"}, {u"MS Shell Dlg 2", u"Tahoma"},   {u"Helv", u"MS Sans Serif"},
    {u"Helvetica", u"Arial"},     {u"Tms Rmn", u"Times New Roman"}, {u"Times", u"Times New Roman"},
};

char16_t folded(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

bool sameName(std::u16string_view a, std::u16string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return folded(x) == folded(y); });
}

std::string pathOf(const char* file) {
    for (const char* folder : fontFolders) {
        std::string path = std::string(folder) + file;
        if (::access(path.c_str(), R_OK) == 0) return path;
    }
    return {};
}

const FamilyFiles* platformFamily(std::u16string_view name) {
    for (const Alias& alias : aliases)
        if (sameName(alias.name, name)) return platformFamily(alias.family);
    for (const FamilyFiles& family : platformFamilies)
        if (sameName(family.name, name)) return &family;
    for (const FamilyFiles& family : defaultFamilies)
        if (sameName(family.name, name)) return &family;
    return nullptr;
}

constexpr std::size_t boldStyle = 1;
constexpr std::size_t italicStyle = 2;

/// The file for a style of a family, or one that can be made into it.
bool chooseStyle(const FamilyFiles& family, bool bold, bool italic, FontSource& source) {
    const std::size_t wanted = (bold ? boldStyle : 0) + (italic ? italicStyle : 0);
    // First the style itself, then the upright one of the weight, then the slanted one, then whatever there
    // is.
    const std::size_t order[] = {wanted, wanted & boldStyle, wanted & italicStyle, 0, boldStyle};
    for (const std::size_t style : order) {
        const char* file = family.files[style];
        if (*file == 0) continue;
        source.path = pathOf(file);
        if (source.path.empty()) continue;
        source.family = family.family;
        source.isBold = (style & boldStyle) != 0;
        source.isItalic = (style & italicStyle) != 0;
        return true;
    }
    return false;
}

struct FcDeleter {
    void operator()(FcPattern* p) const { FcPatternDestroy(p); }
    void operator()(FcFontSet* p) const { FcFontSetDestroy(p); }
    void operator()(FcObjectSet* p) const { FcObjectSetDestroy(p); }
    void operator()(FcConfig* p) const { FcConfigDestroy(p); }
};

std::u16string textOf(FcPattern* pattern, const char* object) {
    FcChar8* text = nullptr;
    if (FcPatternGetString(pattern, object, 0, &text) != FcResultMatch) return {};
    return wideFromUtf8(reinterpret_cast<const char*>(text));
}

int numberOf(FcPattern* pattern, const char* object, int otherwise) {
    int value = otherwise;
    return FcPatternGetInteger(pattern, object, 0, &value) == FcResultMatch ? value : otherwise;
}

FontSource sourceOf(FcPattern* pattern) {
    FontSource source;
    FcChar8* path = nullptr;
    if (FcPatternGetString(pattern, FC_FILE, 0, &path) == FcResultMatch)
        source.path = reinterpret_cast<const char*>(path);
    source.index = numberOf(pattern, FC_INDEX, 0) & 0xFFFF;
    source.isBold = numberOf(pattern, FC_WEIGHT, FC_WEIGHT_REGULAR) >= FC_WEIGHT_DEMIBOLD;
    source.isItalic = numberOf(pattern, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
    if (numberOf(pattern, FC_SPACING, FC_PROPORTIONAL) >= FC_MONO) source.family = FontFamily::Fixed;
    source.faceName = textOf(pattern, FC_FAMILY);
    return source;
}

/// fontconfig's own settings file without the dozens of files that it includes: those hold rules for choosing
/// and rendering, which this catalogue does not ask for, and reading them takes longer than the whole start
/// of a program. What remains names the folders of fonts and of their caches.
std::string fontFolderSettings() {
    const char* named = std::getenv("FONTCONFIG_FILE");
    std::ifstream file(named && *named ? named : "/etc/fonts/fonts.conf");
    std::string settings((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    constexpr std::string_view closing = "</include>";
    for (std::size_t from; (from = settings.find("<include")) != std::string::npos;) {
        const std::size_t to = settings.find(closing, from);
        settings.erase(from, to == std::string::npos ? to : to + closing.size() - from);
    }
    return settings;
}

/// The fonts of the folders that the settings name; null if there are none, which leaves fontconfig's whole
/// configuration.
std::unique_ptr<FcConfig, FcDeleter> folderConfiguration() {
    const std::string settings = fontFolderSettings();
    std::unique_ptr<FcConfig, FcDeleter> config(FcConfigCreate());
    const auto* text = reinterpret_cast<const FcChar8*>(settings.c_str());
    if (!config || !FcConfigParseAndLoadFromMemory(config.get(), text, FcFalse) ||
        !FcConfigBuildFonts(config.get()))
        return {};
    const FcFontSet* fonts = FcConfigGetFonts(config.get(), FcSetSystem);
    if (!fonts || fonts->nfont == 0) return {};
    return config;
}

/// All outline fonts that fontconfig knows, read once.
const std::vector<FontEntry>& systemFonts() {
    static const std::vector<FontEntry> fonts = [] {
        std::vector<FontEntry> result;
        const std::unique_ptr<FcPattern, FcDeleter> all(FcPatternCreate());
        const std::unique_ptr<FcObjectSet, FcDeleter> objects(FcObjectSetBuild(
            FC_FAMILY, FC_STYLE, FC_FILE, FC_INDEX, FC_WEIGHT, FC_SLANT, FC_SPACING, FC_SCALABLE, nullptr));
        if (!all || !objects) return result;
        FcPatternAddBool(all.get(), FC_SCALABLE, FcTrue);
        const auto config = folderConfiguration();
        const std::unique_ptr<FcFontSet, FcDeleter> set(FcFontList(config.get(), all.get(), objects.get()));
        for (int i = 0; set && i < set->nfont; ++i) {
            FcPattern* pattern = set->fonts[i];
            result.push_back({textOf(pattern, FC_FAMILY), textOf(pattern, FC_STYLE), sourceOf(pattern)});
        }
        std::sort(result.begin(), result.end(), [](const FontEntry& a, const FontEntry& b) {
            return std::tie(a.family, a.style, a.source.path) < std::tie(b.family, b.style, b.source.path);
        });
        return result;
    }();
    return fonts;
}

/// How far a font is from the wanted weight and slant.
int distance(const FontEntry& entry, bool bold, bool italic) {
    const bool isPlainStyle = entry.style == u"Regular" || entry.style == u"Book" || entry.style == u"Bold" ||
                              entry.style == u"Italic" || entry.style == u"Oblique";
    return (entry.source.isBold != bold ? 4 : 0) + (entry.source.isItalic != italic ? 2 : 0) +
           (isPlainStyle ? 0 : 1);
}

bool chooseSystemFont(std::u16string_view name, bool bold, bool italic, FontSource& source) {
    const FontEntry* best = nullptr;
    for (const FontEntry& entry : systemFonts()) {
        if (!sameName(entry.family, name)) continue;
        if (!best || distance(entry, bold, italic) < distance(*best, bold, italic)) best = &entry;
    }
    if (best) source = best->source;
    return best != nullptr;
}

FontFamily familyOf(BYTE pitchAndFamily) {
    constexpr int pitchBits = 0x03;
    constexpr int familyBits = 0xF0;
    if ((pitchAndFamily & pitchBits) == FIXED_PITCH || (pitchAndFamily & familyBits) == FF_MODERN)
        return FontFamily::Fixed;
    return (pitchAndFamily & familyBits) == FF_ROMAN ? FontFamily::Serif : FontFamily::Sans;
}

bool chooseDefault(BYTE pitchAndFamily, bool bold, bool italic, FontSource& source) {
    const FontFamily wanted = familyOf(pitchAndFamily);
    for (const FamilyFiles& family : defaultFamilies) {
        if (family.family == wanted && chooseStyle(family, bold, italic, source)) {
            source.faceName = family.name;
            return true;
        }
    }
    // None of the expected packages is there: any font is better than no text.
    for (const FontEntry& entry : systemFonts()) {
        if (wanted == FontFamily::Fixed && entry.source.family != FontFamily::Fixed) continue;
        if (chooseSystemFont(entry.family, bold, italic, source)) return true;
    }
    return !systemFonts().empty() && chooseSystemFont(systemFonts().front().family, bold, italic, source);
}

bool choose(const LOGFONTW& request, std::u16string_view name, bool bold, bool italic, FontSource& source) {
    if (name.empty()) return chooseDefault(request.lfPitchAndFamily, bold, italic, source);
    const FamilyFiles* family = platformFamily(name);
    if (family && chooseStyle(*family, bold, italic, source)) {
        source.faceName = name;
        return true;
    }
    if (chooseSystemFont(name, bold, italic, source)) return true;
    if (family) {
        const BYTE pitch = family->family == FontFamily::Fixed   ? FIXED_PITCH
                           : family->family == FontFamily::Serif ? FF_ROMAN
                                                                 : FF_SWISS;
        return chooseDefault(pitch, bold, italic, source);
    }
    return chooseDefault(request.lfPitchAndFamily, bold, italic, source);
}

void addPlatformFamilies(std::vector<FontEntry>& out) {
    for (const FamilyFiles& family : platformFamilies) {
        FontSource source;
        if (!chooseStyle(family, false, false, source)) continue;
        source.faceName = family.name;
        out.push_back({family.name, source.isBold ? u"Bold" : u"Regular", source});
    }
}

} // namespace

FontSource findFont(const LOGFONTW& request) {
    constexpr LONG boldFrom = 550; ///< Weights above the middle between normal and bold
    const bool bold = request.lfWeight > boldFrom;
    const bool italic = request.lfItalic != 0;
    FontSource source;
    if (!choose(request, request.lfFaceName, bold, italic, source)) return {};
    source.embolden = bold && !source.isBold;
    source.slant = italic && !source.isItalic;
    return source;
}

std::vector<FontEntry> listFonts(std::u16string_view family) {
    std::vector<FontEntry> all;
    addPlatformFamilies(all);
    const std::vector<FontEntry>& system = systemFonts();
    all.insert(all.end(), system.begin(), system.end());
    std::stable_sort(all.begin(), all.end(),
                     [](const FontEntry& a, const FontEntry& b) { return a.family < b.family; });
    std::vector<FontEntry> result;
    for (const FontEntry& entry : all) {
        if (!family.empty()) {
            if (sameName(entry.family, family)) result.push_back(entry);
        } else if (result.empty() || result.back().family != entry.family) {
            result.push_back(entry);
        } else if (distance(entry, false, false) < distance(result.back(), false, false)) {
            result.back() = entry;
        }
    }
    return result;
}

} // namespace platform::driver
