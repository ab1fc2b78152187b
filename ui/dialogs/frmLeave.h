#pragma once

#include <array>

#include "form.h"

class QRadioButton;

namespace ui {

/// Asks for the destination and makes the voyage there.
class frmLeave final : public GameForm {
public:
    explicit frmLeave(MainForm& mainForm);

private:
    [[nodiscard]] std::string_view destination() const;
    void cmdDepart_Click();

    std::array<QRadioButton*, game::ports.size()> m_ports{};
};

}  // namespace ui
