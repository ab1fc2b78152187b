#include "frmLeave.h"

#include <QBoxLayout>

#include "commands.h"
#include "controls.h"
#include "main_form.h"
#include "text.h"
#include "voyage.h"

namespace ui {

frmLeave::frmLeave(MainForm& mainForm)
    : GameForm(mainForm, QStringLiteral("frmLeave"), QStringLiteral("Leave Port")) {
    auto* fraDestination =
        makeFrame(QStringLiteral("fraDestination"), QStringLiteral("Choose Destination "));
    auto* options = new QVBoxLayout(fraDestination);
    const std::string& location = mainForm.state().gstrLocation;
    const std::string_view proposed = game::proposedPort(mainForm.random(), location);
    for (std::size_t port = 0; port < m_ports.size(); ++port) {
        const QString caption = fromRules(game::ports.at(port));
        auto* option = makeOption(QStringLiteral("opt") + QString{caption}.remove(u' '), caption);
        option->setEnabled(game::ports.at(port) != location);
        option->setChecked(game::ports.at(port) == proposed);
        options->addWidget(option);
        m_ports.at(port) = option;
    }

    auto* cmdDepart = makeButton(QStringLiteral("cmdDepart"), QStringLiteral("Depart"));
    auto* cmdCancel = makeButton(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
    cmdDepart->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdDepart);
    buttons->addWidget(cmdCancel);

    auto* rows = new QVBoxLayout(this);
    rows->addWidget(fraDestination);
    rows->addLayout(buttons);
    layOutTightly(2850, 3450);
    placeAt(3400, 2910);
    for (QRadioButton* option : m_ports) {
        if (option->isChecked()) {
            option->setFocus();  // the arrow keys go on from the proposal
        }
    }

    auto* commands = new Commands(this);  // one press of either counts
    commands->giveOn(cmdDepart, &QPushButton::clicked, [this] { cmdDepart_Click(); });
    commands->giveOn(cmdCancel, &QPushButton::clicked, [this] { reject(); });
}

std::string_view frmLeave::destination() const {
    std::size_t port = 0;
    while (!m_ports.at(port)->isChecked()) {
        ++port;
    }
    return game::ports.at(port);
}

void frmLeave::cmdDepart_Click() {
    const std::string_view port = destination();
    // The dialog makes way for the report. A hidden dialog no longer blocks the main window, so
    // that one refuses orders itself until the ship has arrived.
    mainForm().setUnderWay(true);
    hide();
    game::sail(mainForm().state(), mainForm().random(), mainForm(), port);
    mainForm().setUnderWay(false);
    accept();
}

}  // namespace ui
