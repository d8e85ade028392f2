#include "desktop/widgets/drive_box.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include "desktop/theme/art.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/theme.h"

namespace plimo {

namespace {

constexpr int rootRole = Qt::UserRole;
constexpr int letterRole = Qt::UserRole + 1;

// "C: Hard Drive" and the root folder after it, in the secondary colour.
void paintDrive(QPainter& painter, const QRect& area, const QString& text, const QString& root, const QColor& colour,
                const QColor& quiet) {
  painter.setPen(colour);
  painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
  const int used = painter.fontMetrics().horizontalAdvance(text) + 2 * spacing();
  const QRect rest = area.adjusted(used, 0, 0, 0);
  if (rest.width() <= 0) return;
  painter.setPen(quiet);
  painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(root, Qt::ElideMiddle, rest.width()));
}

class DriveDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    painter->fillRect(option.rect, selected ? theme().accent : theme().field);
    const int side = scaled(16);
    const int edge = scaled(6);
    const QRect icon(option.rect.left() + edge, option.rect.center().y() - side / 2, side, side);
    index.data(Qt::DecorationRole).value<QIcon>().paint(painter, icon);
    paintDrive(*painter, option.rect.adjusted(2 * edge + side, 0, -edge, 0), index.data().toString(),
               index.data(rootRole).toString(), selected ? theme().onAccent : theme().text,
               selected ? theme().onAccent : theme().quiet);
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int width = option.fontMetrics.horizontalAdvance(index.data().toString() + index.data(rootRole).toString());
    return {width + scaled(60), option.fontMetrics.height() + scaled(8)};
  }
};

QString driveIconName(const std::string& kind) {
  if (kind == "CDROM") return QStringLiteral("cdrom");
  if (kind == "REMOVABLE") return QStringLiteral("removable");
  if (kind == "Hard Drive") return QStringLiteral("drive");
  return QStringLiteral("network");
}

}  // namespace

DriveBox::DriveBox(QWidget* parent) : QComboBox(parent) { setItemDelegate(new DriveDelegate(this)); }

void DriveBox::setDrives(std::span<const DriveList::Entry> drives) {
  const QSignalBlocker blocker(this);
  clear();
  for (const DriveList::Entry& entry : drives) {
    const QString letter(QLatin1Char(entry.letter));
    const QString root = shownText(entry.root);
    addItem(artIcon(driveIconName(entry.kind)), letter + QStringLiteral(": ") + qstring(entry.kind), {});
    const int row = count() - 1;
    setItemData(row, root, rootRole);
    setItemData(row, root, Qt::ToolTipRole);
    setItemData(row, root, Qt::AccessibleDescriptionRole);
    setItemData(row, letter, letterRole);
  }
}

void DriveBox::setCurrentDrive(char letter) {
  const QSignalBlocker blocker(this);
  setCurrentIndex(letter == 0 ? -1 : findData(QString(QLatin1Char(letter)), letterRole));
  setToolTip(plainTip(currentData(rootRole).toString()));
  update();
}

// The toolkit would pick the neighbour at once: a drive behind one that is not ready could not be reached.
void DriveBox::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
      showPopup();
      break;
    default:
      QComboBox::keyPressEvent(event);
  }
}

void DriveBox::wheelEvent(QWheelEvent* event) { event->ignore(); }

char DriveBox::driveAt(int row) const {
  const QString letter = itemData(row, letterRole).toString();
  return letter.isEmpty() ? '\0' : letter.at(0).toLatin1();
}

void DriveBox::paintEvent(QPaintEvent*) {
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
}

}  // namespace plimo
