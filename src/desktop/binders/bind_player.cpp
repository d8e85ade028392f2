#include "desktop/binders/binder.h"
#include "desktop/widgets/player_strip.h"

namespace plimo {

namespace {

class PlayerBinder : public Binder {
 public:
  PlayerBinder(Control& control, PlaylistPlayer& player, QWidget* parent)
      : Binder(control, new PlayerStrip(player, parent)) {}

  // The strip's buttons take the keyboard focus, each by itself.
  QWidget* focusTarget() const override { return nullptr; }

 protected:
  void changed(Property) override {}
};

}  // namespace

std::unique_ptr<Binder> bindPlayer(Control& control, PlaylistPlayer& player, QWidget* parent) {
  return makeBinder<PlayerBinder>(control, player, parent);
}

}  // namespace plimo
