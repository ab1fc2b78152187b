#pragma once

#include "form.h"

class QLineEdit;
class QRadioButton;

namespace ui {

/// The firm's name as the game uses it: without blanks around it, its first character a capital
/// letter, "Zhenbao" where nothing was typed.
[[nodiscard]] QString firmName(const QString& typed);

/// Asks for a scenario and the firm's name, and starts the game. Once a game is over only a new
/// one closes the dialog.
class frmNew final : public Form {
public:
    explicit frmNew(MainForm& mainForm);

    void reject() override;

private:
    void cmdStart_Click();

    QRadioButton* optCash;
    QLineEdit* txtFirm;
};

}  // namespace ui
