// How the controls follow the size of the window.
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
// The geometry for a window of this inner size.
Geometry geometryFor(const Ratio& ratio, double windowWidth, double windowHeight);

// False for timers and menus.
bool hasGeometry(ControlKind kind);

struct WindowSize {
  double width = 0;
  double height = 0;
};

// The outer size of the compact window for a player of this size, in twips; leaves room for frame, title and menu bar.
WindowSize compactSize(double playerWidth, double playerHeight);

// A measure rounded to a whole number, ties to even. Throws RuntimeError 6 beyond 16 bits.
std::int16_t wholeMeasure(double measure);

}  // namespace plimo
