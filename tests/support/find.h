#pragma once

#include <gtest/gtest.h>

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

}  // namespace test
