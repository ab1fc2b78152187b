#include "log_view.h"

#include <QGuiApplication>
#include <QScrollBar>
#include <QTextCursor>

#include "text.h"

namespace ui {

namespace {

/// A line break is two characters in the report and one in the view.
QString shown(std::string_view text) {
    return fromRules(text).remove(u'\r');
}

}  // namespace

LogView::LogView() : TextView(QStringLiteral("txtLog")) {
    setAccessibleName(QStringLiteral("Comprador's Report"));
    setUndoRedoEnabled(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    showCalm();
}

void LogView::open(const game::GameDate& date, std::string_view message) {
    m_report.open(date, message);
    setPlainText(shown(m_report.text()));
    showEnd();
}

void LogView::addEntry(const game::GameDate& date, std::string_view message,
                       std::string_view continuation) {
    insertAtEnd(m_report.addEntry(date, message, continuation));
    showEnd();
}

void LogView::append(std::string_view text) {
    m_report.append(text);
    const QScrollBar* bar = verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    insertAtEnd(text);
    if (atEnd) {
        verticalScrollBar()->setValue(bar->maximum());
    }
}

void LogView::refresh() {
    if (const std::string removed = m_report.trim(); !removed.empty()) {
        QTextCursor front(document());
        front.setPosition(static_cast<int>(shown(removed).size()), QTextCursor::KeepAnchor);
        front.removeSelectedText();
    }
    showEnd();
}

void LogView::showEnd() {
    if (QTextCursor caret = textCursor(); !caret.atEnd() || caret.hasSelection()) {
        caret.movePosition(QTextCursor::End);
        setTextCursor(caret);
    }
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void LogView::showAlert(game::Alert alert) {
    setColours(alert == game::Alert::Misfortune ? Qt::red : Qt::cyan, Qt::black);
}

void LogView::showCalm() {
    setColours(Qt::black, QColor(0xE6, 0xE1, 0xD3));
}

void LogView::changeEvent(QEvent* event) {
    TextView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        keepScrollBarCalm();
    }
}

void LogView::insertAtEnd(std::string_view text) {
    if (text.size() > game::Report::longest) {
        // A firm's name out of a broken file may have millions of letters, which take ages to lay
        // out.
        (void)m_report.trim();
        setPlainText(shown(m_report.text()));
        return;
    }
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(shown(text));
}

void LogView::setColours(const QColor& background, const QColor& text) {
    QPalette colours;
    colours.setColor(QPalette::Base, background);
    colours.setColor(QPalette::Text, text);
    setPalette(colours);
}

void LogView::keepScrollBarCalm() {
    QPalette colours;
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Text}) {
        colours.setColor(role, QGuiApplication::palette().color(role));
    }
    verticalScrollBar()->setPalette(colours);
}

}  // namespace ui
