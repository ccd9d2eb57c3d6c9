#pragma once

#include <string_view>

class QWidget;

namespace kestrabel {

/// Shows a text that is too long for a message box, to be scrolled and copied.
void ShowLongText(QWidget* pParent, std::string_view strTitle, std::string_view strText);

} // namespace kestrabel
