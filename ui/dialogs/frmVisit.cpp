#include "frmVisit.h"

#include "bank.h"

namespace ui {

frmVisit::frmVisit(MainForm& mainForm)
    : TwoSidedForm(mainForm, QStringLiteral("frmVisit"), QStringLiteral("Visit Bank"),
                   QStringLiteral("Ok"),
                   {{{.name = QStringLiteral("Deposit"),
                      .most = game::mostToDeposit,
                      .refuse = game::refuseDeposit,
                      .apply = game::deposit},
                     {.name = QStringLiteral("Withdraw"),
                      .most = game::mostToWithdraw,
                      .refuse = game::refuseWithdrawal,
                      .apply = game::withdraw}}}) {
    layOutTightly(4455, 1815);
    placeAt(3400, 2960);
}

}  // namespace ui
