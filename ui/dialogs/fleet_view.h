#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "battle.h"

class QLabel;

namespace ui {

/// The sea with the enemy's ships on it: four rows of twelve, every second row half a ship on.
class FleetView final : public QWidget {
public:
    explicit FleetView(const QString& name);

    /// Shows exactly the first `ships` pictures, and names itself by their count.
    void showShips(int ships);
    /// The picture slides down past its own bottom edge in 48 steps; `afterStep` runs after each,
    /// so that the window can paint it.
    void sink(int picture, const std::function<void()>& afterStep);
    void setColour(const QColor& colour);

private:
    std::array<QLabel*, game::largestFleet> m_pictures{};
};

}  // namespace ui
