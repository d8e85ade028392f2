#include "desktop/widgets/folder_view.h"

#include <QKeyEvent>

#include "desktop/theme/art.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"

namespace plimo {

namespace {

constexpr int pathRole = Qt::UserRole;

QSize iconSizeNow() { return {scaled(16), scaled(16)}; }

}  // namespace

FolderView::FolderView(FolderList& model, QWidget* parent) : QListWidget(parent), model_(model) {
  setUniformItemSizes(true);
  setIconSize(iconSizeNow());
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideRight);
  connect(this, &QListWidget::itemDoubleClicked, this, [this](const QListWidgetItem* item) { open(item); });
}

void FolderView::fill() {
  clear();
  const FolderList::Listing& listing = model_.listing();
  int depth = 0;
  for (const std::string& folder : listing.ancestors) addFolder(folder, depth++, true);
  const int here = count() - 1;
  for (const std::string& folder : listing.folders) addFolder(folder, depth, false);
  setCurrentRow(here);
  if (here >= 0) scrollToItem(item(here), QAbstractItemView::PositionAtCenter);
  setToolTip(plainTip(shownText(model_.path())));
}

void FolderView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) setIconSize(iconSizeNow());
  QListWidget::changeEvent(event);
}

void FolderView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    open(currentItem());
  } else {
    QListWidget::keyPressEvent(event);
  }
}

void FolderView::addFolder(const std::string& path, int depth, bool ancestor) {
  const std::size_t separator = path.find_last_of("/\\");
  const bool whole = depth == 0 || separator == std::string::npos || separator + 1 == path.size();
  constexpr int indent = 3;  // blanks
  const QString name = shownText(whole ? path : path.substr(separator + 1));
  auto* item = new QListWidgetItem(artIcon(QStringLiteral("folder")), QString(indent * depth, QLatin1Char(' ')) + name);
  item->setData(pathRole, QByteArray::fromStdString(path));
  item->setToolTip(plainTip(shownText(path)));
  if (ancestor) {
    QFont bold;
    bold.setBold(true);
    item->setFont(bold);
  }
  addItem(item);
}

void FolderView::open(const QListWidgetItem* item) {
  if (item == nullptr) return;
  // A copy: picking a folder fills the list again, which destroys the item.
  const std::string path = item->data(pathRole).toByteArray().toStdString();
  model_.userPick(path);
}

}  // namespace plimo
