#include "present/CommandDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/QtText.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace kestrabel {

namespace {

void AddExample(QBoxLayout& layout, std::string_view strExample)
{
    auto* pExample = new QLabel("Example: " + ToQt(strExample));
    pExample->setTextFormat(Qt::PlainText);
    pExample->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout.addWidget(pExample);
}

/// A command line is long: its field goes below its name.
void AddField(CBoundDialog& box, std::string_view strLabel, std::string& strText)
{
    QLineEdit* pEdit = box.m_fields.Edit(strText, strLabel);
    box.Body().addWidget(box.m_fields.Label(strLabel, pEdit));
    box.Body().addWidget(pEdit);
}

} // namespace

bool RunDialog(QWidget* pParent, SCommandDialog& dialog)
{
    CBoundDialog box(pParent, SCommandDialog::Title);
    AddField(box, SCommandDialog::NameLabel, dialog.strName);
    AddField(box, SCommandDialog::CommandLabel, dialog.strCommand);
    AddExample(box.Body(), SCommandDialog::CommandExample);
    AddField(box, SCommandDialog::FileInLabel, dialog.strFileIn);
    AddExample(box.Body(), SCommandDialog::FileInExample);
    QFormLayout& replacements = box.AddGroup("Replaced in these texts");
    for (const SCommandDialog::SReplacement& replacement : SCommandDialog::Replacements)
        replacements.addRow(ToQt(replacement.strPlaceholder), new QLabel(ToQt(replacement.strMeaning)));
    return box.Run(SCommandDialog::RunLabel, SCommandDialog::CloseLabel);
}

} // namespace kestrabel
