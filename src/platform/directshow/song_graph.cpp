#include "platform/directshow/song_graph.h"

#include <qedit.h>

#include <algorithm>
#include <cmath>

namespace plimo {

namespace {

constexpr double unitsPerSecond = 1e7;  // IMediaSeeking counts in 100 nanoseconds

// Both are part of Windows; mingw-w64 only declares their interfaces.
constexpr CLSID sampleGrabber = {0xC1F400A0, 0x3F08, 0x11D3, {0x9F, 0x0B, 0x00, 0x60, 0x08, 0x03, 0x9E, 0x37}};
constexpr CLSID nullRenderer = {0xC1F400A4, 0x3F08, 0x11D3, {0x9F, 0x0B, 0x00, 0x60, 0x08, 0x03, 0x9E, 0x37}};

template <class Interface>
HRESULT create(const CLSID& type, ComPtr<Interface>& result) {
  return ::CoCreateInstance(type, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(result.ReleaseAndGetAddressOf()));
}

HRESULT addFilter(IGraphBuilder& graph, const CLSID& type, const wchar_t* name, ComPtr<IBaseFilter>& result) {
  const HRESULT created = create(type, result);
  return FAILED(created) ? created : graph.AddFilter(result.Get(), name);
}

ComPtr<IPin> pinOf(IBaseFilter& filter, PIN_DIRECTION wanted) {
  ComPtr<IEnumPins> pins;
  if (FAILED(filter.EnumPins(pins.GetAddressOf()))) return nullptr;
  ComPtr<IPin> pin;
  while (pins->Next(1, pin.ReleaseAndGetAddressOf(), nullptr) == S_OK) {
    PIN_DIRECTION direction = wanted;
    if (SUCCEEDED(pin->QueryDirection(&direction)) && direction == wanted) return pin;
  }
  return nullptr;
}

}  // namespace

bool soundDeviceExists() { return ::waveOutGetNumDevs() > 0; }

bool isSoundDeviceError(HRESULT result) {
  constexpr long directSoundFacility = 0x878;
  return result == VFW_E_NO_AUDIO_HARDWARE || HRESULT_FACILITY(result) == directSoundFacility;
}

SongGraph::~SongGraph() {
  if (events_ != nullptr) events_->SetNotifyWindow(0, 0, 0);
  if (control_ != nullptr) control_->Stop();
}

HRESULT SongGraph::addSource(const std::wstring& path, ComPtr<IPin>& output) {
  ComPtr<IBaseFilter> source;
  HRESULT result = addFilter(*graph_.Get(), CLSID_AsyncReader, L"File", source);
  if (FAILED(result)) return result;
  const auto file = queryInterface<IFileSourceFilter>(source, IID_IFileSourceFilter);
  if (file == nullptr) return E_NOINTERFACE;
  result = file->Load(path.c_str(), nullptr);
  if (FAILED(result)) return result;
  output = pinOf(*source.Get(), PINDIR_OUTPUT);
  return output == nullptr ? VFW_E_NOT_FOUND : S_OK;
}

// Only to a renderer that is there already: otherwise DirectShow would open a window for a file with a picture.
HRESULT SongGraph::renderToDevice(IPin& source) {
  ComPtr<IBaseFilter> device;
  const HRESULT added = addFilter(*graph_.Get(), CLSID_DSoundRender, L"Sound", device);
  if (FAILED(added)) return VFW_E_NO_AUDIO_HARDWARE;
  const auto builder = queryInterface<IFilterGraph2>(graph_, IID_IFilterGraph2);
  if (builder == nullptr) return E_NOINTERFACE;
  const HRESULT rendered = builder->RenderEx(&source, AM_RENDEREX_RENDERTOEXISTINGRENDERERS, nullptr);
  if (FAILED(rendered)) return rendered;
  // Part of the file may have been rendered, to another renderer.
  ComPtr<IPin> connected;
  const ComPtr<IPin> input = pinOf(*device.Get(), PINDIR_INPUT);
  const bool sounds = input != nullptr && SUCCEEDED(input->ConnectedTo(connected.GetAddressOf()));
  return sounds ? S_OK : VFW_E_CANNOT_RENDER;
}

// The null renderer takes anything, even the bytes of the file; the sample grabber before it takes only decoded sound.
HRESULT SongGraph::renderToNothing(IPin& source) {
  ComPtr<IBaseFilter> grabber;
  HRESULT result = addFilter(*graph_.Get(), sampleGrabber, L"Decoded sound", grabber);
  if (FAILED(result)) return result;
  const auto settings = queryInterface<ISampleGrabber>(grabber, IID_ISampleGrabber);
  if (settings == nullptr) return E_NOINTERFACE;
  AM_MEDIA_TYPE type{};
  type.majortype = MEDIATYPE_Audio;
  type.subtype = MEDIASUBTYPE_PCM;
  result = settings->SetMediaType(&type);
  if (FAILED(result)) return result;
  const ComPtr<IPin> input = pinOf(*grabber.Get(), PINDIR_INPUT);
  if (input == nullptr) return VFW_E_NOT_FOUND;
  result = graph_->Connect(&source, input.Get());
  if (FAILED(result)) return result;
  ComPtr<IBaseFilter> renderer;
  result = addFilter(*graph_.Get(), nullRenderer, L"Silence", renderer);
  if (FAILED(result)) return result;
  const ComPtr<IPin> output = pinOf(*grabber.Get(), PINDIR_OUTPUT);
  const ComPtr<IPin> end = pinOf(*renderer.Get(), PINDIR_INPUT);
  return output == nullptr || end == nullptr ? VFW_E_NOT_FOUND
                                             : graph_->ConnectDirect(output.Get(), end.Get(), nullptr);
}

HRESULT SongGraph::open(const std::wstring& path, SoundOutput output) {
  HRESULT result = create(CLSID_FilterGraph, graph_);
  if (FAILED(result)) return result;
  ComPtr<IPin> source;
  result = addSource(path, source);
  if (FAILED(result)) return result;
  result = output == SoundOutput::device ? renderToDevice(*source.Get()) : renderToNothing(*source.Get());
  if (FAILED(result)) return result;
  control_ = queryInterface<IMediaControl>(graph_, IID_IMediaControl);
  seeking_ = queryInterface<IMediaSeeking>(graph_, IID_IMediaSeeking);
  events_ = queryInterface<IMediaEventEx>(graph_, IID_IMediaEventEx);
  audio_ = queryInterface<IBasicAudio>(graph_, IID_IBasicAudio);
  return control_ == nullptr || seeking_ == nullptr || events_ == nullptr ? E_NOINTERFACE : S_OK;
}

void SongGraph::notify(HWND window, UINT message, LONG_PTR data) {
  events_->SetNotifyWindow(reinterpret_cast<OAHWND>(window), static_cast<long>(message), data);
}

bool SongGraph::isCued() {
  OAFilterState state = State_Stopped;
  return control_->GetState(0, &state) == S_OK && state == State_Paused;
}

double SongGraph::duration() {
  LONGLONG units = 0;
  return SUCCEEDED(seeking_->GetDuration(&units)) ? static_cast<double>(units) / unitsPerSecond : 0;
}

double SongGraph::position() {
  LONGLONG units = 0;
  if (FAILED(seeking_->GetCurrentPosition(&units))) return 0;
  const double seconds = static_cast<double>(units) / unitsPerSecond;
  const double length = duration();
  return std::clamp(seconds, 0.0, length > 0 ? length : std::max(0.0, seconds));
}

bool SongGraph::seek(double seconds) {
  LONGLONG units = std::llround(seconds * unitsPerSecond);
  return SUCCEEDED(seeking_->SetPositions(&units, AM_SEEKING_AbsolutePositioning, nullptr, AM_SEEKING_NoPositioning));
}

void SongGraph::setVolume(long hundredths) {
  // Without a sound device there is nothing to set.
  if (audio_ != nullptr) audio_->put_Volume(hundredths);
}

std::optional<SongGraph::Event> SongGraph::nextEvent() {
  long code = 0;
  LONG_PTR first = 0;
  LONG_PTR second = 0;
  if (events_->GetEvent(&code, &first, &second, 0) != S_OK) return std::nullopt;
  const Event result{code, static_cast<HRESULT>(first)};
  events_->FreeEventParams(code, first, second);
  return result;
}

}  // namespace plimo
