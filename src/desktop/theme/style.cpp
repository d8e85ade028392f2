#include "desktop/theme/style.h"

#include <QAbstractItemView>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

#include "desktop/theme/style_bars.h"
#include "desktop/theme/style_parts.h"
#include "desktop/theme/theme.h"

namespace plimo {

namespace {

bool focused(const QStyleOption& option) {
  return option.state.testFlag(QStyle::State_HasFocus) && option.state.testFlag(QStyle::State_Enabled);
}

const QStyleOptionSlider* horizontalSlider(const QStyleOptionComplex* option) {
  const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
  return slider != nullptr && slider->orientation == Qt::Horizontal ? slider : nullptr;
}

}  // namespace

Style::Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void Style::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (qobject_cast<QScrollBar*>(widget) != nullptr) widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_ScrollBarExtent:
      return scaledFor(widget, 12);
    case PM_ScrollBarSliderMin:
      return scaledFor(widget, 28);
    case PM_SliderLength:
    case PM_SliderThickness:
    case PM_SliderControlThickness:
      return sliderHandleSize();
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return choiceMarkSize();
    case PM_DefaultFrameWidth:
      if (qobject_cast<const QAbstractItemView*>(widget) != nullptr) return scaledFor(widget, 3);
      break;
    case PM_MenuBarPanelWidth:
      return 0;
    case PM_MenuBarHMargin:
      return scaledFor(widget, 4);
    case PM_MenuBarVMargin:
      return scaledFor(widget, 2);
    case PM_MenuBarItemSpacing:
      return 0;
    default:
      break;
  }
  return QProxyStyle::pixelMetric(metric, option, widget);
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* returned) const {
  switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons:
      return 0;
    case SH_Slider_AbsoluteSetButtons:
      return Qt::LeftButton;
    case SH_Slider_PageSetButtons:
      return Qt::NoButton;
    default:
      return QProxyStyle::styleHint(hint, option, widget, returned);
  }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const {
  const auto padded = [&](int width, int height) {
    return contents + QSize(scaledFor(widget, width), scaledFor(widget, height));
  };
  switch (type) {
    case CT_PushButton:
      return padded(34, 14).expandedTo(QSize(scaledFor(widget, 90), 0));
    case CT_LineEdit:
      return padded(18, 10);
    case CT_MenuBarItem:
      return padded(20, 8);
    default:
      return QProxyStyle::sizeFromContents(type, option, contents, widget);
  }
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
  switch (element) {
    case SE_ProgressBarGroove:
    case SE_ProgressBarContents:
      return option->rect;
    case SE_LineEditContents: {
      const int padding = scaledFor(widget, 8);
      return option->rect.adjusted(padding, 0, -padding, 0);
    }
    default:
      return QProxyStyle::subElementRect(element, option, widget);
  }
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                            const QWidget* widget) const {
  if (control == CC_Slider) {
    if (const auto* slider = horizontalSlider(option)) return sliderPart(*slider, part);
  }
  if (control == CC_ScrollBar) {
    if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
      return scrollBarPart(*bar, part, widget);
    }
  }
  if (control == CC_ComboBox && part == SC_ComboBoxEditField) {
    return option->rect.adjusted(scaledFor(widget, 9), 0, -scaledFor(widget, 26), 0);
  }
  if (control == CC_ComboBox && part == SC_ComboBoxArrow) {
    const int width = scaledFor(widget, 26);
    return {option->rect.right() + 1 - width, option->rect.top(), width, option->rect.height()};
  }
  return QProxyStyle::subControlRect(control, option, part, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  switch (element) {
    case PE_FrameGroupBox:
      paintCard(*painter, option->rect);
      return;
    case PE_Frame:
      paintField(*painter, option->rect, focused(*option), widget);
      return;
    case PE_PanelLineEdit:
      if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option); frame->lineWidth > 0) {
        paintField(*painter, option->rect, focused(*option), widget);
      }
      return;
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  const auto* menuItem = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  const auto* progress = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
  if (element == CE_PushButton && button != nullptr) {
    paintPushButton(*painter, *button, widget);
  } else if ((element == CE_CheckBox || element == CE_RadioButton) && button != nullptr) {
    paintChoice(*painter, *button, element == CE_RadioButton);
  } else if (element == CE_ProgressBarContents && progress != nullptr) {
    paintProgressBar(*painter, *progress);
  } else if (element == CE_MenuBarItem && menuItem != nullptr) {
    paintMenuBarItem(*painter, *menuItem, widget);
  } else if (element == CE_ProgressBarGroove) {
    return;  // painted with the contents
  } else if (element == CE_MenuBarEmptyArea) {
    paintMenuBarBackground(*painter, option->rect);
  } else {
    QProxyStyle::drawControl(element, option, painter, widget);
  }
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
  if (control == CC_GroupBox && widget != nullptr) {
    if (const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option)) {
      paintTitledCard(*painter, box->rect, box->text, *widget);
      return;
    }
  }
  if (control == CC_ComboBox) {
    paintField(*painter, option->rect, focused(*option), widget);
    paintDownArrow(*painter, subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget), widget);
    return;
  }
  if (control == CC_Slider) {
    if (const auto* slider = horizontalSlider(option)) {
      paintSlider(*painter, *slider);
      return;
    }
  }
  if (control == CC_ScrollBar) {
    if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
      paintScrollBar(*painter, *bar, widget);
      return;
    }
  }
  if (control == CC_ToolButton) {
    if (const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option)) {
      paintToolButtonPanel(*painter, *button, widget);
      QStyleOptionToolButton label(*button);
      label.rect.adjust(3, 3, -3, -3);
      drawControl(CE_ToolButtonLabel, &label, painter, widget);
      return;
    }
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

}  // namespace plimo
