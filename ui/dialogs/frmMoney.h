#pragma once

#include "two_sided_form.h"

namespace ui {

/// The money lender: borrows, once a visit, or repays.
class frmMoney final : public TwoSidedForm {
public:
    explicit frmMoney(MainForm& mainForm);

private:
    [[nodiscard]] static Side borrowing(MainForm& mainForm);
    [[nodiscard]] static Side repaying(const MainForm& mainForm);
};

}  // namespace ui
