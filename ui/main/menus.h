#pragma once

#include <QKeySequence>
#include <QObject>

class QAction;
class QActionGroup;
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
    /// Disables all menus with their items and shortcuts, or enables those that were.
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
    [[nodiscard]] QMenu* addMenu(const QString& name, const QString& caption);
    QAction* addItem(QMenu* menu, const QString& name, const QString& caption,
                     const QKeySequence& shortcut = {});
    /// Gives the focus back to where it was before the menus.
    void leaveBar();

    QMenuBar* m_bar;
    QActionGroup* m_all;
    QMenu* m_file;
    QMenu* m_options;
    QMenu* m_help;
    QAction* mnuSaveItem;
    QAction* mnuMoneyItem;
    QAction* mnuStatsItem;
};

}  // namespace ui
