#pragma once

#include <QComboBox>
#include <functional>
#include <string>

#include "currency.h"

namespace ui {

/// The character, if it may be typed into an amount field: a digit or Backspace; else 0.
[[nodiscard]] char16_t DigitKeyFilter(char16_t character);
/// Whether a dialog of amounts lets a key through to its controls: one that types nothing, or only
/// characters that the filter passes.
[[nodiscard]] bool isAllowed(const QKeyEvent& key);

/// An editable list whose text is an amount. The entries are made each time the list opens, and
/// can be reached only there.
class AmountField final : public QComboBox {
    Q_OBJECT

public:
    /// How an amount is written: 1000 or $1,000. Both are read alike.
    using Format = QString (*)(game::Currency);
    using Maximum = std::function<game::Currency()>;

    AmountField(const QString& name, Format format);

    /// What the list ends with; asked for each time the list is opened.
    void setMaximum(Maximum maximum) { m_maximum = std::move(maximum); }

    /// Its text as it is shown, on one line.
    [[nodiscard]] std::string typed() const;
    /// The number its text reads as.
    [[nodiscard]] game::Currency amount() const;

    /// Fills the list with round steps up to `maximum` and keeps the text.
    void FillAmountList(game::Currency maximum);

    void showPopup() override;

signals:
    /// The list is about to be filled and opened.
    void dropDown();
    /// A key is about to change the text: a digit, Backspace or the one that pastes.
    void keyTyped();
    /// An entry was picked from the open list and is now the text.
    void entryPicked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// Emits keyTyped if the key, which is allowed, changes the text.
    void announce(const QKeyEvent& key);

    Format m_format;
    Maximum m_maximum;
    bool m_selectOnRelease = false;
};

}  // namespace ui
