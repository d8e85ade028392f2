// The requests to end that come from outside of the window: SIGTERM, SIGINT, and the end of the session.
#pragma once

#include <QObject>
#include <functional>

namespace plimo {

class EndSignals : public QObject {
 public:
  // Calls `requested` from the event loop. One object at a time.
  explicit EndSignals(std::function<void()> requested);
  ~EndSignals() override;
};

}  // namespace plimo
