#include "ui/dialogs/BoundDialog.h"

#include "ui/dialogs/Mnemonics.h"
#include "ui/QtText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace kestrabel {

namespace {

constexpr std::size_t LongText = 60; ///< characters; what is longer is broken into lines of about this

} // namespace

CBoundDialog::CBoundDialog(QWidget* pParent, std::string_view strTitle) : QDialog(pParent)
{
    setWindowTitle(ToQt(strTitle));
    auto* pLayout = new QVBoxLayout(this);
    m_pBody = new QVBoxLayout;
    pLayout->addLayout(m_pBody);
}

QFormLayout& CBoundDialog::AddGroup(std::string_view strTitle, QBoxLayout& layout)
{
    auto* pGroup = new QGroupBox(ToQt(strTitle));
    auto* pForm = new QFormLayout(pGroup);
    layout.addWidget(pGroup);
    return *pForm;
}

QFormLayout& CBoundDialog::AddForm()
{
    auto* pForm = new QFormLayout;
    m_pBody->addLayout(pForm);
    return *pForm;
}

void CBoundDialog::AddText(std::string_view strText)
{
    auto* pLabel = new QLabel(ToQt(strText).trimmed());
    pLabel->setTextFormat(Qt::PlainText);
    if (strText.size() > LongText) {
        pLabel->setWordWrap(true);
        pLabel->setMinimumWidth(fontMetrics().averageCharWidth() * static_cast<int>(LongText));
    }
    m_pBody->addWidget(pLabel);
}

QPushButton* CBoundDialog::MakeButton(std::string_view strText, std::function<void()> press)
{
    auto* pButton = new QPushButton(ToQt(strText));
    pButton->setAutoDefault(false); // Enter means OK
    pButton->setAccessibleName(SpokenName(strText));
    connect(pButton, &QPushButton::clicked, this, [this, press = std::move(press)] {
        press();
        m_fields.Show();
    });
    return pButton;
}

QPushButton* CBoundDialog::AddButton(std::string_view strText, std::function<void()> press)
{
    m_buttons.push_back(MakeButton(strText, std::move(press)));
    return m_buttons.back();
}

bool CBoundDialog::RunOkCancel(std::function<std::optional<SFieldProblem>()> validate)
{
    return Run("OK", "Cancel", std::move(validate));
}

bool CBoundDialog::Run(std::string_view strAccept, std::string_view strReject,
                       std::function<std::optional<SFieldProblem>()> validate)
{
    m_validate = std::move(validate);
    auto* pButtons = new QDialogButtonBox;
    for (QPushButton* pButton : m_buttons)
        pButtons->addButton(pButton, QDialogButtonBox::ActionRole);
    if (!strAccept.empty())
        pButtons->addButton(ToQt(strAccept), QDialogButtonBox::AcceptRole)->setDefault(true);
    if (!strReject.empty())
        pButtons->addButton(ToQt(strReject), QDialogButtonBox::RejectRole)->setAutoDefault(false);
    connect(pButtons, &QDialogButtonBox::accepted, this, &CBoundDialog::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &CBoundDialog::reject);
    layout()->addWidget(pButtons);
    AssignMnemonics(*this);
    m_fields.Show();
    layout()->setSizeConstraint(QLayout::SetMinimumSize);
    return exec() == Accepted;
}

void CBoundDialog::accept()
{
    if (const std::optional<SFieldProblem> problem = m_validate ? m_validate() : std::nullopt) {
        Tell(*problem);
        return;
    }
    QDialog::accept();
}

void CBoundDialog::Tell(const SFieldProblem& problem)
{
    QMessageBox box(QMessageBox::Warning, windowTitle(), ToQt(problem.strMessage), QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
    activateWindow(); // not every window manager gives the keyboard back
    QWidget* pControl = m_fields.ControlOf(problem.pField);
    if (pControl == nullptr)
        return;
    pControl->setFocus(Qt::OtherFocusReason);
    if (auto* pEdit = qobject_cast<QLineEdit*>(pControl))
        pEdit->selectAll();
    else if (auto* pList = qobject_cast<QComboBox*>(pControl); pList != nullptr && pList->isEditable())
        pList->lineEdit()->selectAll();
}

} // namespace kestrabel
