#include "frmMoney.h"

#include "main_form.h"
#include "money_lender.h"

namespace ui {

frmMoney::frmMoney(MainForm& mainForm)
    : TwoSidedForm(mainForm, QStringLiteral("frmMoney"),
                   QStringLiteral("Elder Mok the Money Lender"), QStringLiteral("OK"),
                   {borrowing(mainForm), repaying(mainForm)}) {
    layOutTightly(4575, 1770);
    placeAt(3400, 2980);
}

TwoSidedForm::Side frmMoney::borrowing(MainForm& mainForm) {
    const auto borrow = [&mainForm](game::GameState& state, game::Currency amount) {
        mainForm.setOrderEnabled(game::Order::Money, false);  // once a visit
        return game::borrow(state, amount);
    };
    return {.name = QStringLiteral("Borrow"),
            .most = game::maxLoan,
            .refuse = game::refuseLoan,
            .apply = borrow};
}

TwoSidedForm::Side frmMoney::repaying(const MainForm& mainForm) {
    const auto refuse = [&mainForm](const game::GameState& state, game::Currency amount) {
        return game::refuseRepayment(state, amount, mainForm.moneyLenderBug());
    };
    return {.name = QStringLiteral("Repay"),
            .most = game::mostToRepay,
            .refuse = refuse,
            .apply = game::repay};
}

}  // namespace ui
