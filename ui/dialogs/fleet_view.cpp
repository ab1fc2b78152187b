#include "fleet_view.h"

#include <QAccessibleWidget>

#include "controls.h"
#include "picture.h"
#include "twips.h"

namespace ui {

namespace {

constexpr int shipsPerRow = 12;
// In twips.
constexpr int shipSide = 480;
constexpr int firstEdge = 120;
constexpr int rowDistance = 600;
constexpr int sinkingStep = 10;

/// The place of a picture whose top edge has sunk by `sunk` twips.
QRect placeOf(int picture, int sunk) {
    const int row = picture / shipsPerRow;
    const int column = picture % shipsPerRow;
    const int left = firstEdge + column * shipSide + row % 2 * shipSide / 2;
    const int top = firstEdge + row * rowDistance;
    const int surfaced = pixels(top + sunk);
    return {pixels(left), surfaced, pixels(shipSide), pixels(top + shipSide) - surfaced};
}

/// Assistive programs see the fleet as one picture with a name instead of 48 without.
class FleetPicture final : public QAccessibleWidget {
public:
    explicit FleetPicture(QWidget* fleet) : QAccessibleWidget(fleet, QAccessible::Graphic) {}

    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
};

QAccessibleInterface* makeFleetPicture(const QString& /*className*/, QObject* object) {
    auto* fleet = dynamic_cast<FleetView*>(object);
    return fleet == nullptr ? nullptr : new FleetPicture(fleet);
}

}  // namespace

FleetView::FleetView(const QString& name) {
    QAccessible::installFactory(makeFleetPicture);  // once, however many views there are
    setObjectName(name);
    setFixedSize(sizeFromTwips(6375, 2535));
    setAutoFillBackground(true);
    setColour(Qt::black);
    const QPixmap junk =
        picture(QStringLiteral("junk"), sizeFromTwips(shipSide, shipSide), devicePixelRatio());
    for (int picture = 0; picture < game::largestFleet; ++picture) {
        auto* label = makeNamed<QLabel>(QStringLiteral("imgPirate%1").arg(picture), this);
        label->setPixmap(junk);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        label->setGeometry(placeOf(picture, 0));
        label->hide();
        m_pictures.at(static_cast<std::size_t>(picture)) = label;
    }
}

void FleetView::showShips(int ships) {
    for (int picture = 0; picture < game::largestFleet; ++picture) {
        m_pictures.at(static_cast<std::size_t>(picture))->setVisible(picture < ships);
    }
    setAccessibleName(QStringLiteral("Enemy ships: %1").arg(ships));
}

void FleetView::sink(int picture, const std::function<void()>& afterStep) {
    QLabel* ship = m_pictures.at(static_cast<std::size_t>(picture));
    for (int sunk = sinkingStep; sunk <= shipSide; sunk += sinkingStep) {
        ship->setGeometry(placeOf(picture, sunk));
        update(placeOf(picture, 0));
        afterStep();
    }
}

void FleetView::setColour(const QColor& colour) {
    QPalette sea;
    sea.setColor(backgroundRole(), colour);
    setPalette(sea);
}

}  // namespace ui
