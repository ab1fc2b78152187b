#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "currency.h"

namespace ui {

[[nodiscard]] inline QString fromRules(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline std::string toRules(const QString& text) {
    return text.toStdString();
}

/// The text on one line, as fields and titles show it: line breaks, tabs and the like are blanks.
[[nodiscard]] inline QString onOneLine(QString text) {
    for (QChar& character : text) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph) {
            character = u' ';
        }
    }
    return text;
}

/// "$#,##0".
[[nodiscard]] inline QString money(game::Currency amount) {
    return fromRules(game::moneyText(amount));
}
/// As wide as any amount of money that a game in play shows: where digits differ in width, the
/// nought is the widest.
inline const QString widestMoney = QStringLiteral("-$000,000,000,000");
/// Room in average letters for the longest amount that a field shows without clipping, twelve
/// digits: -$999,999,999,999 with its narrow signs, and plain.
inline constexpr int roomForMoney = 14;
inline constexpr int roomForUnits = 12;
/// Plain digits.
[[nodiscard]] inline QString plain(game::Currency amount) {
    return fromRules(game::plainText(amount));
}

}  // namespace ui
