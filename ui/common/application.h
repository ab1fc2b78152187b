#pragma once

#include <QApplication>

namespace ui {

/// The application with its name, icon and style. It leaves no file history in the player's
/// configuration.
class Application final : public QApplication {
public:
    Application(int& argc, char** argv);

protected:
    bool event(QEvent* event) override;
};

}  // namespace ui
