#pragma once

class QComboBox;
class QString;

namespace ui {

/// Gives `list`, its field and its entries the name by which assistive programs call them. The
/// toolkit would call a list by the text that it shows.
void nameList(QComboBox* list, const QString& spoken);

}  // namespace ui
