#include "app/AppWorld.h"
#include "app/CommandRouter.h"
#include "app/DocumentState.h"
#include "app/DroppedFiles.h"
#include "app/NodeCommands.h"
#include "app/OptionsCommands.h"
#include "app/RecentFiles.h"
#include "engine/Ranking.h"
#include "formats/TrackFileDispatcher.h"
#include "model/ProjectFile.h"
#include "model/StoredForms.h"
#include "platform/Path.h"
#include "present/ResultGrid.h"
#include "support/RandomDesktop.h"

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>

namespace kestrabel::test {
namespace {

namespace fs = std::filesystem;

/// Programs that fail, or that write a track file to whatever path they are given.
class CRandomProcesses : public CProcessStarter
{
public:
    CRandomProcesses(CRandom& random, const CTemporaryFolder& folder) : m_random(random), m_folder(folder) {}

    EStart Start(std::span<const std::string> arguments) override
    {
        if (arguments.empty() || arguments[0].empty()) // an empty command line
            return EStart::Failed;
        if (m_random.OneIn(4))
            return m_random.OneIn(2) ? EStart::Failed : EStart::Impossible;
        for (const std::string& strPath : arguments) {
            if (strPath.starts_with(m_folder.Path("")) && !fs::exists(strPath) && m_random.OneIn(2))
                std::ofstream(strPath) << "$GPRMC,100000,A,5000.1,N,00100.0,W,20.0,0.0,010624\n";
        }
        return EStart::Started;
    }
    bool WaitUntilReady() override { return !m_random.OneIn(4); }

private:
    CRandom& m_random;
    const CTemporaryFolder& m_folder;
};

/// Progress goes from 0 to 1 and always comes to its end.
class CCheckedProgress : public CProgressDisplay
{
public:
    void Begin(std::string_view strText) override
    {
        EXPECT_NE(strText, "");
        ++m_nOpen;
    }
    void Show(double dFraction) override { EXPECT_TRUE(dFraction >= 0.0 && dFraction <= 1.0) << dFraction; }
    void End() override { --m_nOpen; }

    int m_nOpen = 0;
};

/// The application as its window holds it, but for the window, in front of a user who does anything.
class CMonkey
{
public:
    explicit CMonkey(unsigned nSeed) : m_random(nSeed)
    {
        // What would be written beside no file at all lands where it is noticed.
        fs::create_directory(m_folder.Path("here"));
        fs::current_path(m_folder.Path("here"));
        fs::create_directory(m_folder.Path("files"));
        for (const char* pName : {"ride_1.gpx", "Ride 2.sbp", "walk.trk", "day.nmea"})
            WriteTrack(std::string("files/") + pName,
                       m_random.OneIn(4) ? m_random.Below(4) : m_random.Below(90));
        for (const char* pName : {"none.gpx", "one.nmea", "two.sbp"})
            WriteTrack(std::string("files/") + pName, m_random.Below(3));
        m_folder.Write("files/empty.gpx", "");
        m_folder.Write("files/broken.gpx", "<gpx><trk><trkseg><trkpt lat=\"5");
        m_folder.Write("files/odd.gpx", OddGpx());
        m_folder.Write("files/damaged.rsp", "no project");

        EXPECT_TRUE(m_application.InitInstance({}));
        for (CGrid* pGrid : {static_cast<CGrid*>(&m_results), static_cast<CGrid*>(&m_points)}) {
            // A pane that selects a row hears of it as of a click.
            pGrid->SetListener(
                {.onFilled = [](bool) {}, .onFollow = [=](int nRow) { pGrid->ClickRow(nRow); }});
        }
        OpenSomething();
    }
    ~CMonkey() { fs::current_path(fs::temp_directory_path()); }
    CMonkey(const CMonkey&) = delete;
    CMonkey& operator=(const CMonkey&) = delete;

