#pragma once

#include <QHash>
#include <QIcon>
#include <QProxyStyle>

namespace ui {

/// `palette` with a selection whose text is readable. Some desktops select in a colour too close to
/// that of the text.
[[nodiscard]] QPalette withReadableSelection(QPalette palette);

/// The desktop's style with one mark for the focus: a frame in the accent of the palette on every
/// kind of control. Styles mark some kinds hardly or not at all. The game's buttons are as wide as
/// their captions need.
class GameStyle final : public QProxyStyle {
public:
    using QProxyStyle::polish;
    void polish(QPalette& palette) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& contents,
                                         const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const override;
    /// Makes each icon once. Newer toolkits would keep another copy of its picture for every
    /// message box, up to ten megabytes of them.
    [[nodiscard]] QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                                     const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;

private:
    mutable QHash<StandardPixmap, QIcon> m_icons;
};

}  // namespace ui
