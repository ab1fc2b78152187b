#pragma once

#include "form.h"

class QGroupBox;

namespace ui {

/// The trader's standing, and the only way to retire.
class frmStats final : public Form {
public:
    enum class Occasion { Menu, Millionaire, Trillionaire };

    frmStats(MainForm& mainForm, Occasion occasion);

private:
    [[nodiscard]] QGroupBox* makeStatistics() const;

    void cmdRetire_Click();
};

}  // namespace ui