    /// Does something and checks that all is well.
    void Step(int nStep)
    {
        const std::vector<std::pair<std::string, std::string>> filesBefore = Files();
        m_desktop.m_asked.clear();
        m_desktop.m_chosen.clear();
        m_mayWrite.clear();
        m_strDone.clear();
        m_bFilesAreFair = false;
        m_bEdits = false;
        if (m_document.m_event.m_persons.IsEmpty() || PointCount() == 0) {
            if (m_random.OneIn(2))
                OpenSomething();
        }
        const std::string strProject = ProjectBytes();
        const CPointsOfFiles points = UnmodifiedPoints();
        Act();
        SCOPED_TRACE("step " + std::to_string(nStep) + ": " + m_strDone);
        CheckSelection();
        CheckResults();
        CheckGrid(m_results, nStep % 10 == 0);
        CheckGrid(m_points, nStep % 10 == 0);
        CheckTree();
        CheckFiles(filesBefore);
        if (m_bEdits) {
            EXPECT_TRUE(m_document.IsModified() || ProjectBytes() == strProject) << "a change of the project";
            for (const auto& [pSeries, values] : UnmodifiedPoints())
                EXPECT_TRUE(!points.contains(pSeries) || points.at(pSeries) == values) << pSeries->m_strName;
        }
        if (m_random.OneIn(6))
            CheckCaches();
        EXPECT_EQ(m_progress.m_nOpen, 0);
        EXPECT_EQ(m_history.UndoCount() == 0, m_history.UndoName().empty());
        if (m_random.OneIn(12))
            CheckUndoAndRedo();
        if (m_random.OneIn(25))
            CheckSavedProject();
    }

private:
    using CPointsOfFiles = std::map<const CSeries*, std::vector<double>>;

    // What the world has.

    std::string ProjectBytes() const
    {
        CArchiveWriter writer;
        WriteEvent(writer, m_document.m_event);
        return {writer.Bytes().begin(), writer.Bytes().end()};
    }
    /// The times and positions of files that are as they were read or saved.
    CPointsOfFiles UnmodifiedPoints() const
    {
        CPointsOfFiles files;
        for (const CPerson* pPerson : m_document.m_event.m_persons) {
            for (const CSeries* pSeries : pPerson->m_series) {
                if (pSeries->m_bModified != 0)
                    continue;
                std::vector<double>& values = files[pSeries];
                for (const CTrackPoint* p : pSeries->m_points)
                    values.insert(values.end(), {p->m_time.m_dDays, p->m_position.m_dLatitude});
            }
        }
        return files;
    }

