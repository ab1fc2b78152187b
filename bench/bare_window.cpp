// The yardstick of a start-up: the standard controls and captions of the main window and nothing
// else of it, neither its font nor its colours nor its names. Ends after the first painted frame.

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

#include "first_frame.h"

namespace {

QGridLayout* addPanel(QGridLayout* client, const QString& title, int row, int column,
                      int columns = 1) {
    auto* panel = new QGroupBox(title);
    client->addWidget(panel, row, column, 1, columns);
    return new QGridLayout(panel);
}

void addFigures(QGridLayout* panel, int column, const QStringList& captions, const QString& text) {
    int row = 1;
    for (const QString& caption : captions) {
        panel->addWidget(new QLabel(caption), row, column);
        panel->addWidget(new QLineEdit(text), row++, column + 1);
    }
}

void addMenu(QMenuBar* bar, const QString& caption, const QStringList& items) {
    QMenu* menu = bar->addMenu(caption);
    for (const QString& item : items) {
        menu->addAction(item)->setSeparator(item.isEmpty());
    }
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    addMenu(window.menuBar(), "&File",
            {"&New Game", "&Load Game...", "&Save Game...", {}, "E&xit"});
    addMenu(window.menuBar(), "&Options", {"Enable Money Lender Bug", "Display Statistics"});
    addMenu(window.menuBar(), "&Help", {"&Help", {}, "&Check for Updates", "&About Zhenbao"});

    auto* area = new QWidget;
    auto* client = new QGridLayout(area);
    const QStringList goods{"Opium:", "Silk:", "Arms:", "General:"};
    QGridLayout* house = addPanel(client, "House of Zhenbao, Hong Kong", 0, 0, 2);
    house->addWidget(new QLabel("- Warehouse -"), 0, 0, 1, 2);
    house->addWidget(new QLabel("- Ship -"), 0, 2, 1, 2);
    addFigures(house, 0, goods, "0");
    addFigures(house, 2, goods, "0");
    addFigures(house, 4, {"Cannons:", "Cash:", "Debt:", "Bank:"}, "$0");
    QGridLayout* prices = addPanel(client, "Prices at Hong Kong", 0, 2);
    prices->addWidget(new QLabel("Date:"), 0, 0);
    prices->addWidget(new QLineEdit("Jan 15, 1860"), 0, 1);
    addFigures(prices, 0, goods, "$0");
    addPanel(client, "Ship's Status - 100%", 1, 0, 2)->addWidget(new QProgressBar);
    addPanel(client, "Ship's Hold - 0 of 60", 1, 2)->addWidget(new QProgressBar);
    QGridLayout* orders = addPanel(client, "Orders", 2, 0);
    const QStringList captions{"Buy Merchandice", "Sell Merchandice", "Leave Port",
                               "Visit Bank",      "Money Lender",     "Transfer Cargo",
                               "Buy Cannon",      "Repair Ship",      "Buy Ship"};
    for (int row = 0; row < captions.size(); ++row) {
        orders->addWidget(new QPushButton(captions.at(row)), row, 0);
    }
    addPanel(client, "Comprador's Report", 2, 1, 2)->addWidget(new QPlainTextEdit);
    window.setCentralWidget(area);

    const bench::FirstFrame firstFrame(window);
    window.show();
    return QApplication::exec();
}
