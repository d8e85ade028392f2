#include <QHash>
#include <optional>

#include "desktop/binders/binder.h"
#include "desktop/theme/contrast.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/theme.h"
#include "desktop/widgets/list_view.h"

namespace plimo {

namespace {

ListColours themeColours() {
  ListColours colours;
  colours.text = rgbOf(theme().text);
  colours.background = rgbOf(theme().field);
  colours.quiet = rgbOf(theme().quiet);
  colours.mark = rgbOf(theme().accent);
  colours.selectedText = rgbOf(theme().onAccent);
  colours.selectedBackground = rgbOf(theme().accent);
  colours.currentBackground = rgbOf(theme().buttonHover);
  return colours;
}

class ListBinder : public Binder, public ListObserver {
 public:
  ListBinder(ListBox& list, QWidget* parent)
      : Binder(list, new ListView(list, parent)), list_(list), view_(static_cast<ListView*>(widget())) {
    view_->setAutoFillBackground(true);
    list_.addRowObserver(*this);
    // A letter alone says little: the root folder is shown next to each drive.
    if (list.name() == "List5" || list.name() == "List7")
      view_->secondaryText = [this](std::size_t row) { return root(row); };
  }
  ~ListBinder() override { list_.removeRowObserver(*this); }

  void propertyChanged(Property property) override { Binder::propertyChanged(property); }
  void rowsReset() override {
    roots_.reset();
    view_->rowsChanged();
  }
  void rowsAppended(std::size_t first, std::size_t) override {
    roots_.reset();
    view_->rowsAppended(first);
  }
  void rowsRemoved(std::size_t, std::size_t) override { view_->rowsChanged(); }
  void selectionChanged() override { view_->selectionChanged(); }
  void currentChanged() override { view_->currentChanged(); }
  void topChanged() override { view_->topChanged(); }

 protected:
  void changed(Property property) override {
    if (property != Property::colours) return;
    const ListColours colours = ownColours() ? listColours(list_.foreColour(), list_.backColour()) : themeColours();
    QPalette palette = view_->palette();
    palette.setColor(QPalette::Window, qcolor(colours.background));
    palette.setColor(QPalette::WindowText, qcolor(colours.background));  // the frame as the toolkit draws it
    view_->setPalette(palette);
    view_->setColours(colours);
  }

 private:
  // A list in a panel as plain as it was made wears the window's look.
  bool ownColours() const {
    return list_.container() == nullptr || list_.foreColour() != 0 || list_.backColour() != 0xFFFFFF;
  }

  // The root folder of the drive whose letter the row begins with.
  QString root(std::size_t row) {
    if (!roots_) {
      roots_.emplace();
      const auto* drives = static_cast<const DriveList*>(list_.form().find("Drive2"));
      for (const DriveList::Entry& entry : drives->source()) roots_->insert(entry.letter, qstring(entry.root));
    }
    const std::string_view text = list_.text(row);
    return text.empty() ? QString() : roots_->value(text.front());
  }

  ListBox& list_;
  ListView* view_;
  std::optional<QHash<char, QString>> roots_;  // by drive letter, as when the rows were filled
};

}  // namespace

std::unique_ptr<Binder> bindList(ListBox& list, QWidget* parent) { return std::make_unique<ListBinder>(list, parent); }

}  // namespace plimo
