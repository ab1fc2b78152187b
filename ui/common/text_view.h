#pragma once

#include <QPlainTextEdit>

namespace ui {

/// A text to read: it has a caret to read and select by, and a frame that shows the focus.
class TextView : public QPlainTextEdit {
public:
    explicit TextView(const QString& name);

protected:
    bool event(QEvent* event) override;
};

}  // namespace ui
