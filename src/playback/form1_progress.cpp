// The current song's length and the time played, in the caption.
#include "app/form1.h"
#include "playback/progress_text.h"

namespace plimo {

void Form1::MediaPlayer1_NewStream() {
  constexpr int tick = 900;  // milliseconds
  lengthtext = minutesAndSeconds(platform.player.duration());
  setCaption(lengthCaption(lengthtext));
  Timer1.setInterval(tick);
}

void Form1::Timer1_Timer() {
  setCaption(elapsedCaption(lengthtext, minutesAndSeconds(platform.player.currentPosition())));
}

}  // namespace plimo
