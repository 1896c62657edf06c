#pragma once
// Plays the records of an older metafile, whose numbers have 16 bits, on a context. Like those of enhanced
// metafiles they come from anywhere: one that contradicts itself is left out.

#include "platform/linux/metafile_records.h"

#include <variant>

namespace platform::driver {

class WmfPlayer {
public:
    /// `bytes` begin with the metafile's own header, not with the one that makes it placeable.
    WmfPlayer(HDC dc, std::span<const BYTE> bytes) : dc_(dc), bytes_(bytes) {}
    ~WmfPlayer();
    WmfPlayer(const WmfPlayer&) = delete;
    WmfPlayer& operator=(const WmfPlayer&) = delete;

    /// False when the header is broken.
    bool play();

private:
    /// The words after a record's number. What lies past their end is 0.
    class Words {
    public:
        explicit Words(std::span<const BYTE> bytes) : bytes_(bytes) {}
        std::size_t count() const { return bytes_.size() / 2; }
        /// As a number with a sign, by its place.
        int operator[](std::size_t index) const;
        DWORD dword(std::size_t index) const;
        std::span<const BYTE> from(std::size_t index) const;

    private:
        std::span<const BYTE> bytes_;
    };

    void playRecord(DWORD function, const Words& words);
    bool setState(DWORD function, const Words& words);
    bool setCoordinates(DWORD function, const Words& words);
    bool drawShape(DWORD function, const Words& words);
    bool makeObject(DWORD function, const Words& words);
    void drawPicture(DWORD function, const Words& words);

    std::vector<POINT> points(const Words& words, std::size_t first, std::size_t count) const;
    void drawPolyPolygon(const Words& words);
    void drawText(POINT at, UINT options, const RECT* rect, std::span<const BYTE> bytes);
    void addObject(HGDIOBJ object);
    void createFont(const Words& words);
    void drawDib(const RECT& target, const RECT& source, std::span<const BYTE> dib, DWORD rop,
                 bool fromBottom);

    HDC dc_;
    std::span<const BYTE> bytes_;
    std::vector<HGDIOBJ> objects_; ///< In the order of the metafile's table; none where one was deleted
    std::int64_t pixelsLeft_ = 1LL << 28;
    int saved_ = 0;
};

} // namespace platform::driver
