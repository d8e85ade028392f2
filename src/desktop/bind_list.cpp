#include <QScrollBar>

#include "desktop/binder.h"
#include "desktop/list_view.h"
#include "desktop/look.h"

namespace plimo {

namespace {

QString scrollBarSheet(const ListColours& colours) {
  return QStringLiteral(
             "QScrollBar { background: %1; width: 12px; margin: 0; border: none; }"
             "QScrollBar::handle { background: %2; border-radius: 4px; margin: 2px; min-height: 24px; }"
             "QScrollBar::handle:hover { background: %3; }"
             "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
             "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
      .arg(qcolor(colours.background).name(), qcolor(colours.quiet).name(), qcolor(colours.mark).name());
}

ListColours lookColours() {
  ListColours colours;
  colours.text = rgbOf(look().text);
  colours.background = rgbOf(look().field);
  colours.quiet = rgbOf(look().quiet);
  colours.mark = rgbOf(look().accent);
  colours.selectedText = rgbOf(look().onAccent);
  colours.selectedBackground = rgbOf(look().accent);
  colours.currentBackground = rgbOf(look().buttonHover);
  return colours;
}

class ListBinder : public Binder, public ListObserver {
 public:
  ListBinder(ListBox& list, QWidget* parent)
      : Binder(list, new ListView(list, parent)), list_(list), view_(static_cast<ListView*>(widget())) {
    view_->setAutoFillBackground(true);
    list_.observeRows(*this);
  }
  ~ListBinder() override { list_.unobserveRows(*this); }

  void propertyChanged(Property property) override { Binder::propertyChanged(property); }
  void rowsReset() override { view_->rowsChanged(); }
  void rowsAppended(std::size_t first, std::size_t) override { view_->rowsAppended(first); }
  void rowsRemoved(std::size_t, std::size_t) override { view_->rowsChanged(); }
  void selectionChanged() override { view_->selectionChanged(); }
  void currentChanged() override { view_->currentChanged(); }
  void topChanged() override { view_->topChanged(); }

 protected:
  void changed(Property property) override {
    if (property != Property::colours) return;
    const ListColours colours = ownColours() ? listColours(list_.foreColour(), list_.backColour()) : lookColours();
    QPalette palette = view_->palette();
    palette.setColor(QPalette::Window, qcolor(colours.background));
    palette.setColor(QPalette::WindowText, qcolor(colours.background));  // the frame as the toolkit draws it
    view_->setPalette(palette);
    view_->verticalScrollBar()->setStyleSheet(scrollBarSheet(colours));
    view_->setColours(colours);
  }

 private:
  // A list in a panel as plain as it was made wears the window's look.
  bool ownColours() const {
    return list_.container() == nullptr || list_.foreColour() != 0 || list_.backColour() != 0xFFFFFF;
  }

  ListBox& list_;
  ListView* view_;
};

}  // namespace

std::unique_ptr<Binder> bindList(ListBox& list, QWidget* parent) { return std::make_unique<ListBinder>(list, parent); }

}  // namespace plimo
