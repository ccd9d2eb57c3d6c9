// Opens a track file in the window, from the call to the grid drawn, and scrolls its grid by pages, beside
// the import that the tool would do. Then draws the map and the speed graph: as a whole, in the steps of
// zooming and panning, and when the focus moves, beside the drawing of every line of the track. Medians of
// several rounds, or the slowest of many steps, as rows of Markdown tables.

#include "formats/TrackFileDispatcher.h"
#include "present/graph/ResultSpeedGraphView.h"
#include "present/map/MapView.h"
#include "ui/MainFrame.h"
#include "ui/panes/GridView.h"
#include "ui/QtSettings.h"
#include "ui/scene/ScenePainter.h"
#include "ui/scene/ScenePane.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QWheelEvent>

#include <algorithm>
#include <functional>
#include <iostream>
#include <vector>

namespace {

using namespace kestrabel;

constexpr int Rounds = 5;

double Milliseconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Median of the rounds, in milliseconds.
double Median(const std::function<void()>& work)
{
    std::vector<double> times;
    for (int i = 0; i < Rounds; ++i)
        times.push_back(Milliseconds(work));
    std::ranges::nth_element(times, times.begin() + Rounds / 2);
    return times[Rounds / 2];
}

void Row(const char* pWork, double dTime)
{
    std::cout << "| " << pWork << " | " << static_cast<int>(dTime * 100.0 + 0.5) / 100.0 << " ms |\n";
}

/// The grid of track points: the one with most rows.
CGridView& PointsOf(const CMainFrame& frame)
{
    const QList<CGridView*> grids = frame.findChildren<CGridView*>();
    return **std::ranges::max_element(grids, {}, [](const CGridView* p) { return p->model()->rowCount(); });
}

/// What the graph shows on a fresh installation.
CGridFields FirstFields()
{
    CGridFields fields = DefaultFields(GraphFieldTable);
    for (const EGraphField field : {EGraphField::Grid, EGraphField::Zoom, EGraphField::Speed})
        fields[static_cast<std::size_t>(field)].m_bDisplay = true;
    return fields;
}

/// What the user does with a pane that is drawn, in milliseconds.
struct SSceneTimes
{
    double dFirst = 0.0; ///< everything made anew and drawn
    double dZoom = 0.0;  ///< the slowest step on the way to the closest view and back
    double dPan = 0.0;   ///< the slowest step of dragging, over the same views
    double dFocus = 0.0; ///< the slowest step of the focus, over the same views
    double dNaive = 0.0; ///< every line that meets the whole view, drawn by the toolkit without smoothing
};

CScenePane& PaneOf(const CMainFrame& frame, const QString& strName)
{
    for (CScenePane* pPane : frame.findChildren<CScenePane*>()) {
        if (pPane->accessibleName() == strName)
            return *pPane;
    }
    std::abort();
}

void Wheel(const CScenePane& pane, const QPoint& at, bool bIn)
{
    constexpr int Step = QWheelEvent::DefaultDeltasPerStep;
    QWheelEvent event(at, pane.viewport()->mapToGlobal(at), {}, {0, bIn ? -Step : Step}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(pane.viewport(), &event);
}

/// Paints into the same picture every time, as a backing store is painted.
void Draw(CScenePane& pane, QImage& picture)
{
    pane.viewport()->render(&picture, {}, {}, {});
}

SSceneTimes Measure(CMainFrame& frame, const QString& strName, const std::function<SSceneLayer()>& whole)
{
    constexpr int ZoomSteps = 30;
    CScenePane& pane = PaneOf(frame, strName);
    CViewSelection& selection = frame.Application().m_document.m_selection;
    QImage picture(pane.viewport()->size(), QImage::Format_RGB32);
    const QPoint middle = pane.viewport()->rect().center();
    const auto slower = [](double& dSlowest, double dTime) { dSlowest = std::max(dSlowest, dTime); };
    const auto draw = [&] { Draw(pane, picture); };

    SSceneTimes times;
    times.dFirst = Median([&] {
        pane.View().OnUpdate(HINT_ALL);
        draw();
    });
    int nFocus = selection.GetSeriesPoints(0).GetCount() / 2;
    for (int i = 0; i < ZoomSteps; ++i) {
        slower(times.dFocus, Median([&] {
                   selection.MoveFocus(nullptr, 0, ++nFocus);
                   draw();
               }));
        slower(times.dPan, Median([&] {
                   pane.View().OnLButtonDown({100.0, 50.0}, {.bShift = true});
                   pane.View().OnMouseMove({103.0, 51.0}, true);
                   pane.View().OnLButtonUp();
                   draw();
               }));
        slower(times.dZoom, Milliseconds([&] {
                   Wheel(pane, middle, true);
                   draw();
               }));
    }
    for (int i = 0; i < ZoomSteps; ++i)
        slower(times.dZoom, Milliseconds([&] {
                   Wheel(pane, middle, false);
                   draw();
               }));

    times.dNaive = Milliseconds([&] {
        picture.fill(Qt::white);
        QPainter painter(&picture);
        for (const SSceneLines& lines : whole().lines) {
            painter.setPen(QColor(lines.pen.color.nRed, lines.pen.color.nGreen, lines.pen.color.nBlue));
            for (std::size_t i = 0; i + 1 < lines.ends.size(); i += 2)
                painter.drawLine(QPointF(lines.ends[i].dX, lines.ends[i].dY),
                                 QPointF(lines.ends[i + 1].dX, lines.ends[i + 1].dY));
        }
    });
    return times;
}

void SceneRow(const char* pPane, const SSceneTimes& times)
{
    const auto rounded = [](double d) { return static_cast<int>(d * 10.0 + 0.5) / 10.0; };
    std::cout << "| " << pPane << " | " << rounded(times.dFirst) << " ms | " << rounded(times.dZoom)
              << " ms | " << rounded(times.dPan) << " ms | " << rounded(times.dFocus) << " ms | "
              << rounded(times.dNaive) << " ms | " << rounded(times.dFirst / times.dNaive * 10.0) / 10.0
              << " |\n";
}

} // namespace

int main(int nArguments, char** ppArguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(nArguments, ppArguments);
    if (nArguments != 2) {
        std::cerr << "usage: kestrabel-window-bench FILE\n";
        return 2;
    }
    const std::vector<std::string> files = {ppArguments[1]};
    const double dImport = Median([&] {
        CSeries series;
        series.m_strFileName = files[0];
        CImportMonitor monitor;
        EImportEnd end = EImportEnd::Failed;
        ImportTrackFile(monitor, series, end);
    });

    const QTemporaryDir folder;
    CQtSettings settings(folder.filePath("settings.ini"));
    CMainFrame frame(settings, folder.path().toStdString() + '/');
    frame.show();
    QApplication::processEvents();
    const double dOpen = Median([&] {
        frame.Start(files);
        QApplication::processEvents();
        frame.grab();
    });
    CGridView& points = PointsOf(frame);
    const double dPage = Median([&] {
        points.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
        points.grab();
    });
    std::cout << "| Work on " << points.model()->rowCount() << " rows | time |\n|---|---|\n";
    Row("The file into points, without a window", dImport);
    Row("The window opens it: points, derived values, results, panes drawn", dOpen);
    Row("One page scrolled and drawn", dPage);

    CKestroDoc& document = frame.Application().m_document;
    CViewSelection& selection = document.m_selection;
    const auto area = [&](const char* pName) {
        const QSize size = PaneOf(frame, pName).viewport()->size();
        return SSceneArea{0, 0, size.width(), size.height()};
    };
    const CFontTextSize text(frame.font());
    const SSceneTimes map = Measure(frame, "Map", [&] {
        CMapTransform transform;
        transform.SetMapping(area("Map"), MapExtent(selection));
        return GroundLayer({transform, text}, MakeMapTracks(document.m_event, selection, true), selection,
                           {.bReduce = false});
    });
    const SSceneTimes graph = Measure(frame, "Speed graph", [&] {
        const CGridFields fields = FirstFields();
        const SGraphLayout layout = LayoutGraph(area("Speed graph"), text, selection, fields);
        CMapTransform transform(false);
        const double dLast = selection.GetSeriesPoints(0).GetCount() - 1.0;
        transform.SetMapping(layout.plot, {0.0, layout.dTop, dLast, 0.0});
        const SSceneSurface surface = {transform, text};
        return GraphCurveLayer({surface, layout, false}, MakeGraphTracks(document.m_event, selection, fields),
                               false);
    });
    std::cout << "\n| Drawn | first | zoom step | pan step | focus step | every line | first / every line |\n"
                 "|---|---|---|---|---|---|---|\n";
    SceneRow("Map", map);
    SceneRow("Speed graph", graph);
    return 0;
}