    int PointCount() const
    {
        int nCount = 0;
        for (const CPerson* pPerson : m_document.m_event.m_persons) {
            for (const CSeries* pSeries : pPerson->m_series)
                nCount += pSeries->m_points.GetCount();
        }
        return nCount;
    }
    /// With gaps, repeated and backward times, times of no day, and positions that are none.
    void WriteTrack(const std::string& strName, int nPoints)
    {
        CSeries series;
        series.m_strFileName = m_folder.Path(strName);
        double dSecond = 0.0;
        for (int i = 0; i < nPoints; ++i) {
            dSecond += m_random.OneIn(15)   ? 300.0
                       : m_random.OneIn(20) ? -3.0
                       : m_random.OneIn(20) ? 0.0
                                            : 1.0;
            auto pPoint = std::make_unique<CTrackPoint>();
            pPoint->m_time =
                DATE::FromCalendar({.nYear = 2024, .nMonth = 6, .nDay = 1}).Plus(dSecond * DaysPerSecond);
            if (m_random.OneIn(25))
                pPoint->m_time = DATE();
            if (!m_random.OneIn(25))
                pPoint->m_position = MakePosition(52.0 + 5e-5 * i, 5.0 + 1e-5 * m_random.Below(40));
            pPoint->m_nAltitude = m_random.Below(30);
            pPoint->m_dDoppler = m_random.OneIn(4) ? 0.0 : 5.0 + m_random.Below(60);
            pPoint->m_nSats = static_cast<std::uint8_t>(m_random.Below(12));
            series.m_points.Add(std::move(pPoint));
            if (i % 40 == 39) // the same fix twice
                series.m_points.Add(std::make_unique<CTrackPoint>(series.m_points[i]));
        }
        CImportMonitor monitor;
        if (strName.ends_with(".nmea"))
            m_folder.Write(strName, NmeaOf(series));
        else
            SaveTrackFile(monitor, series);
    }
    static std::string NmeaOf(const CSeries& series)
    {
        std::string strLog;
        for (const CTrackPoint* pPoint : series.m_points) {
            const int nSecond = static_cast<int>(std::fmod(pPoint->m_time.m_dDays, 1.0) * 86400.0);
            const std::string strTime = std::to_string(100000 + nSecond / 60 % 60 * 100 + nSecond % 60);
            strLog += "$GPRMC," + strTime + ",A,5200." + std::to_string(100 + pPoint->m_nAltitude) +
                      ",N,00500.1,E," + std::to_string(pPoint->m_dDoppler) + ",0.0,010624\n";
        }
        return strLog;
    }
    static std::string OddGpx()
    {
        std::string strText = "<gpx><trk><trkseg>";
        for (const char* pPoint :
             {"<trkpt lat=\"91\" lon=\"-181\"><time>2024-06-01T10:00:00Z</time>", "<trkpt lat=\"nan\">",
              "<trkpt lat=\"52\" lon=\"5\"><ele>1e308</ele><time>2024-13-41T99:00:00Z</time>",
              "<trkpt lat=\"52\" lon=\"5\"><ele>-1e30</ele><time>1601-01-01T00:00:00Z</time>",
              "<trkpt lat=\"-52\" lon=\"5\"><time>9999-12-31T23:59:59.9999Z</time>",
              "<trkpt lat=\"90\" lon=\"180\"><time>2024-06-01T10:00:01Z</time><speed>1e300</speed>"})
            strText += std::string(pPoint) + "</trkpt>";
        return strText + "</trkseg></trk></gpx>";
    }
    /// Every file below the folder with its content, but for those on their way.
    std::vector<std::pair<std::string, std::string>> Files() const
    {
        std::vector<std::pair<std::string, std::string>> files;
        for (const auto& entry : fs::recursive_directory_iterator(m_folder.Path(""))) {
            if (entry.is_regular_file())
                files.emplace_back(entry.path().string(), CTemporaryFolder::Read(entry.path().string()));
        }
        return files;
    }

    // What the user does.

