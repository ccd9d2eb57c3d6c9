#include "ui/QtDesktop.h"

#include "platform/Path.h"
#include "platform/SettingsStore.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/dialogs/TextDialog.h"
#include "ui/FileFilter.h"
#include "ui/QtText.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QMessageBox>

#include <algorithm>

namespace kestrabel {

namespace {

constexpr const char* Caption = "Kestrabel";
constexpr std::ptrdiff_t MostLines = 20; // of a message box; it does not scroll
constexpr std::string_view FolderSection = "Folders";
constexpr std::string_view OpenKind = "Open";
constexpr std::string_view SaveKind = "Save";

/// Shows a box with these buttons, one of which is what Esc means. With a check box its state goes in and
/// comes out.
QMessageBox::StandardButton Ask(QWidget* pParent, QMessageBox::Icon icon, std::string_view strText,
                                QMessageBox::StandardButtons buttons, QMessageBox::StandardButton escape,
                                std::string_view strCheckBox = {}, bool* pChecked = nullptr)
{
    QMessageBox box(icon, Caption, ToQt(strText), buttons, pParent);
    box.setTextFormat(Qt::PlainText); // a file may be called "<b>"
    box.setEscapeButton(escape);
    if (pChecked != nullptr) {
        auto* pCheckBox = new QCheckBox(ToQt(strCheckBox), &box);
        pCheckBox->setChecked(*pChecked);
        box.setCheckBox(pCheckBox);
    }
    const auto button = static_cast<QMessageBox::StandardButton>(box.exec());
    if (pChecked != nullptr)
        *pChecked = box.checkBox()->isChecked();
    return button;
}

} // namespace

/// What is asked while a dialog is open belongs to that dialog.
QWidget* CQtDesktop::Parent() const
{
    QWidget* pDialog = QApplication::activeModalWidget();
    return pDialog == nullptr ? &m_parent : pDialog;
}

void CQtDesktop::ShowMessage(std::string_view strText)
{
    if (std::ranges::count(strText, '\n') > MostLines) {
        ShowLongText(Parent(), Caption, strText);
        return;
    }
    Ask(Parent(), QMessageBox::Warning, strText, QMessageBox::Ok, QMessageBox::Ok);
}

bool CQtDesktop::AskOkCancel(std::string_view strText)
{
    return Ask(Parent(), QMessageBox::Question, strText, QMessageBox::Ok | QMessageBox::Cancel,
               QMessageBox::Cancel) == QMessageBox::Ok;
}

CUserPrompt::EAnswer CQtDesktop::AskYesNoCancel(std::string_view strText)
{
    switch (Ask(Parent(), QMessageBox::Question, strText,
                QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel))
    {
    case QMessageBox::Yes: return EAnswer::Yes;
    case QMessageBox::No: return EAnswer::No;
    default: return EAnswer::Cancel;
    }
}

bool CQtDesktop::AskYesNo(std::string_view strText)
{
    return Ask(Parent(), QMessageBox::Question, strText, QMessageBox::Yes | QMessageBox::No,
               QMessageBox::No) == QMessageBox::Yes;
}

bool CQtDesktop::AskYesNo(std::string_view strText, std::string_view strCheckBox, bool& bChecked)
{
    return Ask(Parent(), QMessageBox::Question, strText, QMessageBox::Yes | QMessageBox::No, QMessageBox::No,
               strCheckBox, &bChecked) == QMessageBox::Yes;
}

/// Where a file dialog begins: in the folder that the choice names, else where the last one ended.
std::string CQtDesktop::StartOf(const SFileChoice& choice, std::string_view strKind) const
{
    const std::string& strPath = choice.strInitialPath;
    if (!FolderOf(strPath).empty())
        return strPath;
    const std::string strName = strPath.starts_with('*') ? std::string() : strPath;
    return m_settings.Read(FolderSection, strKind) + strName;
}

void CQtDesktop::RememberFolder(std::string_view strKind, std::string_view strPath)
{
    m_settings.Write(FolderSection, strKind, FolderOf(strPath));
}

std::vector<std::string> CQtDesktop::ChooseFilesToOpen(const SFileChoice& choice)
{
    const QStringList paths =
        QFileDialog::getOpenFileNames(Parent(), ToQt(choice.strTitle), ToQt(StartOf(choice, OpenKind)),
                                      QtFilters(choice.strFilter).join(";;"));
    std::vector<std::string> chosen;
    for (const QString& strPath : paths)
        chosen.push_back(FromQt(strPath));
    if (!chosen.empty())
        RememberFolder(OpenKind, chosen.front());
    return chosen;
}

std::string CQtDesktop::ChooseFileToSave(const SFileChoice& choice)
{
    QFileDialog dialog(Parent(), ToQt(choice.strTitle), ToQt(StartOf(choice, SaveKind)));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(QtFilters(choice.strFilter));
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !choice.bConfirmOverwrite);
    const auto setSuffix = [&](const QString& strFilter) {
        const QString strExtension = FirstExtension(strFilter);
        dialog.setDefaultSuffix(strExtension.isEmpty() ? ToQt(choice.strDefaultExtension) : strExtension);
    };
    dialog.setDefaultSuffix(ToQt(choice.strDefaultExtension));
    QObject::connect(&dialog, &QFileDialog::filterSelected, setSuffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    std::string strPath = FromQt(dialog.selectedFiles().front());
    RememberFolder(SaveKind, strPath);
    return strPath;
}

bool CQtDesktop::Run(SAboutDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(SCommandDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(SDeleteSlowPointsDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(SEditCompetitorDialog& dialog)
{
    return RunDialog(Parent(), dialog, *this);
}
bool CQtDesktop::Run(SEditDivisionDialog& dialog)
{
    return RunDialog(Parent(), dialog, *this);
}
bool CQtDesktop::Run(SExtractTrackDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(SGridFieldsDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(SOptionsDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(SSelectCompetitorDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(SSelectDivisionDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(SSelectedPropertiesDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(SSelectWayPointDialog& dialog)
{
    return RunDialog(Parent(), dialog, *this);
}
bool CQtDesktop::Run(SSortTrackPointsDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(SSpeedDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(STrackFilePropertiesDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}
bool CQtDesktop::Run(SWayPointDialog& dialog)
{
    return RunDialog(Parent(), dialog);
}

} // namespace kestrabel
