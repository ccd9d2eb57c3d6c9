// Draws the window on the sample event, its map and graph, and every dialog, into pictures for the documents:
//     kestrabel-screenshots FOLDER light|dark PROJECT TRACKFILE...
// The scale comes from QT_SCALE_FACTOR and stands in the names: "main-window-light@2x.png".

#include "app/NodeCommands.h"
#include "present/AboutDialog.h"
#include "present/CommandDialog.h"
#include "present/DeleteSlowPointsDialog.h"
#include "present/EditDivisionDialog.h"
#include "present/ExtractTrackDialog.h"
#include "present/graph/ResultSpeedGraphView.h"
#include "present/GridFieldsDialog.h"
#include "present/map/MapView.h"
#include "present/OptionsDialog.h"
#include "present/SelectCompetitorDialog.h"
#include "present/SelectDivisionDialog.h"
#include "present/SelectedPropertiesDialog.h"
#include "present/SelectWayPointDialog.h"
#include "present/SortTrackPointsDialog.h"
#include "present/SpeedDialog.h"
#include "present/TrackFilePropertiesDialog.h"
#include "present/TrackPointGrid.h"
#include "present/WayPointDialog.h"
#include "ui/MainFrame.h"
#include "ui/panes/GridView.h"
#include "ui/QtSettings.h"
#include "ui/QtText.h"
#include "ui/scene/ScenePane.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <iostream>
#include <stdexcept>
#include <string_view>

namespace {

using namespace kestrabel;

/// Where the pictures go and how their names end.
struct SAlbum
{
    QString strFolder;
    QString strTheme;
    bool bComplete = true;

    void Keep(QWidget& widget, const QString& strName)
    {
        QApplication::processEvents();
        const QPixmap picture = widget.grab();
        const QString strScale = picture.devicePixelRatio() > 1.0 ? "@2x" : "";
        bComplete &= picture.save(strFolder + '/' + strName + '-' + strTheme + strScale + ".png");
    }
    /// Opens a dialog, takes its picture and cancels it.
    void KeepDialog(const QString& strName, const std::function<void()>& open)
    {
        QTimer::singleShot(0, [&] {
            auto* pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            bComplete &= pDialog != nullptr;
            if (pDialog == nullptr)
                return;
            Keep(*pDialog, strName);
            pDialog->reject();
        });
        open();
    }
};

void Darken()
{
    QPalette dark(QColor(66, 66, 66), QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(32, 32, 32));
    dark.setColor(QPalette::Highlight, QColor(46, 110, 180));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(dark);
}

void KeepDialogsOfDivisions(SAlbum& album, CDesktop& desktop, CEvent& event)
{
    CDivision& division = event.m_divisions[0];
    const auto laps = std::ranges::find(event.m_divisions, DivisionKind::LapRacing,
                                        [](const CDivision* p) { return p->m_nKind; });
    SEditDivisionDialog edit = SEditDivisionDialog::From(event, division);
    album.KeepDialog("edit-division", [&] { desktop.Run(edit); });
    SEditDivisionDialog editLaps = SEditDivisionDialog::From(event, **laps);
    SSelectWayPointDialog wayPoints = SSelectWayPointDialog::From(editLaps);
    wayPoints.Toggle(1);
    album.KeepDialog("select-way-point", [&] { desktop.Run(wayPoints); });
    SWayPointDialog wayPoint = SWayPointDialog::From((*laps)->m_waypoints[0], false);
    album.KeepDialog("way-point", [&] { desktop.Run(wayPoint); });
    CPerson& person = event.m_persons[0];
    SEditCompetitorDialog competitor = SEditCompetitorDialog::From(event, person);
    album.KeepDialog("edit-competitor", [&] { desktop.Run(competitor); });
    SSelectDivisionDialog divisions = SSelectDivisionDialog::From(competitor);
    album.KeepDialog("select-division", [&] { desktop.Run(divisions); });
    SSelectCompetitorDialog competitors = SSelectCompetitorDialog::From(event, 0);
    album.KeepDialog("select-competitor", [&] { desktop.Run(competitors); });
}

void KeepDialogsOfTracks(SAlbum& album, CDesktop& desktop, const CEvent& event)
{
    const CSeries& series = event.m_persons[0].m_series[0];
    STrackFilePropertiesDialog properties = STrackFilePropertiesDialog::From(event, series);
    album.KeepDialog("track-file-properties", [&] { desktop.Run(properties); });
    const std::vector<const CTrackPoint*> points(series.m_points.begin(), series.m_points.end());
    SSelectedPropertiesDialog selected = SSelectedPropertiesDialog::From(event, points);
    album.KeepDialog("selected-properties", [&] { desktop.Run(selected); });
    SExtractTrackDialog extract = SExtractTrackDialog::From(series);
    album.KeepDialog("extract-track", [&] { desktop.Run(extract); });
    SDeleteSlowPointsDialog slow = SDeleteSlowPointsDialog::From(event);
    album.KeepDialog("delete-slow-points", [&] { desktop.Run(slow); });
    SSortTrackPointsDialog sort = SSortTrackPointsDialog::From(series);
    album.KeepDialog("sort-track-points", [&] { desktop.Run(sort); });
    SSpeedDialog speed = SSpeedDialog::From(event, series.m_points[0].m_time);
    speed.Calculate();
    album.KeepDialog("speed", [&] { desktop.Run(speed); });
}

void KeepDialogsOfTheProgram(SAlbum& album, CDesktop& desktop, const CEvent& event,
                             const CTrackPointGrid& grid)
{
    SGridFieldsDialog fields = grid.FieldsDialog();
    album.KeepDialog("grid-fields", [&] { desktop.Run(fields); });
    SOptionsDialog options = SOptionsDialog::From(event);
    album.KeepDialog("options", [&] { desktop.Run(options); });
    SCommandDialog command{"Convert to sbp", std::string(SCommandDialog::CommandExample),
                           std::string(SCommandDialog::FileInExample)};
    album.KeepDialog("command", [&] { desktop.Run(command); });
    SAboutDialog about = SAboutDialog::From("Version 1.917");
    album.KeepDialog("about", [&] { desktop.Run(about); });
}

/// A pane by the name that it has for screen readers.
template <class TPane>
TPane& PaneOf(const CMainFrame& frame, const QString& strName)
{
    for (TPane* pPane : frame.findChildren<TPane*>()) {
        if (pPane->accessibleName() == strName)
            return *pPane;
    }
    throw std::runtime_error(FromQt(strName) + ": there is no such pane");
}

void PickBest(CMainFrame& frame, const std::string& strDivision)
{
    const CEvent& event = frame.Application().m_document.m_event;
    const auto division =
        std::ranges::find(event.m_divisions, strDivision, [](const CDivision* p) { return p->m_strName; });
    ClickNode(frame.Application().m_document,
              {NodeKind::Division, static_cast<int>(division - event.m_divisions.begin())});
    CGridView& results = PaneOf<CGridView>(frame, "Results");
    results.setCurrentIndex({});
    results.setCurrentIndex(results.model()->index(0, 0));
}

void ShowFields(CSceneView& view, std::initializer_list<std::string_view> shown)
{
    SGridFieldsDialog fields = view.FieldsDialog();
    for (auto& [strTitle, bShown] : fields.rows)
        bShown = std::ranges::count(shown, strTitle) > 0;
    view.ApplyFields(fields);
}

/// Right-clicks in the middle of a pane, takes the picture of the menu and closes it.
void KeepMenu(SAlbum& album, CScenePane& pane, const QString& strName)
{
    QTimer::singleShot(0, [&] {
        QWidget* pMenu = QApplication::activePopupWidget();
        album.bComplete &= pMenu != nullptr;
        if (pMenu == nullptr)
            return;
        album.Keep(*pMenu, strName);
        pMenu->close();
    });
    const QPoint middle = pane.viewport()->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, middle, pane.viewport()->mapToGlobal(middle));
    QApplication::sendEvent(pane.viewport(), &event);
}

