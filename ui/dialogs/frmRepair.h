#pragma once

#include "form.h"

class QGroupBox;
class QLineEdit;
class QPushButton;
class QSlider;

namespace ui {

/// The shipyard: the condition to restore is chosen with a slider and seen on the main window
/// while the dialog is open.
class frmRepair final : public GameForm {
public:
    explicit frmRepair(MainForm& mainForm);

private:
    [[nodiscard]] QGroupBox* makeSelection();
    /// The chosen condition in percent: where the slider stands, as far as the yard offers it.
    [[nodiscard]] game::Currency condition() const;
    void sldRepair_Change();
    void cmdRepair_Click();
    void cmdRepairMax_Click();

    QLineEdit* txtPrice;
    QLineEdit* txtStatus;
    QSlider* sldRepair;
    QPushButton* cmdRepair;
};

}  // namespace ui
