#include "game_style.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QRegion>
#include <QStyleOption>
#include <QTextFormat>
#include <algorithm>

#include "contrast.h"
#include "controls.h"

namespace ui {

namespace {

constexpr int markWidth = 2;     ///< pixels
constexpr int buttonBorder = 2;  ///< what styles draw around a button

QRect within(const QRect& rect, int edge) {
    return rect.adjusted(edge, edge, -edge, -edge);
}

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

void drawMark(QPainter& painter, const QStyleOption& option) {
    constexpr qreal radius = 2;
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

void GameStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    palette = withReadableSelection(palette);
}

void GameStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    if (element == PE_FrameFocusRect) {
        drawMark(*painter, *option);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_PanelLineEdit && option->state.testFlag(State_HasFocus)) {
        const auto* field = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (field != nullptr && field->lineWidth > 0) {
            drawMark(*painter, *option);
        }
    }
}

void GameStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const bool focused = option->state.testFlag(State_HasFocus);
    if (focused && element == CE_ShapedFrame &&
        qobject_cast<const QAbstractScrollArea*>(widget) != nullptr) {
        const QColor colour = markColour(*option);  // of all its frame
        for (const QRect& side :
             QRegion(option->rect).subtracted(within(option->rect, markWidth))) {
            painter->fillRect(side, colour);
        }
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
    if (focused && element == CE_PushButton) {
        QStyleOption inner = *option;
        inner.rect = subElementRect(SE_PushButtonFocusRect, option, widget);
        drawMark(*painter, inner);
    }
}

QRect GameStyle::subElementRect(SubElement element, const QStyleOption* option,
                                const QWidget* widget) const {
    if (element == SE_PushButtonFocusRect) {  // within the border, which is no part of it
        return within(option->rect, buttonBorder);
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

void GameStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if ((control == CC_ComboBox || control == CC_Slider) &&
        option->state.testFlag(State_HasFocus)) {
        drawMark(*painter, *option);
    }
}

QSize GameStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                  const QSize& contents, const QWidget* widget) const {
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_PushButton && dynamic_cast<const Button*>(widget) != nullptr) {
        // Some styles have a floor that is too wide for small dialogs.
        size.setWidth(
            std::max(contents.width() + measures::buttonEdges, measures::narrowestButton));
    }
    return size;
}

int GameStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const {
    if (auto* mark = qstyleoption_cast<QStyleHintReturnVariant*>(data);
        hint == SH_TextControl_FocusIndicatorTextCharFormat && mark != nullptr) {
        mark->variant = QTextCharFormat{};  // a link is marked like any other control
        return 1;
    }
    return QProxyStyle::styleHint(hint, option, widget, data);
}

int GameStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    if (metric == PM_DefaultFrameWidth &&
        qobject_cast<const QAbstractScrollArea*>(widget) != nullptr) {
        return markWidth;  // a text or a list shows the mark in its frame alone
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

QIcon GameStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                              const QWidget* widget) const {
    if (!m_icons.contains(picture)) {
        m_icons.insert(picture, QProxyStyle::standardIcon(picture, option, widget));
    }
    return m_icons.value(picture);
}

}  // namespace ui
