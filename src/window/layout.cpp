#include "window/layout.h"

#include <cmath>

#include "base/errors.h"

namespace plimo {

Ratio ratioOf(const Geometry& geometry, double windowWidth, double windowHeight) {
  return {static_cast<float>(geometry.width / windowWidth), static_cast<float>(geometry.left / windowWidth),
          static_cast<float>(geometry.height / windowHeight), static_cast<float>(geometry.top / windowHeight)};
}

Geometry geometryFor(const Ratio& ratio, double windowWidth, double windowHeight) {
  return {windowWidth * static_cast<double>(ratio.left), windowHeight * static_cast<double>(ratio.top),
          windowWidth * static_cast<double>(ratio.width), windowHeight * static_cast<double>(ratio.height)};
}

bool hasGeometry(ControlKind kind) { return kind != ControlKind::timer && kind != ControlKind::menu; }

WindowSize compactSize(double playerWidth, double playerHeight) {
  return {playerWidth + playerWidth / 40, 2 * playerHeight};
}

std::int16_t wholeMeasure(double measure) {
  const double whole = std::nearbyint(measure);
  if (!(whole >= INT16_MIN && whole <= INT16_MAX)) throw RuntimeError(ErrorNumber::overflow);
  return static_cast<std::int16_t>(whole);
}

}  // namespace plimo
