#pragma once

#include <QApplication>

namespace ui {

/// The program on its desktop: its name, its icon, its look, and nothing left behind.
class Application final : public QApplication {
public:
    Application(int& argc, char** argv);

protected:
    bool event(QEvent* event) override;
};

}  // namespace ui
