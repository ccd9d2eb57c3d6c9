#pragma once

namespace kestrabel {

/// What the user can choose in a menu, a context menu or the toolbar.
enum class ECommand
{
    None, ///< a separator

    New,
    Open,
    Save,
    SaveAs,
    RecentFiles, ///< the place of the recent files, each of which is an item
    Exit,
    Print,
    PrintPreview,
    PrintSetup,

    ImportTrackFiles,
    ExportTrackPoints,
    ExportResults,
    ExportResultsOfDivisions, ///< of a track file, the best of each division
    TrackFileProperties,
    SaveTrackFile,
    Reload,
    CloseTrackFile,
    CloseAllTrackFiles,
    ReadFromGps,
    CreateCombinedFile,
    ViewInNotepad,

    Undo,
    Redo,
    Copy,
    Paste,
    DeleteInvalid,
    DeleteSlowPoints,
    SortTrackPoints,
    SplitFile,
    ExtractTrack,
    MarkValid,
    MarkInvalid,
    DeleteTrackPoints,
    ExportSelectedPoints,
    SelectedProperties,
    AddWaypoint,
    AddCheckPoint,

    NewNode,  ///< "New" of a tree node
    EditNode, ///< "Edit" of a tree node
    AddDivision,
    DeleteDivision,
    MoveUp,
    AddCompetitor,
    EditCompetitor,
    DeleteCompetitor,

    ShowToolbar,
    ShowStatusBar,
    ShowTree,
    ShowTrackPoints,
    ShowNeighborhood,
    ShowCalculatedResults,
    ShowDivisionResults,
    Fields, ///< which columns or curves a pane shows
    ZoomIn,
    ZoomOut,
    ZoomAll,

    Recalculate,
    ExternalCommand1,
    ExternalCommand2,
    ExternalCommand3,
    ExternalCommand4,
    ExternalCommand5,
    CalculateSpeed,
    Options,
    About,
};

} // namespace kestrabel