    void Done(std::string_view strWhat) { m_strDone += std::string(strWhat) + "; "; }
    void OpenSomething()
    {
        const char* names[] = {"ride_1.gpx", "Ride 2.sbp", "walk.trk", "day.nmea", "odd.gpx", "two.sbp"};
        std::vector<std::string> paths;
        for (int i = m_random.Below(4); i >= 0; --i)
            paths.push_back(m_folder.Path(std::string("files/") + m_random.Of(names)));
        Done("open " + std::to_string(paths.size()));
        m_application.OpenFiles(std::move(paths));
    }
    SCommandPlace AnyPlace()
    {
        const EPane panes[] = {EPane::Frame, EPane::Tree, EPane::Tree,       EPane::Tree,
                               EPane::Graph, EPane::Map,  EPane::ResultGrid, EPane::PointGrid};
        SCommandPlace place = {.pane = m_random.Of(panes), .bCtrlHeld = m_random.OneIn(3)};
        if (place.pane == EPane::Tree)
            place.node = AnyNode();
        if (place.pane == EPane::PointGrid) {
            std::vector<int> rows;
            for (int i = m_random.Below(6); i > 0; --i)
                rows.push_back(m_random.Below(m_points.RowCount() + 2));
            m_chosenPoints = m_points.PointsOf(rows);
            place.points = m_chosenPoints;
        }
        return place;
    }
    STreeNode AnyNode()
    {
        const int kinds[] = {
            NodeKind::Notepad,    NodeKind::Competitors, NodeKind::TrackFile, NodeKind::Divisions,
            NodeKind::TrackFiles, NodeKind::Division,    NodeKind::TrackFile, 0};
        const int nIndex = m_random.OneIn(20) ? 65535 : m_random.Below(9);
        return {m_random.Of(kinds), nIndex};
    }
    void Act()
    {
        CViewSelection& selection = m_document.m_selection;
        switch (m_random.Below(40)) {
        case 0: ClickNode(m_document, AnyNode()); return Done("click a node");
        case 1: ClickNode(m_document, {NodeKind::TrackFile, m_random.Below(4)}); return Done("click a file");
        case 2:
            ClickNode(m_document, {NodeKind::Division, m_random.Below(8)});
            return Done("click a division");
        case 3:
        case 4: m_results.ClickRow(m_random.Below(m_results.RowCount() + 2)); return Done("pick a result");
        case 5: m_points.ClickRow(m_random.Below(m_points.RowCount() + 2)); return Done("pick a point");
        case 6: return ClickHeader(m_results);
        case 7: return ClickHeader(m_points);
        case 8:
            selection.MoveFocus(nullptr, m_random.Below(7) - 1, m_random.Below(200) - 2.0);
            return Done("move the focus");
        case 9: return UseTree();
        case 10: return MeddleWithFiles();
        case 11: {
            const std::vector<std::string> paths(1 + m_random.OneIn(2), m_desktop.AnyPath());
            DropFiles(m_application, paths);
            return Done("drop " + paths[0]);
        }
        case 12: {
            const std::vector<std::string> recent = CRecentFiles(m_settings).Paths();
            const std::string strPath = recent.empty() ? m_desktop.AnyPath() : m_random.Of(recent);
            m_application.OpenRecentFile(strPath);
            return Done("open the recent " + strPath);
        }
        case 13: m_application.OnClose(); return Done("close");
        case 14: m_router.DeletePointBeforeFocus(); return Done("backspace");
        case 15: ChooseDataFolder(m_document); return Done("data folder");
        case 16: return ChooseFields(m_results);
        case 17: return ChooseFields(m_points);
        case 18:
            m_desktop.m_chosen.push_back(m_document.m_strProjectPath);
            m_document.OnSaveDocument(m_document.m_strProjectPath);
            return Done("save the project");
        case 19: return GiveCommand(ECommand::ImportTrackFiles);
        case 20:
        case 21: return GiveCommand(ECommand::Undo);
        case 22: return GiveCommand(ECommand::Redo);
        default:
            return GiveCommand(static_cast<ECommand>(m_random.Below(static_cast<int>(ECommand::About) + 1)));
        }
    }
    void GiveCommand(ECommand command)
    {
        const bool bCopies = command == ECommand::CreateCombinedFile || command == ECommand::ExtractTrack ||
                             command == ECommand::ImportTrackFiles;
        if (bCopies && PointCount() > 1500)
            return;
        const SCommandPlace place = AnyPlace();
        Done(std::string(PromptOf(command)) + " in pane " + std::to_string(static_cast<int>(place.pane)) +
             ", node " + std::to_string(place.node.nKind) + "/" + std::to_string(place.node.nIndex) + ", " +
             std::to_string(place.points.size()) + " points");
        // A file is written over by its own points only.
        if (const CSeries* pSeries = m_document.m_selection.GetCurrentSeries();
            command == ECommand::Save && pSeries != nullptr)
            m_mayWrite.push_back(pSeries->m_strFileName);
        if (command == ECommand::SaveTrackFile && !m_document.m_event.m_persons.IsEmpty()) {
            const CObjectArray<CSeries>& files = m_document.m_event.m_persons[0].m_series;
            if (place.node.nKind == NodeKind::TrackFile && place.node.nIndex < files.GetCount())
                m_mayWrite.push_back(files[place.node.nIndex].m_strFileName);
        }
        // Undo is none: it may come back to what was saved, and then the mark goes.
        constexpr ECommand edits[] = {
            ECommand::DeleteInvalid, ECommand::DeleteSlowPoints,  ECommand::SortTrackPoints,
            ECommand::SplitFile,     ECommand::ExtractTrack,      ECommand::MarkValid,
            ECommand::MarkInvalid,   ECommand::DeleteTrackPoints, ECommand::AddWaypoint,
            ECommand::AddCheckPoint, ECommand::NewNode,           ECommand::EditNode,
            ECommand::AddDivision,   ECommand::DeleteDivision,    ECommand::MoveUp,
            ECommand::AddCompetitor, ECommand::EditCompetitor,    ECommand::Options,
            ECommand::Recalculate};
        m_bEdits = std::ranges::count(edits, command) > 0;
        if (command == ECommand::DeleteCompetitor)
            m_bFilesAreFair = true; // with its files, when that is wished
        m_router.m_shownColumns = m_points.ShownPointColumns();
        m_router.CarryOut(command, place);
    }
    void ClickHeader(CGrid& grid)
    {
        if (grid.ColumnCount() == 0)
            return;
        const int nSelected = m_random.Below(grid.RowCount() + 1) - 1;
        const int nObject = grid.ObjectOf(nSelected);
        const int nNow = grid.ClickHeader(m_random.Below(grid.ColumnCount()), nSelected);
        EXPECT_EQ(grid.ObjectOf(nNow), nObject);
        Done("sort a grid");
    }
    void ChooseFields(CGrid& grid)
    {
        SGridFieldsDialog dialog = grid.FieldsDialog();
        if (m_desktop.Run(dialog))
            grid.ApplyFields(dialog);
        Done("grid fields");
    }
    void UseTree()
    {
        const ETreeKey keys[] = {ETreeKey::Right, ETreeKey::Left, ETreeKey::Plus, ETreeKey::Minus,
                                 ETreeKey::F5};
        m_tree.Select(AnyNode());
        m_random.OneIn(2) ? m_tree.Toggle(AnyNode()) : static_cast<void>(m_tree.OnKey(m_random.Of(keys)));
        Done("the tree");
    }
    void MeddleWithFiles()
    {
        m_bFilesAreFair = true;
        const std::string strPath = m_desktop.AnyPath();
        Done("meddle with " + strPath);
        std::error_code ignored;
        if (fs::is_directory(strPath, ignored) && !strPath.ends_with("Data"))
            return;
        switch (m_random.Below(4)) {
        case 0: fs::remove_all(strPath, ignored); return;
        case 1: std::ofstream(strPath).close(); return;
        case 2:
            fs::remove_all(strPath, ignored);
            fs::create_directory(strPath, ignored);
            return;
        default: fs::resize_file(strPath, fs::file_size(strPath, ignored) / 2, ignored); return;
        }
    }

