#include "desktop/widgets/announcement.h"

#include <QAccessible>
#include <QLabel>
#include <QVariant>

namespace plimo {

namespace {

constexpr const char* announcedProperty = "announced";

}  // namespace

void markAsAnnounced(QLabel& label) { label.setProperty(announcedProperty, true); }

bool isAnnounced(const QLabel& label) { return label.property(announcedProperty).toBool(); }

void announce(QLabel& label) {
  if (!QAccessible::isActive() || !label.isVisible() || label.text().isEmpty()) return;
  // A notification that appears is read aloud; one that only changes its name is not.
  for (const QAccessible::Event kind : {QAccessible::NameChanged, QAccessible::ObjectShow}) {
    QAccessibleEvent event(&label, kind);
    QAccessible::updateAccessibility(&event);
  }
}

}  // namespace plimo
