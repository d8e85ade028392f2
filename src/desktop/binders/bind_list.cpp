#include <QHash>
#include <QPalette>

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
    if (list.secondaryText) view_->secondaryText = [this](std::size_t row) { return secondaryText(row); };
    list_.addRowObserver(*this);
  }
  ~ListBinder() override { list_.removeRowObserver(*this); }

  void propertyChanged(Property property) override { Binder::propertyChanged(property); }
  void rowsReset() override {
    secondaryTexts_.clear();
    view_->rowsChanged();
  }
  void rowsAppended(std::size_t first, std::size_t) override {
    secondaryTexts_.clear();
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
    palette.setColor(QPalette::WindowText, qcolor(colours.background));  // hides the toolkit's frame
    view_->setPalette(palette);
    view_->setColours(colours);
  }

 private:
  // A list in a panel that has the default colours is painted in those of the theme.
  bool ownColours() const {
    return list_.container() == nullptr || list_.foreColour() != 0 || list_.backColour() != 0xFFFFFF;
  }

  QString secondaryText(std::size_t row) {
    const std::string_view text = list_.text(row);
    const QByteArray key(text.data(), static_cast<qsizetype>(text.size()));
    const auto known = secondaryTexts_.constFind(key);
    return known != secondaryTexts_.constEnd() ? *known
                                               : *secondaryTexts_.insert(key, shownText(list_.secondaryText(text)));
  }

  ListBox& list_;
  ListView* view_;
  QHash<QByteArray, QString> secondaryTexts_;  // by the row's text; cleared when rows are added
};

}  // namespace

std::unique_ptr<Binder> bindList(ListBox& list, QWidget* parent) { return std::make_unique<ListBinder>(list, parent); }

}  // namespace plimo
