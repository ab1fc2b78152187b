#include "readable_style.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QStyleOption>
#include <QTextFormat>

#include "contrast.h"

namespace ui {

namespace {

constexpr int markWidth = 2;     ///< pixels
constexpr int buttonBorder = 2;  ///< what styles draw around a button

/// The accent of the palette, where necessary in another shade: it stands out from everything that
/// the mark of the focus lies between.
QColor markColour(const QStyleOption& option) {
    const QPalette& colours = option.palette;
    QColor ground = colours.color(QPalette::Window);
    if (const auto* mark = qstyleoption_cast<const QStyleOptionFocusRect*>(&option);
        mark != nullptr && mark->backgroundColor.isValid()) {
        ground = mark->backgroundColor;  // of an entry in a list
    }
    return readable(colours.color(QPalette::Highlight),
                    {ground, colours.color(QPalette::Button), colours.color(QPalette::Base)},
                    contrastOfMark);
}

void drawMark(QPainter& painter, const QStyleOption& option, qreal radius) {
    constexpr qreal middle = markWidth / 2.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen({markColour(option), markWidth});
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF{option.rect}.adjusted(middle, middle, -middle, -middle), radius,
                            radius);
    painter.restore();
}

}  // namespace

QPalette withReadableSelection(QPalette palette) {
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        const QColor selected = palette.color(group, QPalette::Highlight);
        const QColor shade = readable(selected, {palette.color(group, QPalette::HighlightedText)});
        if (shade != selected) {
            palette.setColor(group, QPalette::Highlight, shade);
        }
    }
    return palette;
}

void ReadableStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    palette = withReadableSelection(palette);
}

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    if (element == PE_FrameFocusRect) {
        drawMark(*painter, *option, markWidth);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_PanelLineEdit && option->state.testFlag(State_HasFocus)) {
        const auto* field = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (field != nullptr && field->lineWidth > 0) {
            drawMark(*painter, *option, markWidth);
        }
    }
}

void ReadableStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    if (!option->state.testFlag(State_HasFocus)) {
        return;
    }
    if (element == CE_PushButton) {
        QStyleOption within = *option;
        within.rect = subElementRect(SE_PushButtonFocusRect, option, widget);
        drawMark(*painter, within, markWidth);
    } else if (element == CE_ShapedFrame && qobject_cast<const QAbstractScrollArea*>(widget)) {
        drawMark(*painter, *option, 0);
    }
}

QRect ReadableStyle::subElementRect(SubElement element, const QStyleOption* option,
                                    const QWidget* widget) const {
    if (element == SE_PushButtonFocusRect) {  // within the border, which is no part of it
        return option->rect.adjusted(buttonBorder, buttonBorder, -buttonBorder, -buttonBorder);
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

void ReadableStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if ((control == CC_ComboBox || control == CC_Slider) &&
        option->state.testFlag(State_HasFocus)) {
        drawMark(*painter, *option, markWidth);
    }
}

int ReadableStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* data) const {
    if (auto* link = qstyleoption_cast<QStyleHintReturnVariant*>(data);
        hint == SH_TextControl_FocusIndicatorTextCharFormat && link != nullptr) {
        QTextCharFormat format;
        format.setTextOutline({markColour(*option), markWidth});
        link->variant = format;
        return 1;
    }
    return QProxyStyle::styleHint(hint, option, widget, data);
}

int ReadableStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                               const QWidget* widget) const {
    if (metric == PM_DefaultFrameWidth &&
        qobject_cast<const QAbstractScrollArea*>(widget) != nullptr) {
        return markWidth;  // a text or a list shows the mark in its frame alone
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

}  // namespace ui
