#pragma once

#include "two_sided_form.h"

namespace ui {

/// The bank: deposits cash or withdraws it.
class frmVisit final : public TwoSidedForm {
public:
    explicit frmVisit(MainForm& mainForm);
};

}  // namespace ui
