// What the style paints for each kind of widget.
#pragma once

#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionMenuItem>

class QWidget;

namespace plimo {

// Converts pixels as designed to those of the widget's window: dialogs and menus follow the screen's scale, everything
// else the main window's. At least 1.
int scaledFor(const QWidget* widget, int pixels);

// The rounded rectangle of a card; also the background of the player.
void paintCard(QPainter& painter, const QRect& rect);
// A card with a title above its topmost child.
void paintTitledCard(QPainter& painter, const QRect& rect, const QString& title, const QWidget& card);
// The background and frame of a field, a box that drops down, or a list.
void paintField(QPainter& painter, const QRect& rect, bool focused, const QWidget* widget);
void paintDownArrow(QPainter& painter, const QRect& rect, const QWidget* widget);
// A button in its palette's colours; the theme's button colour also has the theme's colours for hover and press.
void paintPushButton(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget);
void paintToolButtonPanel(QPainter& painter, const QStyleOption& option, const QWidget* widget);
// A check box or an option button: the mark and a caption of as many lines as fit.
void paintChoice(QPainter& painter, const QStyleOptionButton& option, bool round);
int choiceMarkSize();  // pixels
void paintMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& option, const QWidget* widget);
void paintMenuBarBackground(QPainter& painter, const QRect& rect);

}  // namespace plimo
