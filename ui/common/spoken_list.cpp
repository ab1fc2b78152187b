#include "spoken_list.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLineEdit>

namespace ui {

namespace {

/// A list with its entries and, where it can be typed into, its field.
class SpokenList final : public QAccessibleWidget {
public:
    explicit SpokenList(QComboBox* list)
        : QAccessibleWidget(list, QAccessible::ComboBox), m_list(list) {}

    [[nodiscard]] int childCount() const override { return m_list->isEditable() ? 2 : 1; }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        if (index == 0) {
            return QAccessible::queryAccessibleInterface(m_list->view());
        }
        return index == 1 ? QAccessible::queryAccessibleInterface(m_list->lineEdit()) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* candidate) const override {
        const QObject* part = candidate->object();
        if (part != nullptr && part == m_list->lineEdit()) {
            return 1;
        }
        return part != nullptr && part == m_list->view() ? 0 : -1;
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        QString spoken = QAccessibleWidget::text(kind);
        switch (kind) {
            case QAccessible::Name:
                // What is typed is heard from the field; what is only chosen, nowhere else.
                return m_list->isEditable() ? spoken
                                            : spoken + QStringLiteral(": ") + m_list->currentText();
            case QAccessible::Value:
                return m_list->currentText();
            default:
                return spoken;
        }
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = m_list->view()->isVisible();
        state.editable = m_list->isEditable();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override { return {showMenuAction()}; }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*action*/) const override {
        return {QKeySequence(Qt::ALT | Qt::Key_Down).toString(QKeySequence::NativeText)};
    }
    void doAction(const QString& action) override {
        if (action == showMenuAction() && m_list->isEnabled()) {
            m_list->view()->isVisible() ? m_list->hidePopup() : m_list->showPopup();
        }
    }

private:
    QComboBox* m_list;
};

QAccessibleInterface* makeSpokenList(const QString& /*className*/, QObject* object) {
    auto* list = qobject_cast<QComboBox*>(object);
    return list == nullptr || list->accessibleName().isEmpty() ? nullptr : new SpokenList(list);
}

}  // namespace

void nameList(QComboBox* list, const QString& spoken) {
    QAccessible::installFactory(makeSpokenList);  // once, however many lists there are
    list->setAccessibleName(spoken);
    list->view()->setAccessibleName(spoken);
    if (list->isEditable()) {
        list->lineEdit()->setAccessibleName(spoken);
    }
}

}  // namespace ui
