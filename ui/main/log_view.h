#pragma once

#include "report.h"
#include "text_view.h"
#include "voyage_scene.h"

namespace ui {

/// Shows the comprador's report and follows its text: what is added, what falls off the front.
class LogView final : public TextView {
public:
    LogView();

    void open(const game::GameDate& date, std::string_view message);
    void addEntry(const game::GameDate& date, std::string_view message,
                  std::string_view continuation);
    /// Adds text after the last entry. The view stays where it is if the player has scrolled up.
    void append(std::string_view text);
    /// Cuts the report to its length and shows its end.
    void refresh();
    /// Moves the caret and the view to the end.
    void showEnd();

    /// Background and text in the colours of an alert, or in the usual ones.
    void showAlert(game::Alert alert);
    void showCalm();

protected:
    void changeEvent(QEvent* event) override;

private:
    void insertAtEnd(std::string_view text);
    void setColours(const QColor& background, const QColor& text);
    /// Keeps the desktop's colours for the scroll bar. The style stores pictures of it for each
    /// palette, so alerts would add more and more.
    void keepScrollBarCalm();

    game::Report m_report;
};

}  // namespace ui
