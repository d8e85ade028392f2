// The player's controls: the song, the transport buttons, the position in the song and the volume.
#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>

#include "controls/control.h"

class QLabel;
class QSlider;
class QToolButton;

namespace plimo {

class PlaylistPlayer;
class SeekSlider;

class PlayerStrip : public QWidget {
  Q_OBJECT

 public:
  PlayerStrip(PlaylistPlayer& player, QWidget* parent);

  // Shown where the reasons for skipped songs are, as long as there are none.
  void setHint(const QString& hint);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QToolButton* addButton(const QString& name, const char* art, const QString& tip);
  void prepareSlider(QSlider& slider, const QString& name, const QString& meaning);
  void buildLayout();
  // Sizes that follow the strip's height and the window's scale.
  void applySizes();
  void showState();
  void showTexts();

  PlaylistPlayer& player_;
  QLabel* song_;
  QLabel* note_;
  QLabel* times_;
  QToolButton* previous_ = nullptr;
  QToolButton* play_ = nullptr;
  QToolButton* stop_ = nullptr;
  QToolButton* next_ = nullptr;
  QToolButton* mute_ = nullptr;
  SeekSlider* seek_;
  QSlider* volume_;
  QString hint_;
  bool updating_ = false;  // the sliders are moved by the player, not by the user
  QString shownPlayArt_;
  QString shownMuteArt_;
  std::shared_ptr<void> observation_;  // of the player
};

// Carries out a media key (Qt::Key_MediaPlay and the like), which a keyboard or the system sends. Returns false for any
// other key, and if the player takes no commands.
bool playByKey(PlaylistPlayer& player, int key);

}  // namespace plimo
