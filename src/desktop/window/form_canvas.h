// The background of a window, on which its controls are placed. In the main window it paints the headings over the
// lists, a hint in place of the player, and the colour that the sliders mix. It only reads the models.
#pragma once

#include <QByteArray>
#include <QWidget>
#include <optional>

#include "window/form1_controls.h"

namespace plimo {

class FormCanvas : public QWidget {
 public:
  // Null for a window with nothing but a plain background. The controls must outlive the canvas.
  explicit FormCanvas(const Form1Controls* controls);

  // Repaints if what the painting depends on has changed. `compact`: only the player is visible.
  void refresh(bool compact);
  // How many rows a list with a heading has: "5 songs  ·  2 selected".
  QString countText(const ListBox& list) const;
  bool counts(const ListBox& list) const;  // true for a list with a heading
  // Where the player is while it is shown; nullopt if it is shown or if something else covers its place.
  std::optional<QRect> emptyPlayerPlace() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Column;

  void paintHeading(QPainter& painter, const Column& column) const;
  void paintHint(QPainter& painter) const;
  void paintLogoUnderArtists(QPainter& painter) const;
  void paintLogoBesidePanel(QPainter& painter) const;
  void paintFirstRunBand(QPainter& painter) const;
  void paintMixedColour(QPainter& painter) const;
  QByteArray paintFingerprint() const;

  const Form1Controls* controls_;
  bool compact_ = false;
  QByteArray painted_;  // the fingerprint of what is on the screen
};

}  // namespace plimo
