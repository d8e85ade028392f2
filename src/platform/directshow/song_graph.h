// The DirectShow filters that play one song. Used on one thread, which has a message loop.
#pragma once

#include <dshow.h>

#include <optional>
#include <string>

#include "platform/directshow/com.h"

namespace plimo {

// With `none`, the song is decoded and time passes as if it sounded.
enum class SoundOutput { device, none };

// True if the computer has a sound device.
bool soundDeviceExists();
// True for the result of a call or event that says that the sound device does not work.
bool isSoundDeviceError(HRESULT result);

class SongGraph {
 public:
  SongGraph() = default;
  SongGraph(const SongGraph&) = delete;
  SongGraph& operator=(const SongGraph&) = delete;
  ~SongGraph();

  // Builds the filters for the regular file of this path, which is always opened as a file: names that look like an
  // address mean nothing. Other filters than those that decode sound are not used, so there is never a picture.
  HRESULT open(const std::wstring& path, SoundOutput output);
  // From now on `message` is sent to the window for each event; its lParam is `data`.
  void notify(HWND window, UINT message, LONG_PTR data);

  HRESULT run() { return control_->Run(); }
  HRESULT pause() { return control_->Pause(); }
  // True once the song is paused and its first sound has been decoded.
  bool isCued();
  // Seconds; 0 if unknown.
  double duration();
  double position();  // at most the duration
  bool seek(double seconds);
  // Hundredths of a decibel, -10000 (silent) to 0.
  void setVolume(long hundredths);

  struct Event {
    long code = 0;              // EC_COMPLETE and so on
    HRESULT firstValue = S_OK;  // of an EC_ERRORABORT: what has failed
  };
  std::optional<Event> nextEvent();

 private:
  HRESULT addSource(const std::wstring& path, ComPtr<IPin>& output);
  HRESULT renderToDevice(IPin& source);
  HRESULT renderToNothing(IPin& source);

  ComPtr<IGraphBuilder> graph_;
  ComPtr<IMediaControl> control_;
  ComPtr<IMediaSeeking> seeking_;
  ComPtr<IBasicAudio> audio_;
  ComPtr<IMediaEventEx> events_;
};

}  // namespace plimo
