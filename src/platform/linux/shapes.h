#pragma once
// What the calls for lines, shapes and paths have in common.

#include "platform/linux/lines.h"

namespace platform::driver {

/// Fills a region, in surface coordinates, with the context's brush under its drawing mode.
void fillWithBrush(DeviceContext& context, const Region& region);

/// The inside of figures by a fill mode; open ones count as closed.
Region figuresRegion(const std::vector<Figure>& figures, int fillMode, const RECT& bounds);

/// Fills what lies inside with the brush, but for what a wide pen will paint along the outlines.
void fillInside(DeviceContext& context, const Region& inside, const Stroke& stroke,
                const std::vector<Figure>& outlines);

/// Closed figures in brush and pen.
void drawFigures(DeviceContext& context, const std::vector<Figure>& figures);

/// Fills the inside of figures with the context's brush.
void fillFigures(DeviceContext& context, const std::vector<Figure>& figures);

/// A new region object.
HRGN addRegion(Region region);

} // namespace platform::driver
