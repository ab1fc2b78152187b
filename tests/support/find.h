#pragma once

#include <gtest/gtest.h>

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

/// What the named controls show, in their order; what is disabled stands in brackets.
inline std::string shown(QWidget& window, const char* names) {
    QStringList texts;
    for (const QString& name : QString(names).split(' ')) {
        const auto* control = find<QWidget>(window, qPrintable(name));
        QVariant text;
        for (const char* property : {"currentText", "value", "title", "text"}) {
            text = text.isValid() ? text : control->property(property);
        }
        texts << (control->isEnabled() ? text.toString() : '(' + text.toString() + ')');
    }
    return texts.join("; ").toStdString();
}

}  // namespace test
