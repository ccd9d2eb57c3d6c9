#include "app/OptionsCommands.h"

#include "app/Document.h"
#include "app/EditRecorder.h"
#include "model/EventSettings.h"
#include "platform/Path.h"
#include "present/OptionsDialog.h"

namespace kestrabel {

namespace {

void CopySettings(const CEvent& from, CEvent& to)
{
    for (const SEventSetting& setting : EventSettings())
        std::visit([&](auto pField) { to.*pField = from.*pField; }, setting.field);
}

/// All points are derived anew behind the change, on the event's ellipsoid when that is another one.
void TouchEverything(CEvent& event, const CEvent& after, CEditRecorder& recorder)
{
    for (CPerson* pPerson : event.m_persons) {
        for (CSeries* pSeries : pPerson->m_series) {
            recorder.Touch(*pPerson, *pSeries, false);
            if (!(event.m_ellipsoid == after.m_ellipsoid))
                recorder.Set(pSeries->m_ellipsoid, after.m_ellipsoid);
        }
    }
}

} // namespace

void EditOptions(CKestroDoc& document)
{
    CEvent& event = document.m_event;
    SOptionsDialog dialog = SOptionsDialog::From(event);
    if (!document.m_surroundings.desktop.Run(dialog))
        return;
    CEvent after;
    CopySettings(event, after);
    dialog.ApplyTo(after);
    const EOptionsEffect effect = EffectOfOptions(event, after);
    if (effect == EOptionsEffect::Nothing)
        return;

    CEditRecorder recorder(document, "Options");
    if (effect == EOptionsEffect::Points)
        TouchEverything(event, after, recorder);
    if (effect == EOptionsEffect::Results) {
        for (const CDivision* pDivision : event.m_divisions)
            recorder.VoidDivision(pDivision->m_strName);
    }
    for (const SEventSetting& setting : EventSettings()) {
        std::visit(
            [&](auto pField) {
                if (!(event.*pField == after.*pField))
                    recorder.Set(event.*pField, after.*pField);
            },
            setting.field);
    }
    recorder.MarkDocument();
    recorder.Finish();
    document.m_selection.Recalculate(false, false);
    recorder.Keep();
}

void ChooseDataFolder(CKestroDoc& document)
{
    std::string& strDataFolder = document.m_event.m_strDataFolder;
    // A folder may have no file yet: any name in it will do.
    const std::string strPath = document.m_surroundings.desktop.ChooseFileToSave({
        .strTitle = "Data Folder",
        .strInitialPath = strDataFolder,
        .strFilter = "All Files (*.*)|*.*||",
        .strDefaultExtension = "",
        .bConfirmOverwrite = false,
    });
    const std::string strFolder = FolderOf(strPath);
    if (strFolder.empty() || strFolder == strDataFolder)
        return;
    CEditRecorder recorder(document, "Data Folder");
    recorder.Set(strDataFolder, strFolder);
    recorder.MarkDocument();
    recorder.Finish();
    document.m_selection.Recalculate(false, false);
    recorder.Keep();
}

} // namespace kestrabel
