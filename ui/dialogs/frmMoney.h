#pragma once

#include "two_sided_form.h"

namespace ui {

/// The money lender: borrows, once a visit, or repays.
class frmMoney final : public TwoSidedForm {
public:
    explicit frmMoney(MainForm& mainForm);
};

}  // namespace ui
