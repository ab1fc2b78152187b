#pragma once

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace ui {

/// Lays `panel` out with the dialog's buttons in a column to its right. The first button is the
/// one that Enter presses.
inline void layOutWithButtons(QWidget* dialog, QWidget* panel,
                              std::initializer_list<QPushButton*> buttons) {
    auto* columns = new QHBoxLayout(dialog);
    columns->addWidget(panel, 1);
    auto* column = new QVBoxLayout;
    columns->addLayout(column);
    for (QPushButton* button : buttons) {
        column->addWidget(button);
    }
    column->addStretch();
    (*buttons.begin())->setDefault(true);
}

}  // namespace ui