    // What must hold behind every step.

    void CheckSelection()
    {
        CViewSelection& selection = m_document.m_selection;
        const CObjectArray<CPerson>& persons = m_document.m_event.m_persons;
        EXPECT_TRUE(selection.m_nCompetitor >= -1 && selection.m_nCompetitor < persons.GetCount())
            << selection.m_nCompetitor;
        const CPerson* pPerson = selection.GetCurrentPerson();
        const int nFiles = pPerson == nullptr ? 0 : pPerson->m_series.GetCount();
        EXPECT_TRUE(selection.m_nSeries >= -1 && (pPerson == nullptr || selection.m_nSeries < nFiles))
            << selection.m_nSeries << " of " << nFiles;
        const CObjectArray<CTrackPoint>& focused = selection.GetSeriesPoints(selection.m_nFocusSeries);
        EXPECT_TRUE(selection.m_dFocusPoint >= -1.0 && selection.m_dFocusPoint < focused.GetCount())
            << selection.m_dFocusPoint << " of " << focused.GetCount();
        if (selection.m_nRunStart != -1) {
            const CObjectArray<CTrackPoint>& points = selection.GetSeriesPoints(selection.m_nRunSeries);
            EXPECT_TRUE(selection.m_nRunStart <= selection.m_nRunEnd &&
                        selection.m_nRunEnd < points.GetCount());
        }
        // The merged list has the points of all files as they are now.
        std::multiset<const CTrackPoint*> merged;
        for (const CTrackPoint* pPoint : selection.GetSeriesPoints(-1))
            merged.insert(pPoint);
        std::multiset<const CTrackPoint*> points;
        for (int i = 0; i < nFiles; ++i)
            points.insert(pPerson->m_series[i].m_points.begin(), pPerson->m_series[i].m_points.end());
        EXPECT_EQ(merged, points);
        for (int i = 0; i < nFiles; ++i) {
            for (int j = 0; j < pPerson->m_series[i].m_points.GetCount(); ++j) {
                const CTrackPoint& point = pPerson->m_series[i].m_points[j];
                ASSERT_EQ(std::pair(point.m_nTrack, int{point.m_nSeriesIndex}), std::pair(j, i));
            }
        }
        for (std::size_t i = 0; i + 1 < selection.m_statusTexts.size();
             ++i) // the last is a time, if there is one
            EXPECT_NE(selection.m_statusTexts[i], "") << i;
    }
    void CheckResults()
    {
        const CEvent& event = m_document.m_event;
        for (const CResult* pResult : m_document.m_selection.m_Results) {
            if (pResult->m_nStartIndex == -1)
                continue;
            ASSERT_LT(pResult->m_nPersonIndex, event.m_persons.GetCount());
            ASSERT_GE(pResult->m_nPersonIndex, 0);
            const CObjectArray<CSeries>& files = event.m_persons[pResult->m_nPersonIndex].m_series;
            ASSERT_TRUE(pResult->m_nSeriesIndex >= 0 && pResult->m_nSeriesIndex < files.GetCount())
                << pResult->m_nSeriesIndex;
            const CSeries& series = files[pResult->m_nSeriesIndex];
            EXPECT_EQ(pResult->m_strSeries, series.m_strName);
            EXPECT_TRUE(pResult->m_nStartIndex <= pResult->m_nEndIndex &&
                        pResult->m_nEndIndex < series.m_points.GetCount())
                << pResult->m_strDivision << " " << pResult->m_nStartIndex << " to " << pResult->m_nEndIndex;
            EXPECT_NE(event.FindDivision(pResult->m_strDivision), nullptr) << pResult->m_strDivision;
        }
    }
    void CheckGrid(const CGrid& grid, bool bEveryRow)
    {
        for (int nRow = -1; nRow <= grid.RowCount();
             nRow += bEveryRow || grid.RowCount() < 20 ? 1 : 1 + m_random.Below(40))
        {
            const bool bSeparator = grid.ObjectOf(nRow) == CGrid::Separator;
            std::string strRow;
            for (int nColumn = 0; nColumn < grid.ColumnCount(); ++nColumn)
                strRow += grid.CellText(nRow, nColumn);
            EXPECT_TRUE(!bSeparator || strRow.empty());
            const bool bShows = &grid == &m_results ? m_results.ResultAt(nRow) != nullptr
                                                    : !m_points.PointsOf(std::vector{nRow}).empty();
            EXPECT_EQ(bShows, !bSeparator)
                << (&grid == &m_results ? "result" : "point") << " row " << nRow << " of " << grid.RowCount();
        }
        if (&grid != &m_points)
            return;
        int nPoints = 0;
        for (int nRow = 0; nRow < grid.RowCount(); ++nRow)
            nPoints += grid.ObjectOf(nRow) == CGrid::Separator ? 0 : 1;
        CViewSelection& selection = m_document.m_selection;
        EXPECT_EQ(nPoints, selection.GetSeriesPoints(selection.m_nSeries).GetCount())
            << "every point has its row";
    }
    void CheckTree()
    {
        const std::vector<STreeRow> rows = m_tree.Rows();
        const CObjectArray<CPerson>& persons = m_document.m_event.m_persons;
        for (const STreeRow& row : rows) {
            const int nCount = row.node.nKind == NodeKind::Division
                                   ? m_document.m_event.m_divisions.GetCount()
                               : row.node.nKind != NodeKind::TrackFile ? 2
                               : persons.IsEmpty()                     ? 0
                                                                       : persons[0].m_series.GetCount();
            EXPECT_LT(row.node.nIndex, nCount);
        }
        const auto selected = m_tree.Selected();
        EXPECT_TRUE(!selected || std::ranges::find(rows, *selected, &STreeRow::node) != rows.end());
    }
    /// What was on the disk is still there, if perhaps under another name, unless it was to be written over.
    void CheckFiles(const std::vector<std::pair<std::string, std::string>>& before)
    {
        EXPECT_TRUE(fs::is_empty(m_folder.Path("here"))) << "written to the current folder";
        if (m_bFilesAreFair)
            return;
        std::set<std::string> contents;
        for (auto& [strPath, strContent] : Files()) {
            contents.insert(std::move(strContent));
            EXPECT_FALSE(strPath.ends_with(".tmp")) << strPath;
        }
        for (const auto& [strPath, strContent] : before) {
            const auto isIt = [&](const std::string& str) { return EqualNoCase(str, strPath); };
            const auto isNamed = [&](const std::string& str) {
                return ToLower(str).find(ToLower(strPath)) != std::string::npos;
            };
            const bool bWanted =
                std::ranges::any_of(m_desktop.m_chosen, isIt) || std::ranges::any_of(m_mayWrite, isIt) ||
                std::ranges::any_of(m_desktop.m_asked, isNamed) || strPath == m_folder.Path("Default.rsp") ||
                strPath.find("_BAK") != std::string::npos;
            EXPECT_TRUE(bWanted || strContent.empty() || contents.contains(strContent))
                << "lost: " << strPath;
        }
    }
    /// What is kept of results, and what is listed, is what a calculation gives now.
    void CheckCaches()
    {
        CViewSelection& selection = m_document.m_selection;
        if (selection.GetCurrentPerson() == nullptr ||
            (selection.m_nNodeKind != NodeKind::TrackFiles && selection.m_nNodeKind != NodeKind::Division))
            return;
        const std::vector<std::string> listed = Texts(selection.m_Results);
        const std::vector<std::string> kept = AllTexts();
        selection.ForgetResults();
        for (CPerson* pPerson : m_document.m_event.m_persons) {
            pPerson->m_results.RemoveAll();
            pPerson->m_combined.m_divisions.RemoveAll();
            for (CSeries* pSeries : pPerson->m_series)
                pSeries->m_divisions.RemoveAll();
        }
        EXPECT_EQ(kept, AllTexts());
        selection.RefreshResults(false);
        EXPECT_EQ(listed, Texts(selection.m_Results)) << selection.m_nNodeKind;
    }
    std::vector<std::string> AllTexts()
    {
        CResultList results;
        AllResults(m_document.m_event, -1, -1, results, m_progress);
        return Texts(results);
    }
    static std::vector<std::string> Texts(const CResultList& results)
    {
        std::vector<std::string> texts;
        for (const CResult* p : results) {
            texts.push_back(p->m_strCompetitor + "|" + p->m_strDivision + "|" + p->m_strSeries + "|" +
                            std::to_string(p->m_nStartIndex) + "-" + std::to_string(p->m_nEndIndex) + "|" +
                            std::to_string(p->m_dSpeed) + "|" + std::to_string(p->m_nRank));
        }
        return texts;
    }
    void CheckUndoAndRedo()
    {
        std::vector<CState> states = {StateOf(m_document)};
        const bool bToTheEnd = m_random.OneIn(2);
        const std::size_t nUndone = bToTheEnd ? m_history.UndoCount() : m_random.Below(4);
        for (std::size_t i = 0; i < nUndone && m_history.Undo(m_document); ++i) {
            states.push_back(StateOf(m_document));
            CheckSelection();
        }
        while (states.size() > 1) {
            ASSERT_EQ(Difference(StateOf(m_document), states.back()), "")
                << "before redoing " << m_history.RedoName();
            states.pop_back();
            ASSERT_TRUE(m_history.Redo(m_document));
            CheckSelection();
        }
        EXPECT_EQ(Difference(StateOf(m_document), states.back()), "");
    }
    void CheckSavedProject()
    {
        const std::string strFirst = m_folder.Path("saved.rsp");
        const std::string strSecond = m_folder.Path("again.rsp");
        std::string strPath = "C:\\saved under.rsp";
        SaveProject(strFirst, m_document.m_event, strPath);
        CEvent read;
        strPath.clear();
        LoadProject(strFirst, read, strPath);
        EXPECT_EQ(strPath, "C:\\saved under.rsp");
        SaveProject(strSecond, read, strPath);
        EXPECT_EQ(CTemporaryFolder::Read(strFirst), CTemporaryFolder::Read(strSecond));
        EXPECT_EQ(read.m_divisions.GetCount(), m_document.m_event.m_divisions.GetCount());
        EXPECT_EQ(read.m_waypoints.GetCount(), m_document.m_event.m_waypoints.GetCount());
        fs::remove(strFirst);
        fs::remove(strSecond);
    }

