#pragma once

#include "form.h"

class QGroupBox;

namespace ui {

class TextView;

/// Four texts to read, one at a time.
class frmHelp final : public Form {
public:
    explicit frmHelp(MainForm& mainForm);

private:
    struct Page;

    void showPage(const Page& page);

    QGroupBox* fraContent;
    TextView* txtDisplay;
};

}  // namespace ui
