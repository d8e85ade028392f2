#include "desktop/binders/binder.h"
#include "desktop/widgets/player_strip.h"

namespace plimo {

namespace {

class PlayerBinder : public Binder {
 public:
  PlayerBinder(Control& control, MpvPlayer& player, QWidget* parent)
      : Binder(control, new PlayerStrip(player, parent)) {}

  // The strip's own buttons take the keyboard, each by itself.
  QWidget* focusTarget() const override { return nullptr; }

 protected:
  void changed(Property) override {}

 private:
  ObserverScope observerScope_{control(), *this};
};

}  // namespace

std::unique_ptr<Binder> bindPlayer(Control& control, MpvPlayer& player, QWidget* parent) {
  return std::make_unique<PlayerBinder>(control, player, parent);
}

}  // namespace plimo
