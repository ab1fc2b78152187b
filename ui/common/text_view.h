#pragma once

#include <QPlainTextEdit>

namespace ui {

/// A read-only text with a caret for reading and selecting.
class TextView : public QPlainTextEdit {
public:
    explicit TextView(const QString& name);
};

}  // namespace ui
