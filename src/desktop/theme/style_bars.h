// Sliders, scroll bars and progress bars: where their parts are, and how the style paints them.
#pragma once

#include <QPainter>
#include <QStyle>
#include <QStyleOptionProgressBar>
#include <QStyleOptionSlider>

class QWidget;

namespace plimo {

int sliderHandleSize();  // pixels, width and height

// Parts of a horizontal slider: the groove runs from the handle's centre at the minimum to that at the maximum.
QRect sliderPart(const QStyleOptionSlider& option, QStyle::SubControl part);
// Paints those of the option's parts listed in its subControls: groove and handle, in the palette's highlight colour.
void paintSlider(QPainter& painter, const QStyleOptionSlider& option);

// Parts of a scroll bar, which has no arrow buttons.
QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part, const QWidget* widget);
// Paints the handle in the palette's Mid colour, Dark under the pointer; the rest is transparent.
void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QWidget* widget);

// Without a range (minimum and maximum are equal) a quarter of the bar moves to and fro with the time.
void paintProgressBar(QPainter& painter, const QStyleOptionProgressBar& option);

}  // namespace plimo
