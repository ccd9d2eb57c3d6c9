// Opens a track file in the window, from the call to the grid drawn, and scrolls its grid by pages, beside
// the import that the tool would do. Medians of several rounds, as rows of a Markdown table.

#include "formats/TrackFileDispatcher.h"
#include "ui/MainFrame.h"
#include "ui/panes/GridView.h"
#include "ui/QtSettings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPixmap>
#include <QScrollBar>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <iostream>
#include <vector>

namespace {

using namespace kestrabel;

constexpr int Rounds = 5;

/// Median of the rounds, in milliseconds.
double Median(const std::function<void()>& work)
{
    std::vector<double> times;
    for (int i = 0; i < Rounds; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
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
    return 0;
}
