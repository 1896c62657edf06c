#pragma once
// Drawing scripts: a small text language, one call a line.
//
//     # a comment
//     surface SOURCE 40 30 1          a surface of 1, 4, 8, 16, 24 or 32 bits, which is then drawn on
//     on main                         draws on another one; `main` (64 x 64, 32 bits) is there from the start
//     Ellipse 3 4 20 30               a member of cCanvas, on the surface
//     pen = CreatePen 0 3 0xFF        its result by name for later lines: a handle or an object
//     TextAlign = 6                   writes a property
//     gdi SetMapMode 8                a function of platform/gdi.h, on the surface's context
//     gdi red = CreateSolidBrush 0xFF an object with a name, for later lines; it is freed at the end
//     show gdi GetClipBox             the results are compared too, not the pixels alone
//     canvas own                      a canvas that nothing has configured yet, which is then drawn on
//     box frame 40 30                 a picture box
//     font heading Name "Arial" Size 9  a font object
//     clipboard copied 8              the picture on the clipboard in that format
//
// Words are separated by blanks; text stands between quotes, lists between brackets.

#include <filesystem>
#include <string>
#include <vector>

namespace conformance {

struct Line {
    int number = 0; ///< In the file, from 1
    std::vector<std::string> words;
};

struct Script {
    std::string name; ///< "Ellipse/flat": folder and file without extension
    std::vector<Line> lines;
};

Script parseScript(std::string name, const std::string& text);

/// All `.draw` files below a folder, by name.
std::vector<Script> readScripts(const std::filesystem::path& folder);

} // namespace conformance
