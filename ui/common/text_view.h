#pragma once

#include <QPlainTextEdit>

namespace ui {

/// A text to read: it has a caret to read and select by.
class TextView : public QPlainTextEdit {
public:
    explicit TextView(const QString& name);
};

}  // namespace ui
