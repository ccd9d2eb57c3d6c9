#include "ui/MainFrame.h"

#include "app/DroppedFiles.h"
#include "app/RecentFiles.h"
#include "present/graph/ResultSpeedGraphView.h"
#include "present/map/MapView.h"
#include "present/StatusBar.h"
#include "ui/MenuBuilder.h"
#include "ui/panes/GridView.h"
#include "ui/panes/MainTreeView.h"
#include "ui/print/GridPrintJob.h"
#include "ui/print/ScenePrintJob.h"
#include "ui/print/TreePrintJob.h"
#include "ui/QtDesktop.h"
#include "ui/QtText.h"
#include "ui/scene/ScenePane.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDate>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

/// The linker takes the pictures from a static library only when they are asked for, outside any namespace.
static void LoadIcons()
{
    Q_INIT_RESOURCE(kestrabel);
}

namespace kestrabel {

namespace {

constexpr std::string_view Section = "Window";

// Initial sizes of the panes, pixels.
const QList<int> RowHeights = {500, 100};
const QList<int> ColumnWidths = {150, 500, 400};
const QList<int> GridHeights = {250, 250};

QString IconOf(ECommand command)
{
    switch (command) {
    case ECommand::New: return ":/icons/new.svg";
    case ECommand::Open: return ":/icons/open.svg";
    case ECommand::Save: return ":/icons/save.svg";
    case ECommand::DeleteInvalid: return ":/icons/delete-invalid.svg";
    case ECommand::Copy: return ":/icons/copy.svg";
    case ECommand::Paste: return ":/icons/paste.svg";
    case ECommand::Print: return ":/icons/print.svg";
    case ECommand::ShowTree: return ":/icons/tree.svg";
    case ECommand::ShowTrackPoints: return ":/icons/points.svg";
    default: return ":/icons/about.svg";
    }
}

/// A command that waits for its dialog still holds what files dropped beside the dialog might replace.
bool IsBusyWithDialog()
{
    return QApplication::activeModalWidget() != nullptr;
}

QByteArray Stored(const CSettingsStore& settings, std::string_view strEntry)
{
    return QByteArray::fromBase64(ToQt(settings.Read(Section, strEntry)).toLatin1());
}

void Store(CSettingsStore& settings, std::string_view strEntry, const QByteArray& state)
{
    settings.Write(Section, strEntry, state.toBase64().toStdString());
}

} // namespace

CMainFrame::CMainFrame(CSettingsStore& settings, std::string strProgramFolder, CDesktop* pDesktop)
    : m_settings(settings),
      m_pMessage(new QLabel(this)),
      m_pBar(new QProgressBar(m_pMessage)),
      m_pDetails(new QToolButton(this)),
      m_pPrinter(std::make_unique<QPrinter>(QPrinter::HighResolution)),
      m_pOwnDesktop(pDesktop == nullptr ? std::make_unique<CQtDesktop>(*this, settings) : nullptr),
      m_pDesktop(pDesktop == nullptr ? m_pOwnDesktop.get() : pDesktop),
      m_progress(*m_pMessage, *m_pBar),
      m_processes([this](const std::string& strProgram, const std::function<bool()>& hasEnded) {
          return WaitForProgram(strProgram, hasEnded);
      })
{
    LoadIcons();
    setAcceptDrops(true);
    SSurroundings surroundings = {
        .desktop = *m_pDesktop,
        .progress = m_progress,
        .settings = settings,
        .processes = m_processes,
        .strProgramFolder = std::move(strProgramFolder),
        .strTextEditor = qEnvironmentVariable("VISUAL").toStdString(),
    };
    m_pApplication = std::make_unique<CApplication>(std::move(surroundings));
    m_pRouter = std::make_unique<CCommandRouter>(*m_pApplication);

    CreateStatusBar();
    CreatePanes();
    PlugWindowCommands();
    CreateMenus();
    CreateToolbar();
    CreateShortcuts();
    RestoreLayout();
    ApplyFrameState();
    m_pApplication->m_document.m_hub.Attach(*this);
    ShowTitle();
    ShowStatus();
}

CMainFrame::~CMainFrame()
{
    m_pApplication->m_document.m_hub.Detach(*this);
    // The panes go before what they show.
    delete takeCentralWidget();
}

bool CMainFrame::Start(std::span<const std::string> files)
{
    const bool bStarted = m_pApplication->InitInstance(files);
    ShowTitle();
    ShowImportLog();
    return bStarted;
}

void CMainFrame::CreateStatusBar()
{
    m_pMessage->setText(ToQt(ReadyText));
    m_pMessage->setAccessibleName("Messages");
    m_pMessage->setTextFormat(Qt::PlainText);
    m_pMessage->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(m_pMessage, 1);
    m_pDetails->setText("Details...");
    m_pDetails->setAccessibleName("Details of the last import");
    m_pDetails->setAutoRaise(true);
    m_pDetails->hide();
    connect(m_pDetails, &QToolButton::clicked, this,
            [this] { m_pDesktop->ShowMessage(m_pApplication->m_document.m_importLog.Details()); });
    statusBar()->addPermanentWidget(m_pDetails);
    for (std::size_t i = 0; i < m_indicators.size(); ++i) {
        auto* pLabel = new QLabel(ToQt(StatusPanes[i].strIndicator), this);
        pLabel->setAccessibleName(ToQt(StatusPanes[i].strIndicator));
        pLabel->setMinimumWidth(StatusPanes[i].nWidth);
        statusBar()->addPermanentWidget(pLabel);
        m_indicators[i] = pLabel;
    }
}

void CMainFrame::CreatePanes()
{
    CKestroDoc& document = m_pApplication->m_document;
    m_pTree = std::make_unique<CProjectTree>(document.m_event, document.m_hub,
                                             [&document] { document.CreateDefaultCompetitor(); });
    m_pMap = std::make_unique<CMapView>(document.m_event, document.m_hub, document.m_selection, m_settings);
    m_pGraph = std::make_unique<CResultSpeedGraphView>(document.m_event, document.m_hub, document.m_selection,
                                                       m_settings);
    m_pResults =
        std::make_unique<CResultGrid>(document.m_event, document.m_hub, document.m_selection, m_settings);
    m_pPoints = std::make_unique<CTrackPointGrid>(document.m_event, document.m_hub, document.m_selection,
                                                  m_settings, m_progress);

    m_pTreePane = new CMainTreeView(*m_pTree, *m_pRouter, document);
    m_pMapPane = new CScenePane(*m_pMap, EPane::Map, "Map", *m_pRouter, *m_pDesktop);
    m_pGraphPane = new CScenePane(*m_pGraph, EPane::Graph, "Speed graph", *m_pRouter, *m_pDesktop);
    for (CScenePane* pPane : {m_pMapPane, m_pGraphPane})
        pPane->m_onStatus = [this] { ShowStatus(); };
    m_pResultPane = new CGridView(*m_pResults, nullptr, *m_pRouter, *m_pDesktop);
    m_pPointPane = new CGridView(*m_pPoints, m_pPoints.get(), *m_pRouter, *m_pDesktop);
    m_pGrids = new QSplitter(Qt::Vertical);
    m_pGrids->addWidget(m_pResultPane);
    m_pGrids->addWidget(m_pPointPane);
    m_pGrids->setSizes(GridHeights);
    m_pColumns = new QSplitter(Qt::Horizontal);
    m_pColumns->addWidget(m_pTreePane);
    m_pColumns->addWidget(m_pMapPane);
    m_pColumns->addWidget(m_pGrids);
    m_pColumns->setSizes(ColumnWidths);
    m_pRows = new QSplitter(Qt::Vertical, this);
    m_pRows->addWidget(m_pColumns);
    m_pRows->addWidget(m_pGraphPane);
    m_pRows->setSizes(RowHeights);
    setCentralWidget(m_pRows);
}

void CMainFrame::PlugWindowCommands()
{
    const auto zoom = [this](ECommand command) {
        m_pRouter->Plug(command, [this, command](const SCommandPlace& place) {
            if (CScenePane* pPane = ScenePaneOf(place.pane))
                pPane->View().OnCommand(command);
        });
    };
    zoom(ECommand::ZoomIn);
    zoom(ECommand::ZoomOut);
    zoom(ECommand::ZoomAll);
    m_pRouter->Plug(ECommand::ShowNeighborhood, [this](const SCommandPlace&) {
        m_pMap->ShowNeighborhood(m_pRouter->m_frame.bNeighborhood);
    });
    const auto applyState = [this](const SCommandPlace&) { ApplyFrameState(); };
    m_pRouter->Plug(ECommand::ShowToolbar, applyState);
    m_pRouter->Plug(ECommand::ShowStatusBar, applyState);
    m_pRouter->Plug(ECommand::ShowTree, applyState);
    m_pRouter->Plug(ECommand::ShowTrackPoints,
                    [this](const SCommandPlace&) { m_pPointPane->setVisible(m_pPointPane->isHidden()); });
    m_pRouter->Plug(ECommand::Exit, [this](const SCommandPlace&) { close(); });
    m_pRouter->Plug(ECommand::Copy, [this](const SCommandPlace&) { ActiveGrid()->CopySelection(); });
    m_pRouter->Plug(ECommand::Fields, [this](const SCommandPlace& place) {
        if (CScenePane* pPane = ScenePaneOf(place.pane))
            pPane->ChooseFields();
        else
            (place.pane == EPane::ResultGrid ? m_pResultPane : m_pPointPane)->ChooseFields();
    });
    m_pRouter->Plug(ECommand::Print, [this](const SCommandPlace& place) {
        kestrabel::Print(this, *m_pPrinter, *PrintJobOf(place.pane));
    });
    m_pRouter->Plug(ECommand::PrintPreview, [this](const SCommandPlace& place) {
        ShowPrintPreview(this, *m_pPrinter, *PrintJobOf(place.pane), m_settings);
    });
    m_pRouter->Plug(ECommand::PrintSetup, [this](const SCommandPlace&) { SetUpPrinter(this, *m_pPrinter); });
}

/// The grid that has the keyboard, else that of the track points.
CGridView* CMainFrame::ActiveGrid() const
{
    return m_pResultPane->hasFocus() ? m_pResultPane : m_pPointPane;
}

CScenePane* CMainFrame::ScenePaneOf(EPane pane) const
{
    switch (pane) {
    case EPane::Map: return m_pMapPane;
    case EPane::Graph: return m_pGraphPane;
    default: return nullptr;
    }
}

/// The main menu prints the track points, whichever pane is active; context menus print their own pane.
std::unique_ptr<CPrintJob> CMainFrame::PrintJobOf(EPane pane) const
{
    const CKestroDoc& document = m_pApplication->m_document;
    const QString strDate = QDate::currentDate().toString(Qt::ISODate);
    const std::string strTitle(document.Title());
    if (pane == EPane::Tree)
        return std::make_unique<CTreePrintJob>(m_pTree->Rows(), strTitle, strDate);
    if (pane == EPane::ResultGrid)
        return std::make_unique<CGridPrintJob>(
            *m_pResults, ToQt(document.m_selection.m_strCaption + "  " + strTitle), strDate);
    if (CScenePane* pPane = ScenePaneOf(pane))
        return std::make_unique<CScenePrintJob>(
            pPane->View(), ToQt(document.m_selection.m_strCaption + "  " + strTitle), strDate);
    return std::make_unique<CGridPrintJob>(
        *m_pPoints, ToQt(PrintHeading(document.m_event, document.m_selection, strTitle)), strDate);
}

void CMainFrame::CreateMenus()
{
    for (const SMenu& menu : MainMenu()) {
        QMenu* pMenu = menuBar()->addMenu(ToQt(menu.strTitle));
        FillMenu(*pMenu, menu.items, *m_pRouter, [] { return SCommandPlace(); });
        ShowRecentFiles(
            *pMenu, menu.items, [this] { return CRecentFiles(m_settings).Paths(); },
            [this](const std::string& strPath) { m_pApplication->OpenRecentFile(strPath); });
    }
}

void CMainFrame::CreateToolbar()
{
    m_pToolbar = addToolBar("Toolbar");
    m_pToolbar->setObjectName("Toolbar");
    m_pToolbar->toggleViewAction()->setEnabled(false); // the menu "View" has its own
    const int nSize = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_pToolbar->setIconSize(QSize(nSize, nSize));
    for (const ECommand command : Toolbar()) {
        if (command == ECommand::None) {
            m_pToolbar->addSeparator();
            continue;
        }
        const QString strPrompt = ToQt(PromptOf(command));
        QAction* pAction = m_pToolbar->addAction(QIcon(IconOf(command)), strPrompt);
        pAction->setStatusTip(strPrompt);
        pAction->setEnabled(m_pRouter->State(command).bEnabled);
        connect(pAction, &QAction::triggered, this, [this, command] { m_pRouter->CarryOut(command); });
    }
}

void CMainFrame::CreateShortcuts()
{
    for (const SShortcut& shortcut : Shortcuts()) {
        auto* pShortcut = new QShortcut(QKeySequence(ToQt(shortcut.strKey)), this);
        connect(pShortcut, &QShortcut::activated, this,
                [this, command = shortcut.command] { m_pRouter->CarryOut(command); });
    }
}

void CMainFrame::OnUpdate(EUpdateHint /*hint*/)
{
    ShowTitle();
    ShowStatus();
    ShowImportLog();
}

void CMainFrame::ShowTitle()
{
    const CKestroDoc& document = m_pApplication->m_document;
    QString strTitle = ToQt(document.Title());
    const bool bModified = strTitle.endsWith('*');
    if (bModified)
        strTitle.chop(1);
    const QString strCaption = ToQt(document.m_selection.m_strCaption);
    if (!strCaption.isEmpty() && strCaption != strTitle)
        strTitle = strCaption + " - " + strTitle;
    setWindowTitle(strTitle.replace("[*]", "[*][*]") + "[*] - Kestrabel");
    setWindowModified(bModified);
}

void CMainFrame::ShowStatus()
{
    const auto& texts = m_pApplication->m_document.m_selection.m_statusTexts;
    for (std::size_t i = 0; i < m_indicators.size(); ++i) {
        const std::string_view strText = texts[i].empty() ? StatusPanes[i].strIndicator : texts[i];
        m_indicators[i]->setText(ToQt(strText));
    }
}

void CMainFrame::ShowImportLog()
{
    const CImportLog& log = m_pApplication->m_document.m_importLog;
    const std::string strSummary = log.Summary();
    if (strSummary == m_strShownLog)
        return;
    m_strShownLog = strSummary;
    m_pMessage->setText(ToQt(strSummary));
    m_pDetails->setVisible(!log.IsEmpty());
}

void CMainFrame::ApplyFrameState()
{
    const SFrameState& state = m_pRouter->m_frame;
    m_pToolbar->setVisible(state.bToolbar);
    statusBar()->setVisible(state.bStatusBar);
    m_pTreePane->setVisible(state.bTree);
}

void CMainFrame::RestoreLayout()
{
    resize(1000, 600);
    restoreGeometry(Stored(m_settings, "Geometry"));
    restoreState(Stored(m_settings, "State"));
    m_pRows->restoreState(Stored(m_settings, "Rows"));
    m_pColumns->restoreState(Stored(m_settings, "Columns"));
    m_pGrids->restoreState(Stored(m_settings, "Grids"));
}

void CMainFrame::SaveLayout()
{
    Store(m_settings, "Geometry", saveGeometry());
    Store(m_settings, "State", saveState());
    Store(m_settings, "Rows", m_pRows->saveState());
    Store(m_settings, "Columns", m_pColumns->saveState());
    Store(m_settings, "Grids", m_pGrids->saveState());
}

void CMainFrame::closeEvent(QCloseEvent* pEvent)
{
    if (!m_pApplication->OnClose()) {
        pEvent->ignore();
        return;
    }
    SaveLayout();
    pEvent->accept();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* pEvent)
{
    if (pEvent->mimeData()->hasUrls() && !IsBusyWithDialog())
        pEvent->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent* pEvent)
{
    if (IsBusyWithDialog())
        return;
    std::vector<std::string> paths;
    for (const QUrl& url : pEvent->mimeData()->urls()) {
        if (url.isLocalFile())
            paths.push_back(FromQt(url.toLocalFile()));
    }
    pEvent->acceptProposedAction();
    DropFiles(*m_pApplication, paths);
}

bool CMainFrame::WaitForProgram(const std::string& strProgram, const std::function<bool()>& hasEnded)
{
    QMessageBox box(QMessageBox::Information, "Kestrabel", "Waiting for " + ToQt(strProgram) + " ...",
                    QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    const QPushButton* pImport = box.addButton("&Import Now", QMessageBox::AcceptRole);
    box.addButton(QMessageBox::Cancel);
    QTimer timer;
    bool bEnded = false;
    connect(&timer, &QTimer::timeout, &box, [&] {
        bEnded = hasEnded();
        if (bEnded)
            box.done(QDialog::Accepted);
    });
    timer.start(100);
    box.exec();
    return bEnded || box.clickedButton() == pImport;
}

} // namespace kestrabel
