#pragma once

class QWidget;

namespace kestrabel {

/// Gives every label with a control, every button, check box and radio button of a dialog a letter to reach
/// it by, as far as letters last. Those that have one keep it; OK and Cancel are Enter and Esc.
void AssignMnemonics(QWidget& dialog);

} // namespace kestrabel