/// Anna's file alone, its best 500 metres in the map and in the graph, the gates of laps, and a page.
void KeepScenes(SAlbum& album, CMainFrame& frame)
{
    CScenePane& map = PaneOf<CScenePane>(frame, "Map");
    CScenePane& graph = PaneOf<CScenePane>(frame, "Speed graph");
    const auto zoom = [](CScenePane& pane, int nSteps) {
        const QPoint middle = pane.viewport()->rect().center();
        for (int i = 0; i < nSteps; ++i)
            pane.View().OnMouseWheel({middle.x() + 0.0, middle.y() + 0.0}, false);
    };
    ClickNode(frame.Application().m_document, {NodeKind::TrackFile, 0});
    PickBest(frame, "500 meters Accum");
    ShowFields(map.View(), {"Grid", "Zoom", "Speed Color", "WayPoints", "Scale Grid"});
    ShowFields(graph.View(), {"Grid", "Zoom", "Speed", "Doppler", "Sats", "HDOP"});
    zoom(map, 2);
    zoom(graph, 8);
    frame.Application().m_document.m_hub.UpdateAllViews(nullptr, HINT_FOCUS_MOVED);
    album.Keep(map, "map");
    album.Keep(graph, "graph");
    KeepMenu(album, map, "map-menu");
    map.View().OnCommand(ECommand::ZoomAll);
    graph.View().OnCommand(ECommand::ZoomAll);

    ShowFields(map.View(), {"Grid", "Zoom", "Speed Color"});
    ShowFields(graph.View(), {"Grid", "Zoom", "Speed"});
    PickBest(frame, "Alpha 500");
    album.Keep(map, "map-alpha");
    album.KeepDialog("print-preview",
                     [&] { frame.Router().CarryOut(ECommand::PrintPreview, {.pane = EPane::Map}); });
    PickBest(frame, "Laps");
    album.Keep(map, "map-laps");
}

} // namespace

int main(int nArguments, char** ppArguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(nArguments, ppArguments);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 5) {
        std::cerr << "usage: kestrabel-screenshots FOLDER light|dark PROJECT TRACKFILE...\n";
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    if (arguments[2] == "dark")
        Darken();
    SAlbum album{arguments[1], arguments[2]};

    const QTemporaryDir folder;
    CQtSettings settings(folder.filePath("settings.ini"));
    CMainFrame frame(settings, FromQt(folder.path()) + '/');
    frame.show();
    std::vector<std::string> files;
    for (const QString& strFile : arguments.mid(3))
        files.push_back(FromQt(strFile));
    if (!frame.Start(files))
        return 1;
    frame.Router().CarryOut(ECommand::ShowTree);
    CKestroDoc& document = frame.Application().m_document;
    ClickNode(document, TrackFilesRoot); // the points of all of them
    PickBest(frame, "500 meters Accum");
    album.Keep(frame, "main-window");
    KeepScenes(album, frame);

    CTrackPointGrid grid(document.m_event, document.m_hub, document.m_selection, settings,
                         document.m_surroundings.progress);
    KeepDialogsOfDivisions(album, frame.Desktop(), document.m_event);
    KeepDialogsOfTracks(album, frame.Desktop(), document.m_event);
    KeepDialogsOfTheProgram(album, frame.Desktop(), document.m_event, grid);
    return album.bComplete ? 0 : 1;
}
