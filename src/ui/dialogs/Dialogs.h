#pragma once

#include "app/Desktop.h"

class QWidget;

namespace kestrabel {

// One dialog after another, modal over `pParent`. Each binds its widgets to the struct; on OK the first value
// out of range keeps it open, with a message and the cursor in that field. True for OK. Those with buttons
// for another dialog open it on `desktop`.

bool RunDialog(QWidget* pParent, SAboutDialog& dialog);
bool RunDialog(QWidget* pParent, SCommandDialog& dialog);
bool RunDialog(QWidget* pParent, SDeleteSlowPointsDialog& dialog);
bool RunDialog(QWidget* pParent, SEditCompetitorDialog& dialog, CDesktop& desktop);
bool RunDialog(QWidget* pParent, SEditDivisionDialog& dialog, CDesktop& desktop);
bool RunDialog(QWidget* pParent, SExtractTrackDialog& dialog);
bool RunDialog(QWidget* pParent, SGridFieldsDialog& dialog);
bool RunDialog(QWidget* pParent, SOptionsDialog& dialog);
bool RunDialog(QWidget* pParent, SSelectCompetitorDialog& dialog);
bool RunDialog(QWidget* pParent, SSelectDivisionDialog& dialog);
bool RunDialog(QWidget* pParent, SSelectedPropertiesDialog& dialog);
bool RunDialog(QWidget* pParent, SSelectWayPointDialog& dialog, CDesktop& desktop);
bool RunDialog(QWidget* pParent, SSortTrackPointsDialog& dialog);
bool RunDialog(QWidget* pParent, SSpeedDialog& dialog);
bool RunDialog(QWidget* pParent, STrackFilePropertiesDialog& dialog);
bool RunDialog(QWidget* pParent, SWayPointDialog& dialog);

} // namespace kestrabel
