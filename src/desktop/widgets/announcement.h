// Texts that a screen reader reads aloud when they change, without having the keyboard focus.
#pragma once

class QLabel;

namespace plimo {

// Gives the label the role of a notification. To be called before assistive tools see it.
void markAsAnnounced(QLabel& label);
bool isAnnounced(const QLabel& label);
// To be called after its text has changed.
void announce(QLabel& label);

}  // namespace plimo
