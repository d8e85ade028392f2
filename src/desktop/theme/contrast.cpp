#include "desktop/theme/contrast.h"

#include <algorithm>
#include <cmath>

namespace plimo {

namespace {

double linear(int channel) {
  const double part = channel / 255.0;
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

}  // namespace

Rgb rgbOf(Colour colour) {
  const auto channel = [colour](int shift) { return static_cast<int>((colour >> shift) & 0xFF); };
  return {channel(0), channel(8), channel(16)};
}

Rgb rgbOf(const QColor& colour) { return {colour.red(), colour.green(), colour.blue()}; }

QColor qcolor(Rgb colour) { return {colour.red, colour.green, colour.blue}; }

double luminance(Rgb colour) {
  return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

double contrast(Rgb one, Rgb other) {
  const auto [low, high] = std::minmax({luminance(one), luminance(other)});  // by value: the pair of two would dangle
  return (high + 0.05) / (low + 0.05);
}

Rgb mix(Rgb first, Rgb second, double share) {
  const auto channel = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
  return {channel(first.red, second.red), channel(first.green, second.green), channel(first.blue, second.blue)};
}

Rgb readableOn(Rgb background) { return contrast(white, background) >= contrast(black, background) ? white : black; }

Rgb readable(Rgb wanted, Rgb background, double wantedContrast) {
  const Rgb end = readableOn(background);
  constexpr int steps = 20;
  for (int step = 0; step < steps; ++step) {
    const Rgb candidate = mix(wanted, end, static_cast<double>(step) / steps);
    if (contrast(candidate, background) >= wantedContrast) return candidate;
  }
  return end;
}

}  // namespace plimo
