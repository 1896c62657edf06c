#include "platform/linux/path.h"

#include "platform/linux/beziers.h"

namespace platform::driver {

void Path::begin() {
    *this = Path();
    stage_ = Stage::Open;
}

void Path::append(POINT point, BYTE type) {
    points_.push_back(point);
    types_.push_back(type);
}

void Path::addTo(POINT position, std::span<const POINT> points, BYTE type) {
    if (startsFigure_) append(position, PT_MOVETO);
    startsFigure_ = false;
    for (const POINT& p : points)
        append(p, type);
}

void Path::add(std::span<const POINT> points, BYTE type, bool closed) {
    for (std::size_t i = 0; i < points.size(); ++i)
        append(points[i], i == 0 ? PT_MOVETO : type);
    if (closed) closeFigure();
    startsFigure_ = true;
}

void Path::add(std::span<const POINT> points, std::span<const BYTE> types) {
    points_.insert(points_.end(), points.begin(), points.end());
    types_.insert(types_.end(), types.begin(), types.end());
    startsFigure_ = true;
}

void Path::closeFigure() {
    if (!types_.empty() && types_.back() != PT_MOVETO) types_.back() |= PT_CLOSEFIGURE;
    startsFigure_ = true;
}

void Path::flatten() {
    std::vector<POINT> points;
    std::vector<BYTE> types;
    for (std::size_t i = 0; i < points_.size(); ++i) {
        if ((types_[i] & ~PT_CLOSEFIGURE) != PT_BEZIERTO || i + 2 >= points_.size()) {
            points.push_back(points_[i]);
            types.push_back(types_[i]);
            continue;
        }
        const std::size_t before = points.size();
        addBezier({points_[i - 1], points_[i], points_[i + 1], points_[i + 2]}, points);
        types.resize(types.size() + points.size() - before, PT_LINETO);
        i += 2;
        types.back() |= types_[i] & PT_CLOSEFIGURE;
    }
    points_ = std::move(points);
    types_ = std::move(types);
}

void Path::replace(const std::vector<Figure>& figures) {
    points_.clear();
    types_.clear();
    for (const Figure& figure : figures)
        add(figure.points, PT_LINETO, figure.closed);
}

std::vector<Figure> Path::figures() const {
    Path flat = *this;
    flat.flatten();
    std::vector<Figure> result;
    for (std::size_t i = 0; i < flat.points_.size(); ++i) {
        if (flat.types_[i] == PT_MOVETO) result.emplace_back();
        result.back().points.push_back(flat.points_[i]);
        if (flat.types_[i] & PT_CLOSEFIGURE) result.back().closed = true;
    }
    return result;
}

} // namespace platform::driver
