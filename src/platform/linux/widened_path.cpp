#include "platform/linux/widened_path.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::driver {

namespace {

constexpr double pi = std::numbers::pi;
constexpr double quarter = pi / 2;

/// A half counts up, whatever the last digits of a sine.
constexpr double half = 0.5 + 1e-9;

/// A point at a distance and an angle, which grows from the x axis towards the y axis.
POINT pointAt(double x, double y, double angle, double distance) {
    return {static_cast<LONG>(std::floor(x + distance * std::cos(angle) + half)),
            static_cast<LONG>(std::floor(y + distance * std::sin(angle) + half))};
}

POINT pointAt(POINT p, double angle, double distance) {
    return pointAt(p.x, p.y, angle, distance);
}

/// Lines without length run to the right.
double angleOf(POINT from, POINT to) {
    return std::atan2(static_cast<double>(to.y) - from.y, static_cast<double>(to.x) - from.x);
}

/// Walks along one figure.
class Widener {
public:
    explicit Widener(const PenShape& pen)
        : pen_(pen), lesser_(pen.width / 2), greater_(pen.width - pen.width / 2) {}

    void add(const Figure& figure, std::vector<Figure>& out) {
        const std::vector<POINT>& points = figure.points;
        if (points.size() < 2) return;
        left_.clear();
        right_.clear();
        const std::size_t last = points.size() - 1;
        if (figure.closed) addJoint(points[last], points[0], points[1]);
        for (std::size_t i = 1; i < last; ++i)
            addJoint(points[i - 1], points[i], points[i + 1]);
        if (figure.closed) {
            addJoint(points[last - 1], points[last], points[0]);
            std::reverse(right_.begin(), right_.end());
            out.push_back({left_, false});
            out.push_back({right_, false});
            return;
        }
        // From the right side of the start over the left one to the end and back.
        Figure outline;
        addCap(points[0], angleOf(points[0], points[1]), outline.points);
        outline.points.insert(outline.points.end(), left_.begin(), left_.end());
        addCap(points[last], angleOf(points[last], points[last - 1]), outline.points);
        outline.points.insert(outline.points.end(), right_.rbegin(), right_.rend());
        out.push_back(std::move(outline));
    }

private:
    /// Round an end, clockwise. `inwards` is the way from it along the line.
    void addCap(POINT end, double inwards, std::vector<POINT>& out) const {
        if (pen_.cap == PS_ENDCAP_ROUND) {
            addRoundCap(end, inwards, out);
            return;
        }
        // The corners of a square cap lie an eighth of a turn farther back.
        const bool isSquare = pen_.cap == PS_ENDCAP_SQUARE;
        const double back = isSquare ? pi / 4 : 0;
        const double reach = isSquare ? std::numbers::sqrt2 : 1;
        out.push_back(pointAt(end, inwards + quarter + back, greater_ * reach));
        out.push_back(pointAt(end, inwards - quarter - back, lesser_ * reach));
    }

    /// Four curves whose controls count as corners. A cap that goes on from a side leaves its first point
    /// out.
    void addRoundCap(POINT end, double inwards, std::vector<POINT>& out) const {
        constexpr int curves = 4;
        constexpr double step = pi / curves;
        const double radius = pen_.width / 2.0;
        const double slant = std::atan(4.0 / 3.0 * std::tan(step / 4)); // of a control from the curve's end
        const double shift = (greater_ - lesser_) / 2.0;
        const auto add = [&](double angle, double distance) {
            out.push_back(pointAt(end.x + shift, end.y + shift, angle, distance));
        };
        double angle = inwards + quarter;
        if (out.empty()) add(angle, radius);
        for (int i = 0; i < curves; ++i, angle += step) {
            add(angle + slant, radius / std::cos(slant));
            add(angle + step - slant, radius / std::cos(slant));
            add(angle + step, radius);
        }
    }

    /// Both sides of a bend. There is none where the line turns back on itself.
    void addJoint(POINT before, POINT p, POINT after) {
        const double in = angleOf(before, p);
        const double out = angleOf(p, after);
        double turn = out - in;
        if (turn > pi) turn -= 2 * pi;
        if (turn <= -pi) turn += 2 * pi;
        if (turn == pi) return;
        const bool outerIsLeft = turn > 0;
        const double outer = outerIsLeft ? -quarter : quarter;
        std::vector<POINT>& innerSide = outerIsLeft ? right_ : left_;
        innerSide.push_back(pointAt(p, in - outer, lesser_));
        innerSide.push_back(pointAt(p, out - outer, lesser_));
        std::vector<POINT>& outerSide = outerIsLeft ? left_ : right_;
        const double middle = in + turn / 2 + outer;
        const double reach = 1 / std::cos(turn / 2);
        if (pen_.joint == PS_JOIN_MITER && reach <= pen_.miterLimit) {
            outerSide.push_back(pointAt(p, middle, greater_ * reach));
            return;
        }
        outerSide.push_back(pointAt(p, in + outer, greater_));
        if (pen_.joint == PS_JOIN_ROUND) outerSide.push_back(pointAt(p, middle, greater_));
        outerSide.push_back(pointAt(p, out + outer, greater_));
    }

    const PenShape& pen_;
    int lesser_;
    int greater_;
    std::vector<POINT> left_;
    std::vector<POINT> right_;
};

} // namespace

std::vector<Figure> widened(const std::vector<Figure>& figures, const PenShape& pen) {
    std::vector<Figure> outlines;
    Widener widener(pen);
    for (const Figure& figure : figures)
        widener.add(figure, outlines);
    return outlines;
}

} // namespace platform::driver
