#pragma once

#include "ui/dialogs/FieldBinder.h"

#include <QDialog>
#include <QVBoxLayout>

#include <functional>
#include <optional>

class QGroupBox;
class QPushButton;

namespace kestrabel {

/// A modal dialog over bound fields: what the caller puts into `Body()`, and buttons below it. OK keeps it
/// open while `validate` finds a fault, tells it, and puts the cursor into the field.
class CBoundDialog : public QDialog
{
public:
    CBoundDialog(QWidget* pParent, std::string_view strTitle);

    QVBoxLayout& Body() { return *m_pBody; }
    /// A group in the body, or in another layout of it.
    QFormLayout& AddGroup(std::string_view strTitle) { return AddGroup(strTitle, *m_pBody); }
    static QFormLayout& AddGroup(std::string_view strTitle, QBoxLayout& layout);
    QFormLayout& AddForm();
    /// A text without a control. Broken into lines when it is long.
    void AddText(std::string_view strText);
    /// In a row with OK and Cancel.
    QPushButton* AddButton(std::string_view strText, std::function<void()> press);
    /// In the body or elsewhere: presses `press`, then the fields are shown anew.
    QPushButton* MakeButton(std::string_view strText, std::function<void()> press);

    /// Shows it until it ends. True for OK.
    bool RunOkCancel(std::function<std::optional<SFieldProblem>()> validate = {});
    /// The same with other texts on the buttons; an empty one is left out.
    bool Run(std::string_view strAccept, std::string_view strReject,
             std::function<std::optional<SFieldProblem>()> validate = {});
    /// Tells a fault, with the cursor in its field.
    void Tell(const SFieldProblem& problem);

    void accept() override;

    CFieldBinder m_fields;

private:
    QVBoxLayout* m_pBody;
    std::vector<QPushButton*> m_buttons;
    std::function<std::optional<SFieldProblem>()> m_validate;
};

} // namespace kestrabel
