#pragma once

#include "app/CommandRouter.h"
#include "platform/PosixProcessStarter.h"
#include "present/ResultGrid.h"
#include "ui/StatusProgress.h"

#include <QMainWindow>

#include <array>
#include <memory>
#include <span>
#include <string>

class QLabel;
class QPrinter;
class QProgressBar;
class QSplitter;
class QToolBar;
class QToolButton;

namespace kestrabel {

class CGridView;
class CMainTreeView;
class CMapView;
class CPrintJob;
class CResultSpeedGraphView;
class CScenePane;
class CSceneView;

/// The one window: menus, toolbar, status bar, and the panes in nested splitters.
///
///     tree | map | results
///          |     | track points
///     ---------------------------
///     speed graph
///
/// It owns the application and what the panes show; the panes are Qt's children of it and borrow.
class CMainFrame : public QMainWindow, public CPane
{
public:
    /// The settings outlive it. `pDesktop` asks and shows instead of Qt's boxes, for tests; null: Qt does.
    CMainFrame(CSettingsStore& settings, std::string strProgramFolder, CDesktop* pDesktop = nullptr);
    ~CMainFrame() override;

    /// Opens the default project or these files. False: the program ends.
    bool Start(std::span<const std::string> files);

    CDesktop& Desktop() { return *m_pDesktop; }
    CApplication& Application() { return *m_pApplication; }
    CCommandRouter& Router() { return *m_pRouter; }

    void OnUpdate(EUpdateHint hint) override;

protected:
    void closeEvent(QCloseEvent* pEvent) override;
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;

private:
    void CreateStatusBar();
    void CreatePanes();
    void CreateMenus();
    void CreateToolbar();
    void CreateShortcuts();
    void PlugWindowCommands();
    CGridView* ActiveGrid() const;
    /// The map or the graph; null for any other pane.
    CScenePane* ScenePaneOf(EPane pane) const;
    std::unique_ptr<CPrintJob> PrintJobOf(EPane pane) const;
    void ShowTitle();
    void ShowStatus();
    void ShowImportLog();
    void ApplyFrameState();
    void RestoreLayout();
    void SaveLayout();
    /// Shows "Waiting for ..." until the program ended, or the user goes on (true) or cancels (false).
    bool WaitForProgram(const std::string& strProgram, const std::function<bool()>& hasEnded);

    CSettingsStore& m_settings;

    QLabel* m_pMessage;      ///< pane 0
    QProgressBar* m_pBar;    ///< on pane 0
    QToolButton* m_pDetails; ///< what an import skipped
    std::array<QLabel*, 6> m_indicators = {};
    QToolBar* m_pToolbar = nullptr;
    QSplitter* m_pRows = nullptr;    ///< upper panes over the graph
    QSplitter* m_pColumns = nullptr; ///< tree, map, grids
    QSplitter* m_pGrids = nullptr;   ///< results over track points
    CMainTreeView* m_pTreePane = nullptr;
    CScenePane* m_pMapPane = nullptr;
    CScenePane* m_pGraphPane = nullptr;
    CGridView* m_pResultPane = nullptr;
    CGridView* m_pPointPane = nullptr;
    std::string m_strShownLog;
    std::unique_ptr<QPrinter> m_pPrinter; ///< as set up last

    std::unique_ptr<CDesktop> m_pOwnDesktop;
    CDesktop* m_pDesktop;
    CStatusProgress m_progress;
    CPosixProcessStarter m_processes;
    std::unique_ptr<CApplication> m_pApplication;
    std::unique_ptr<CCommandRouter> m_pRouter;
    std::unique_ptr<CProjectTree> m_pTree;
    std::unique_ptr<CMapView> m_pMap;
    std::unique_ptr<CResultSpeedGraphView> m_pGraph;
    std::unique_ptr<CResultGrid> m_pResults;
    std::unique_ptr<CTrackPointGrid> m_pPoints;
};

} // namespace kestrabel
