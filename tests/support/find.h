#pragma once

#include <QStringList>
#include <QVariant>
#include <QWidget>
#include <stdexcept>

namespace test {

/// The control of that name; a test cannot go on without it.
template <class Control>
Control* find(QWidget& window, const char* name) {
    auto* control = window.findChild<Control*>(QString::fromLatin1(name));
    if (control == nullptr) {
        throw std::runtime_error(std::string{"no control named "} + name);
    }
    return control;
}

/// What a control shows.
inline QString textOf(const QWidget& control) {
    for (const char* property : {"currentText", "value", "title", "text", "plainText"}) {
        if (const QVariant text = control.property(property); text.isValid()) {
            return text.toString();
        }
    }
    return {};
}

/// What the named controls show, in their order; what is disabled stands in brackets.
inline std::string shown(QWidget& window, const char* names) {
    QStringList texts;
    for (const QString& name : QString(names).split(' ')) {
        const auto* control = find<QWidget>(window, qPrintable(name));
        const QString text = textOf(*control);
        texts << (control->isEnabled() ? text : '(' + text + ')');
    }
    return texts.join("; ").toStdString();
}

}  // namespace test
