// What plays, in the large view: the song's row, and the controls in the place of a player that is not shown.
#include "catalogue/song_name.h"
#include "desktop/theme/strings.h"
#include "desktop/widgets/list_view.h"
#include "desktop/widgets/player_strip.h"
#include "desktop/window/form_canvas.h"
#include "desktop/window/form_window.h"
#include "platform/player/playlist_player.h"
#include "window/form1_controls.h"

namespace plimo {

void FormWindow::followPlayer() {
  playing_ = player_.observe({[this] { showPlaying(); }, {}});
}

void FormWindow::showPlaying() {
  if (controls_ == nullptr) return;
  const PlaylistPlayer::State& state = player_.state();
  std::string song;
  if (state.opened) song = displayName(splitFileName(state.song).title).value_or(std::string_view());
  for (const ListBox* list : {&controls_->List4, &controls_->List6}) {
    // A list of as many songs is the one that plays, unless names tell otherwise.
    const bool same = list->count() == state.count;
    listView(*list).setPlaying(song, same ? std::optional(state.index) : std::nullopt);
  }
  showHiddenPlayer();
}

void FormWindow::showHiddenPlayer() {
  const std::optional<QRect> place = player_.state().opened ? canvas_->emptyPlayerPlace() : std::nullopt;
  if (!place) {
    if (hiddenPlayer_ != nullptr) hiddenPlayer_->hide();
    return;
  }
  if (hiddenPlayer_ == nullptr) {
    hiddenPlayer_ = new PlayerStrip(player_, canvas_);
    hiddenPlayer_->setHint(QStringLiteral("View \u203A Compact shows the player"));
  }
  hiddenPlayer_->setGeometry(*place);
  hiddenPlayer_->show();
}

}  // namespace plimo
