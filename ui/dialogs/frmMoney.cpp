#include "frmMoney.h"

#include "main_form.h"
#include "money_lender.h"

namespace ui {

frmMoney::frmMoney(MainForm& mainForm)
    : TwoSidedForm(mainForm, QStringLiteral("frmMoney"),
                   QStringLiteral("Elder Mok the Money Lender"), QStringLiteral("OK"),
                   {{{.name = QStringLiteral("Borrow"),
                      .most = game::maxLoan,
                      .refuse = game::refuseLoan,
                      .apply =
                          [&mainForm](game::GameState& state, game::Currency amount) {
                              mainForm.setOrderEnabled(game::Order::Money, false);
                              return game::borrow(state, amount);
                          }},
                     {.name = QStringLiteral("Repay"),
                      .most = game::mostToRepay,
                      .refuse =
                          [&mainForm](const game::GameState& state, game::Currency amount) {
                              return game::refuseRepayment(state, amount,
                                                           mainForm.moneyLenderBug());
                          },
                      .apply = game::repay}}}) {
    layOutTightly(4575, 1770);
    placeAt(3400, 2980);
}

}  // namespace ui
