// Absurd saved games in the real windows, played on by somebody who presses anything.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTimer>

#include "absurd_games.h"
#include "amount_field.h"
#include "frmMain.h"
#include "game_file.h"
#include "saved_games.h"

namespace {

/// Answers every box at random, but never so that the program ends.
class CarelessDesktop final : public ui::Desktop {
public:
    explicit CarelessDesktop(game::Random& random) : m_random(random) {}

    QString file;

    ui::Answer show(QWidget* /*owner*/, const ui::Box& box) override {
        const bool fatal = box.onEscape == ui::Answer::Yes || box.text.contains(u"quit");
        const auto any = static_cast<std::size_t>(
            game::roll(m_random, static_cast<int>(box.buttons.size())) - 1);
        return fatal ? box.onEscape : box.buttons.at(any);
    }
    QString chooseFileToLoad(QWidget* /*owner*/) override { return file; }
    QString chooseFileToSave(QWidget* /*owner*/) override { return {}; }
    void openLink(const QUrl& /*link*/) override {}
    void wait(game::Milliseconds /*duration*/) override {}
    [[noreturn]] void endProgram() override { std::abort(); }

private:
    game::Random& m_random;
};

class Player {
public:
    Player(ui::frmMain& mainForm, game::Random& random) : m_mainForm(mainForm), m_random(random) {
        reachOut();
    }

    void giveOrder() {
        auto* orders = m_mainForm.findChild<QWidget*>(QStringLiteral("fraOrders"));
        any(orders->findChildren<QPushButton*>())->click();
    }

private:
    template <class Item>
    Item any(const QList<Item>& items) {
        return items.at(game::roll(m_random, static_cast<int>(items.size())) - 1);
    }

    /// A timer of its own for each touch, since a touch may open a dialog that wants the next.
    void reachOut() {
        QTimer::singleShot(0, &m_hand, [this] {
            reachOut();
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                touch(dialog);
            }
        });
    }

    void touch(QDialog* dialog) {
        if (game::roll(m_random, 8) == 1) {
            dialog->close();
            return;
        }
        QWidget* control = any(dialog->findChildren<QWidget*>());
        if (auto* field = qobject_cast<ui::AmountField*>(control)) {
            field->showPopup();
            field->hidePopup();
            field->setEditText(game::roll(m_random, 2) == 1 ? field->itemText(field->count() - 1)
                                                            : QStringLiteral("99999999999999999"));
        } else if (auto* slider = qobject_cast<QSlider*>(control)) {
            slider->setValue(game::roll(m_random, 120) - 10);
        } else if (auto* button = qobject_cast<QAbstractButton*>(control);
                   button != nullptr && button->objectName() != QStringLiteral("cmdRetire")) {
            button->click();
        }
    }

    ui::frmMain& m_mainForm;
    game::Random& m_random;
    QObject m_hand;
};

TEST(Hostile, AbsurdGamesLoadAndCanBePlayedOn) {
    const QTemporaryDir folder;
    std::uint64_t seed = 1'860;
    for (const game::GameState& absurd : test::absurdGames()) {
        SCOPED_TRACE(++seed);
        game::Generator generator(seed);
        CarelessDesktop desktop(generator);
        ui::frmMain mainForm(desktop, generator);
        mainForm.show();
        Player player(mainForm, generator);
        const QSize smallest = mainForm.minimumSizeHint();
        mainForm.state() = absurd;
        desktop.file = folder.filePath(QStringLiteral("absurd.zhb"));
        if (absurd.gstrFirm.find('\r') == std::string::npos) {
            ui::writeGameFile(desktop.file, absurd);
            ui::loadGame(mainForm);
        }
        EXPECT_EQ(mainForm.minimumSizeHint().width(), smallest.width());
        for (int order = 0; order < 20; ++order) {
            player.giveOrder();
        }
        EXPECT_FALSE(mainForm.windowTitle().isEmpty());
    }
}

}  // namespace
