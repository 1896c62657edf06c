#pragma once
// Paths: lines and curves that BeginPath collects, in surface coordinates.

#include "platform/gdi_types.h"

#include <span>
#include <vector>

namespace platform::driver {

/// The points of one figure once its curves are lines.
struct Figure {
    std::vector<POINT> points;
    bool closed = false;
};

class Path {
public:
    bool isOpen() const { return stage_ == Stage::Open; }
    bool isReady() const { return stage_ == Stage::Ready; }
    const std::vector<POINT>& points() const { return points_; }
    const std::vector<BYTE>& types() const { return types_; }

    void begin();
    void end() { stage_ = Stage::Ready; }
    void drop() { *this = Path(); }

    /// The next line begins a figure at the current position.
    void move() { startsFigure_ = true; }
    /// Lines or curves that go on from `position`.
    void addTo(POINT position, std::span<const POINT> points, BYTE type);
    /// A figure of its own, after which the next line begins another one.
    void add(std::span<const POINT> points, BYTE type, bool closed);
    /// A figure of its own with a type for each point, the first of them PT_MOVETO.
    void add(std::span<const POINT> points, std::span<const BYTE> types);
    /// One more point of the figure that was added last.
    void continueWith(POINT point, BYTE type) { append(point, type); }
    void closeFigure();

    void flatten();
    /// Replaces everything by figures of lines.
    void replace(const std::vector<Figure>& figures);
    std::vector<Figure> figures() const;

private:
    enum class Stage { None, Open, Ready };

    void append(POINT point, BYTE type);

    Stage stage_ = Stage::None;
    bool startsFigure_ = true;
    std::vector<POINT> points_;
    std::vector<BYTE> types_;
};

} // namespace platform::driver
