#pragma once

#include "form.h"

namespace ui {

class Desktop;

/// Version, credits and the way to the makers.
class frmAbout final : public Form {
public:
    explicit frmAbout(MainForm& mainForm);
};

/// Shows the makers' page in the player's browser.
void openHomePage(Desktop& desktop);

}  // namespace ui
