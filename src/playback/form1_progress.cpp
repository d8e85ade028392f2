// The current song's length and the time played, in the caption.
#include "playback/progress_text.h"
#include "window/form1.h"

namespace plimo {

void Form1::MediaPlayer1_NewStream() {
  constexpr int tick = 900;  // milliseconds
  lengthText_ = minutesAndSeconds(platform.player.duration());
  setCaption(lengthCaption(lengthText_));
  Timer1.setInterval(tick);
}

void Form1::Timer1_Timer() {
  setCaption(elapsedCaption(lengthText_, minutesAndSeconds(platform.player.currentPosition())));
}

}  // namespace plimo
