#include "form.h"

#include <QBoxLayout>
#include <QFontInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QScreen>

#include "controls.h"
#include "layout.h"
#include "main_form.h"
#include "place.h"
#include "text.h"
#include "twips.h"

namespace ui {

Form::Form(MainForm& mainForm, const QString& name, const QString& caption, Escape escape)
    : QDialog(mainForm.window()), m_mainForm(mainForm), m_escape(escape) {
    setObjectName(name);
    setWindowTitle(caption);
    // The size is fixed, so the frame is asked for no buttons to minimise or maximise.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
}

void Form::placeAt(int left, int top) {
    const QWidget& owner = *m_mainForm.window();
    const QRect frame = owner.frameGeometry();
    const QRect wanted(frame.topLeft() + pointFromTwips(left, top),
                       size() + frame.size() - owner.size());
    if (fontInfo().pixelSize() <= measures::standardLetters) {
        move(wanted.topLeft());
        return;
    }
    std::vector<QRect> figures;
    for (const QWidget* figure : m_mainForm.figures()) {
        figures.emplace_back(figure->mapToGlobal(QPoint()), figure->size());
    }
    move(placeBeside(figures, wanted, owner.screen()->availableGeometry()));
}

void Form::fixSize(int width, int height) {
    setFixedSize(sizeFromTwips(width, height).expandedTo(layout()->totalSizeHint()));
}

void Form::keyPressEvent(QKeyEvent* event) {
    if (m_escape == Escape::Ignored && event->matches(QKeySequence::Cancel)) {
        return;
    }
    QDialog::keyPressEvent(event);
}

void GameForm::layOutTightly(int width, int height) {
    for (auto* lines : findChildren<QGridLayout*>()) {
        lines->setVerticalSpacing(measures::lineGap);
        lines->setHorizontalSpacing(measures::gap);
    }
    for (auto* row : findChildren<QBoxLayout*>()) {
        row->setSpacing(measures::gap);
    }
    for (auto* panel : findChildren<QGroupBox*>()) {
        if (auto* lines = qobject_cast<QVBoxLayout*>(panel->layout())) {
            lines->setSpacing(measures::lineGap);
        }
        panel->layout()->setContentsMargins(measures::panelEdge, measures::panelTop,
                                            measures::panelEdge, measures::panelEdge);
    }
    layout()->setContentsMargins(measures::windowEdge, measures::windowEdge, measures::windowEdge,
                                 measures::windowEdge);
    fixSize(width, height);
}

void GameForm::done(int result) {
    QDialog::done(result);
    mainForm().UpdateMainForm();
}

bool GameForm::refused(const game::Refusal& refusal) {
    if (refusal) {
        mainForm().desktop().inform(this, fromRules(*refusal), refusalTitle);
    }
    return refusal.has_value();
}

void GameForm::report(const std::vector<std::string>& messages) {
    for (const std::string& message : messages) {
        mainForm().appendEntry(message);
    }
}

}  // namespace ui
