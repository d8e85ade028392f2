// Drive lists and folder lists.
#include <QComboBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QStyledItemDelegate>

#include "desktop/binders/binder.h"
#include "desktop/theme/theme.h"

namespace plimo {

namespace {

constexpr int rootRole = Qt::UserRole;
constexpr int letterRole = Qt::UserRole + 1;
constexpr int pathRole = Qt::UserRole + 2;

// "C: Hard Drive" and, quieter, the root folder behind it.
void paintDrive(QPainter& painter, const QRect& place, const QString& text, const QString& root, const QColor& ink,
                const QColor& quiet) {
  painter.setPen(ink);
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
  const int used = painter.fontMetrics().horizontalAdvance(text) + 2 * spacing();
  const QRect rest = place.adjusted(used, 0, 0, 0);
  if (rest.width() <= 0) return;
  painter.setPen(quiet);
  painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(root, Qt::ElideMiddle, rest.width()));
}

class DriveDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    painter->fillRect(option.rect, chosen ? theme().accent : theme().field);
    const int side = scaled(16);
    const int edge = scaled(6);
    const QRect icon(option.rect.left() + edge, option.rect.center().y() - side / 2, side, side);
    index.data(Qt::DecorationRole).value<QIcon>().paint(painter, icon);
    paintDrive(*painter, option.rect.adjusted(2 * edge + side, 0, -edge, 0), index.data().toString(),
               index.data(rootRole).toString(), chosen ? theme().onAccent : theme().text,
               chosen ? theme().onAccent : theme().quiet);
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int width = option.fontMetrics.horizontalAdvance(index.data().toString() + index.data(rootRole).toString());
    return {width + scaled(60), option.fontMetrics.height() + scaled(8)};
  }
};

class DriveWidget : public QComboBox {
 public:
  explicit DriveWidget(QWidget* parent) : QComboBox(parent) { setItemDelegate(new DriveDelegate(this)); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText.clear();
    option.currentIcon = {};
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QRect field = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    const int side = scaled(16);
    const QRect icon(field.left() + 2, field.center().y() - side / 2, side, side);
    itemIcon(currentIndex()).paint(&painter, icon);
    paintDrive(painter, field.adjusted(scaled(24), 0, 0, 0), currentText(), currentData(rootRole).toString(),
               theme().text, theme().quiet);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme().quiet, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const double arm = scaled(4);
    const QPointF tip(width() - 3.5 * arm, height() / 2.0 + arm / 2);
    painter.drawPolyline(QPolygonF{{tip + QPointF(-arm, -arm), tip, tip + QPointF(arm, -arm)}});
  }
};

QString driveIconName(const std::string& kind) {
  if (kind == "CDROM") return QStringLiteral("cdrom");
  if (kind == "REMOVABLE") return QStringLiteral("removable");
  if (kind == "Hard Drive") return QStringLiteral("drive");
  return QStringLiteral("network");
}

class DriveBinder : public Binder {
 public:
  DriveBinder(DriveList& drives, QWidget* parent)
      : Binder(drives, new DriveWidget(parent)), drives_(drives), box_(static_cast<DriveWidget*>(widget())) {
    QObject::connect(box_, &QComboBox::activated, box_, [this](int index) {
      const QString letter = box_->itemData(index, letterRole).toString();
      if (!letter.isEmpty()) drives_.userPick(letter.at(0).toLatin1());
      showCurrent();
    });
  }

 protected:
  void changed(Property property) override {
    if (property == Property::contents) fill();
    if (property == Property::contents || property == Property::value) showCurrent();
  }

 private:
  void fill() {
    const QSignalBlocker quiet(box_);
    box_->clear();
    for (const DriveList::Entry& entry : drives_.entries()) {
      const QString letter(QLatin1Char(entry.letter));
      const QString root = qstring(entry.root);
      box_->addItem(artIcon(driveIconName(entry.kind)), letter + QStringLiteral(": ") + qstring(entry.kind), {});
      const int row = box_->count() - 1;
      box_->setItemData(row, root, rootRole);
      box_->setItemData(row, root, Qt::ToolTipRole);
      box_->setItemData(row, letter, letterRole);
    }
  }

  void showCurrent() {
    const QSignalBlocker quiet(box_);
    const QString letter = drives_.drive() == 0 ? QString() : QString(QLatin1Char(drives_.drive()));
    box_->setCurrentIndex(letter.isEmpty() ? -1 : box_->findData(letter, letterRole));
    box_->setToolTip(plainTip(box_->currentData(rootRole).toString()));
    box_->update();
  }

  DriveList& drives_;
  DriveWidget* box_;
  ObserverScope observerScope_{drives_, *this};
};

class FolderWidget : public QListWidget {
 public:
  FolderWidget(FolderList& model, QWidget* parent) : QListWidget(parent), model_(model) {
    setUniformItemSizes(true);
    setIconSize(QSize(scaled(16), scaled(16)));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    connect(this, &QListWidget::itemDoubleClicked, this, [this](const QListWidgetItem* item) { enter(item); });
  }

  void fill() {
    clear();
    const FolderList::Listing& listing = model_.listing();
    int depth = 0;
    for (const std::string& folder : listing.ancestors) addFolder(folder, depth++, true);
    const int here = count() - 1;
    for (const std::string& folder : listing.folders) addFolder(folder, depth, false);
    setCurrentRow(here);
    if (here >= 0) scrollToItem(item(here), QAbstractItemView::PositionAtCenter);
    setToolTip(plainTip(qstring(model_.path())));
  }

 protected:
  void changeEvent(QEvent* event) override {
    if (event->type() == QEvent::FontChange) setIconSize(QSize(scaled(16), scaled(16)));
    QListWidget::changeEvent(event);
  }

  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      enter(currentItem());
    } else {
      QListWidget::keyPressEvent(event);
    }
  }

 private:
  void addFolder(const std::string& path, int depth, bool ancestor) {
    const std::size_t cut = path.find_last_of("/\\");
    const bool whole = depth == 0 || cut == std::string::npos || cut + 1 == path.size();
    constexpr int indent = 3;
    auto* item =
        new QListWidgetItem(QString(indent * depth, QLatin1Char(' ')) + qstring(whole ? path : path.substr(cut + 1)));
    item->setIcon(artIcon(QStringLiteral("folder")));
    item->setData(pathRole, QByteArray::fromStdString(path));
    item->setToolTip(plainTip(qstring(path)));
    if (ancestor) {
      QFont bold;
      bold.setBold(true);
      item->setFont(bold);
    }
    addItem(item);
  }

  void enter(const QListWidgetItem* item) {
    if (item == nullptr) return;
    const std::string path = item->data(pathRole).toByteArray().toStdString();
    model_.userPick(path);
  }

  FolderList& model_;
};

class FolderBinder : public Binder {
 public:
  FolderBinder(FolderList& folders, QWidget* parent)
      : Binder(folders, new FolderWidget(folders, parent)), list_(static_cast<FolderWidget*>(widget())) {}

 protected:
  void changed(Property property) override {
    if (property == Property::contents) list_->fill();
  }

 private:
  FolderWidget* list_;
  ObserverScope observerScope_{control(), *this};
};

}  // namespace

std::unique_ptr<Binder> bindDriveList(DriveList& drives, QWidget* parent) {
  return std::make_unique<DriveBinder>(drives, parent);
}

std::unique_ptr<Binder> bindFolderList(FolderList& folders, QWidget* parent) {
  return std::make_unique<FolderBinder>(folders, parent);
}

}  // namespace plimo
