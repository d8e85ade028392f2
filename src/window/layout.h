// How the window's controls follow its size.
#pragma once

#include <cstdint>

#include "controls/control.h"

namespace plimo {

// A control's geometry as fractions of the window's inner size.
struct Ratio {
  float width = 0;
  float left = 0;
  float height = 0;
  float top = 0;
};

Ratio ratioOf(const Geometry& geometry, double windowWidth, double windowHeight);
// The geometry that the ratio stands for in a window of this inner size.
Geometry geometryFor(const Ratio& ratio, double windowWidth, double windowHeight);

// Timers and menus have no geometry on the window.
bool hasGeometry(ControlKind kind);

struct WindowSize {
  double width = 0;
  double height = 0;
};

// The outer size of the window around a player of this size, in twips: it leaves room for frame, title and menu bar.
WindowSize compactSize(double playerWidth, double playerHeight);

// A measure as a whole number, halves to the even neighbour. Throws RuntimeError 6 beyond 16 bits.
std::int16_t wholeMeasure(double measure);

}  // namespace plimo
