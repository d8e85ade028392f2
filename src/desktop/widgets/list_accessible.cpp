#include "desktop/widgets/list_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <unordered_map>

#include "controls/form.h"
#include "desktop/widgets/list_view.h"

namespace plimo {

namespace {

class RowAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  RowAccessible(ListView& view, int row) : view_(&view), row_(row) {}

  bool isValid() const override { return view_ != nullptr && static_cast<std::size_t>(row_) < view_->model().count(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override {
    return isValid() ? QAccessible::queryAccessibleInterface(view_)->window() : nullptr;
  }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(view_); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    if (kind == QAccessible::Name) return view_->rowName(row());
    if (kind == QAccessible::Description && view_->isPlaying(row())) return QStringLiteral("playing");
    if (kind == QAccessible::Description && view_->secondaryText) return view_->secondaryText(row());
    return {};
  }
  void setText(QAccessible::Text, const QString&) override {}

  QRect rect() const override {
    if (!isValid()) return {};
    const QRect area = view_->rowRect(row());
    return {view_->viewport()->mapToGlobal(area.topLeft()), area.size()};
  }

  QAccessible::Role role() const override { return QAccessible::ListItem; }

  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    const ListBox& list = view_->model();
    const bool boxes = list.style() == ListBox::Style::checkBoxes;
    const bool isCurrent = list.current() == row();
    state.selectable = true;
    state.focusable = true;
    state.multiSelectable = !boxes;
    state.checkable = boxes;
    state.checked = boxes && list.selected(row());
    state.selected = boxes ? isCurrent : list.selected(row());
    state.focused = isCurrent && view_->hasFocus();
    state.invisible = !view_->isVisible();
    state.offscreen = !view_->viewport()->rect().intersects(view_->rowRect(row()));
    state.disabled = !view_->isEnabled();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }

  QStringList actionNames() const override {
    if (!isValid()) return {};
    if (view_->model().style() == ListBox::Style::checkBoxes) return {toggleAction(), setFocusAction()};
    return {pressAction(), setFocusAction()};
  }

  void doAction(const QString& name) override {
    if (!isValid() || !view_->isEnabled() || !view_->isVisible()) return;
    ListBox& list = view_->model();
    if (list.form().dispatcher().busy()) return;
    if (name == setFocusAction()) list.userMoveCurrent(row());
    if (name == pressAction()) list.userClickRow(row(), ListBox::Keys::none);
    if (name == toggleAction()) list.userTick(row(), !list.selected(row()));
  }

  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  std::size_t row() const { return static_cast<std::size_t>(row_); }

  ListView* view_;
  int row_;
};

class ListAccessible : public QAccessibleWidget {
 public:
  explicit ListAccessible(ListView& view) : QAccessibleWidget(&view, QAccessible::List), view_(view) {}
  ~ListAccessible() override {
    for (const auto& [row, id] : rows_) QAccessible::deleteAccessibleInterface(id);
  }

  // The rows, and after them the field for searching while it is open.
  int childCount() const override { return rowCount() + (view_.openFindBar() != nullptr ? 1 : 0); }

  QAccessibleInterface* child(int row) const override {
    if (row >= 0 && row == rowCount()) return QAccessible::queryAccessibleInterface(view_.openFindBar());
    if (row < 0 || row > rowCount()) return nullptr;
    if (const auto found = rows_.find(row); found != rows_.end()) {
      return QAccessible::accessibleInterface(found->second);
    }
    auto* made = new RowAccessible(view_, row);
    rows_[row] = QAccessible::registerAccessibleInterface(made);
    return made;
  }

  int indexOfChild(const QAccessibleInterface* child) const override {
    if (child == nullptr) return -1;
    if (child->object() != nullptr && child->object() == view_.openFindBar()) return rowCount();
    for (const auto& [row, id] : rows_) {
      if (QAccessible::accessibleInterface(id) == child) return row;
    }
    return -1;
  }

  QAccessibleInterface* childAt(int x, int y) const override {
    const auto row = view_.rowAt(view_.viewport()->mapFromGlobal(QPoint(x, y)));
    return row ? child(static_cast<int>(*row)) : nullptr;
  }

  QAccessibleInterface* focusChild() const override {
    const auto current = view_.model().current();
    return view_.hasFocus() && view_.isVisible() && current ? child(static_cast<int>(*current)) : nullptr;
  }

 private:
  int rowCount() const { return static_cast<int>(view_.model().count()); }

  ListView& view_;
  mutable std::unordered_map<int, QAccessible::Id> rows_;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  auto* view = qobject_cast<ListView*>(object);
  return view == nullptr ? nullptr : new ListAccessible(*view);
}

}  // namespace

void installListAccessible() { QAccessible::installFactory(makeAccessible); }

}  // namespace plimo