    CRandom m_random;
    CTemporaryFolder m_folder;
    CRandomDesktop m_desktop{m_random, m_folder};
    CMemorySettings m_settings;
    CRandomProcesses m_processes{m_random, m_folder};
    CCheckedProgress m_progress;
    CApplication m_application{{m_desktop, m_progress, m_settings, m_processes, m_folder.Path("")}};
    CKestroDoc& m_document = m_application.m_document;
    CEditHistory& m_history = m_document.m_history;
    CCommandRouter m_router{m_application};
    CProjectTree m_tree{m_document.m_event, m_document.m_hub,
                        [this] { m_document.CreateDefaultCompetitor(); }};
    CResultGrid m_results{m_document.m_event, m_document.m_hub, m_document.m_selection, m_settings};
    CTrackPointGrid m_points{m_document.m_event, m_document.m_hub, m_document.m_selection, m_settings,
                             m_progress};

    std::vector<CTrackPoint*> m_chosenPoints;
    std::vector<std::string> m_mayWrite; ///< paths that the command at hand is to write
    bool m_bFilesAreFair = false;        ///< whatever happens to them
    bool m_bEdits = false;               ///< the command says what it changes
    std::string m_strDone;
};

int Setting(const char* pName, int nDefault)
{
    const char* pText = std::getenv(pName);
    return pText == nullptr ? nDefault : std::atoi(pText);
}

/// Hundreds of commands at random. KESTRABEL_MONKEY_SEED is the first seed, KESTRABEL_MONKEY_COUNT their
/// number.
TEST(Monkey, WhateverItDoesAllIsWell)
{
    const int nFirst = Setting("KESTRABEL_MONKEY_SEED", 1);
    const int nCount = Setting("KESTRABEL_MONKEY_COUNT", 20);
    for (int nSeed = nFirst; nSeed < nFirst + nCount; ++nSeed) {
        SCOPED_TRACE("seed " + std::to_string(nSeed));
        CMonkey monkey(static_cast<unsigned>(nSeed));
        for (int i = 0; i < 300 && !HasFailure(); ++i)
            monkey.Step(i);
        if (HasFailure())
            return;
    }
}

} // namespace
} // namespace kestrabel::test
