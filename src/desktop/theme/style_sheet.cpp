#include "desktop/theme/style_sheet.h"

#include "desktop/theme/scaling.h"
#include "desktop/theme/theme.h"

namespace plimo {

QString menuStyleSheet() {
  const Theme& t = theme();
  const auto pixels = [](int designed) { return QString::number(scaledForBoxes(designed)) + QLatin1String("px"); };
  return QStringLiteral(
             "QMenu { background: %1; color: %2; border: 1px solid %3; padding: %6; }"
             "QMenu::item { padding: %7 %8 %7 %9; border-radius: %6; }"
             "QMenu::item:selected { background: %4; color: %5; }"
             "QMenu::separator { height: 1px; background: %3; margin: %6; }")
             .arg(t.card.name(), t.text.name(), t.border.name(), t.accent.name(), t.onAccent.name(), pixels(4),
                  pixels(5), pixels(28), pixels(14)) +
         QStringLiteral(
             "QMenu::item:disabled { color: %1; }"
             "QToolTip { background: %2; color: %3; border: 1px solid %4; padding: %5 %6; }"
             "QDialog { background: %2; }")
             .arg(t.quiet.name(), t.card.name(), t.text.name(), t.border.name(), pixels(3), pixels(6));
}

}  // namespace plimo
