#include "menus.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QShortcut>

namespace ui {

namespace {

void addSeparator(QMenu* menu, const QString& name) {
    menu->addSeparator()->setObjectName(name);
}

}  // namespace

Menus::Menus(QMenuBar* bar)
    : QObject(bar),
      m_bar(bar),
      m_all(new QActionGroup(this)),
      m_file(addMenu(QStringLiteral("mnuFile"), QStringLiteral("&File"))),
      m_options(addMenu(QStringLiteral("mnuOptions"), QStringLiteral("&Options"))),
      m_help(addMenu(QStringLiteral("mnuHelp"), QStringLiteral("&Help"))) {
    m_all->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
    connect(addItem(m_file, QStringLiteral("mnuNewItem"), QStringLiteral("&New Game"),
                    Qt::CTRL | Qt::Key_N),
            &QAction::triggered, this, &Menus::newGame);
    connect(addItem(m_file, QStringLiteral("mnuLoadItem"), QStringLiteral("&Load Game..."),
                    Qt::CTRL | Qt::Key_L),
            &QAction::triggered, this, &Menus::loadGame);
    mnuSaveItem = addItem(m_file, QStringLiteral("mnuSaveItem"), QStringLiteral("&Save Game..."),
                          Qt::CTRL | Qt::Key_S);
    connect(mnuSaveItem, &QAction::triggered, this, &Menus::saveGame);
    addSeparator(m_file, QStringLiteral("mnuItemSeparator1"));
    connect(addItem(m_file, QStringLiteral("mnuExitItem"), QStringLiteral("E&xit")),
            &QAction::triggered, this, &Menus::exit);

    mnuMoneyItem = addItem(m_options, QStringLiteral("mnuMoneyItem"),
                           QStringLiteral("Enable Money Lender Bug"));
    mnuMoneyItem->setCheckable(true);
    mnuStatsItem =
        addItem(m_options, QStringLiteral("mnuStatsItem"), QStringLiteral("Display Statistics"));
    connect(mnuStatsItem, &QAction::triggered, this, &Menus::statistics);

    connect(addItem(m_help, QStringLiteral("mnuHelpItem"), QStringLiteral("&Help"), Qt::Key_F1),
            &QAction::triggered, this, &Menus::help);
    addSeparator(m_help, QStringLiteral("mnuItemSeperator2"));  // spelled so intentionally
    connect(addItem(m_help, QStringLiteral("mnuItemUpdates"), QStringLiteral("&Check for Updates")),
            &QAction::triggered, this, &Menus::checkForUpdates);
    connect(addItem(m_help, QStringLiteral("mnuAboutItem"), QStringLiteral("&About Zhenbao")),
            &QAction::triggered, this, &Menus::about);

    bar->setAccessibleName(QStringLiteral("Menus"));
    auto* openFirst = new QShortcut(Qt::Key_F10, bar);
    connect(openFirst, &QShortcut::activated, bar, [this, bar] {
        if (m_file->menuAction()->isEnabled()) {
            bar->setActiveAction(m_file->menuAction());
            m_file->setActiveAction(m_file->actions().constFirst());
        }
    });

    mnuSaveItem->setEnabled(false);
    mnuStatsItem->setEnabled(false);
}

QMenu* Menus::addMenu(const QString& name, const QString& caption) {
    QMenu* menu = m_bar->addMenu(caption);
    menu->setObjectName(name);
    menu->setAccessibleName(QString{caption}.remove(u'&'));
    m_all->addAction(menu->menuAction());
    connect(menu, &QMenu::aboutToHide, this, &Menus::leaveBar, Qt::QueuedConnection);
    return menu;
}

QAction* Menus::addItem(QMenu* menu, const QString& name, const QString& caption,
                        const QKeySequence& shortcut) {
    QAction* item = m_all->addAction(menu->addAction(caption));
    item->setObjectName(name);
    item->setShortcut(shortcut);
    return item;
}

void Menus::enableGameItems() {
    mnuSaveItem->setEnabled(true);
    mnuStatsItem->setEnabled(true);
}

void Menus::setOpen(bool open) {
    m_all->setEnabled(open);
}

void Menus::leaveBar() {
    if (QApplication::activePopupWidget() == nullptr && m_bar->window()->focusWidget() == m_bar) {
        // After Escape in a menu the bar has the focus; a second Escape gives it back.
        QKeyEvent another(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(m_bar, &another);
    }
}

bool Menus::moneyLenderBug() const {
    return mnuMoneyItem->isChecked();
}

}  // namespace ui
