#pragma once

#include <QObject>

class QAction;
class QMenu;
class QMenuBar;

namespace ui {

/// The main window's menus.
class Menus final : public QObject {
    Q_OBJECT

public:
    explicit Menus(QMenuBar* bar);

    /// From the first game on: saving and the statistics.
    void enableGameItems();
    /// Takes all menus and their shortcuts away, or gives them back as they were.
    void setOpen(bool open);
    [[nodiscard]] bool moneyLenderBug() const;

signals:
    void newGame();
    void loadGame();
    void saveGame();
    void exit();
    void statistics();
    void help();
    void checkForUpdates();
    void about();

private:
    QMenu* m_file;
    QMenu* m_options;
    QMenu* m_help;
    QAction* mnuSaveItem;
    QAction* mnuMoneyItem;
    QAction* mnuStatsItem;
};

}  // namespace ui
