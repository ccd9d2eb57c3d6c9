#include "present/ProjectTree.h"

#include <algorithm>

namespace kestrabel {

namespace {

constexpr int CompetitorImage = 1;
constexpr int DivisionImage = 2;
constexpr int TrackFileImage = 5;

bool IsRoot(const STreeNode& node)
{
    return node == DivisionsRoot || node == TrackFilesRoot;
}

/// The files of the first competitor; null without one.
const CObjectArray<CSeries>* TrackFiles(const CEvent& event)
{
    return event.m_persons.IsEmpty() ? nullptr : &event.m_persons[0].m_series;
}

} // namespace

EContextMenu ContextMenuOf(const STreeNode& node)
{
    switch (node.nKind) {
    case NodeKind::Divisions: return EContextMenu::DivisionsNode;
    case NodeKind::Division: return EContextMenu::DivisionNode;
    case NodeKind::TrackFiles: return EContextMenu::TrackFilesNode;
    default: return EContextMenu::TrackFileNode;
    }
}

CProjectTree::CProjectTree(const CEvent& event, CUpdateHub& hub, std::function<void()> createCompetitor)
    : m_event(event), m_hub(hub), m_createCompetitor(std::move(createCompetitor))
{
    m_hub.Attach(*this);
}

std::vector<STreeRow> CProjectTree::Rows() const
{
    std::vector<STreeRow> rows;
    const auto addRoot = [&](const STreeNode& node, std::string_view strText, int nImage) {
        rows.push_back({node, std::string(strText), nImage, 0, true, IsExpanded(node)});
    };
    const auto addChild = [&](int nKind, int nIndex, std::string strText, int nImage) {
        rows.push_back({{nKind, nIndex}, std::move(strText), nImage, 1, false, false});
    };
    addRoot(DivisionsRoot, "Divisions", DivisionImage);
    for (int i = 0; m_bDivisionsExpanded && i < m_event.m_divisions.GetCount(); ++i)
        addChild(NodeKind::Division, i, m_event.m_divisions[i].m_strName, DivisionImage);
    addRoot(TrackFilesRoot, "Track Files", CompetitorImage);
    const CObjectArray<CSeries>* pFiles = TrackFiles(m_event);
    for (int i = 0; m_bTrackFilesExpanded && pFiles != nullptr && i < pFiles->GetCount(); ++i) {
        const CSeries& series = (*pFiles)[i];
        addChild(NodeKind::TrackFile, i, series.m_strName + (series.m_bModified != 0 ? "*" : ""),
                 TrackFileImage);
    }
    return rows;
}

bool CProjectTree::IsExpanded(const STreeNode& node) const
{
    return (node == DivisionsRoot && m_bDivisionsExpanded) ||
           (node == TrackFilesRoot && m_bTrackFilesExpanded);
}

bool CProjectTree::Exists(const STreeNode& node) const
{
    const std::vector<STreeRow> rows = Rows();
    return std::ranges::find(rows, node, &STreeRow::node) != rows.end();
}

std::optional<STreeNode> CProjectTree::Selected() const
{
    return m_selected.has_value() && Exists(*m_selected) ? m_selected : std::nullopt;
}

void CProjectTree::Select(const STreeNode& node)
{
    m_selected = node;
    Changed();
}

void CProjectTree::Expand(const STreeNode& root, bool bExpand)
{
    if (bExpand && root == TrackFilesRoot && m_event.m_persons.IsEmpty())
        m_createCompetitor();
    (root == DivisionsRoot ? m_bDivisionsExpanded : m_bTrackFilesExpanded) = bExpand;
    // Of a root that closes over the selected node, the root is selected, as any tree control does it.
    if (m_selected.has_value() && !Exists(*m_selected))
        m_selected = root;
    Changed();
}

void CProjectTree::Toggle(const STreeNode& node)
{
    if (IsRoot(node))
        Expand(node, !IsExpanded(node));
}

bool CProjectTree::OnKey(ETreeKey key)
{
    if (key == ETreeKey::F5) {
        m_selected = DivisionsRoot;
        Rebuild();
        return true;
    }
    const bool bExpand = key == ETreeKey::Right || key == ETreeKey::Plus;
    const std::optional<STreeNode> selected = Selected();
    if (!selected.has_value() || !IsRoot(*selected) || IsExpanded(*selected) == bExpand)
        return false;
    Expand(*selected, bExpand);
    return true;
}

void CProjectTree::Rebuild()
{
    m_bDivisionsExpanded = true;
    m_bTrackFilesExpanded = false;
    Changed();
}

void CProjectTree::OnUpdate(EUpdateHint hint)
{
    if (hint == HINT_FOCUS_MOVED)
        return;
    if (hint == HINT_TRACKFILE_CHANGED)
        m_bDivisionsExpanded = m_bTrackFilesExpanded = true;
    Changed(); // any edit may set the "*" of a file
}

void CProjectTree::OnInitialUpdate()
{
    m_selected.reset();
    Rebuild();
}

void CProjectTree::Changed() const
{
    if (m_changed)
        m_changed();
}

std::vector<STreePage> TreePages(int nRows, int nRowsPerPage, std::string_view strTitle)
{
    const int nPages = std::max(1, (nRows + nRowsPerPage - 1) / nRowsPerPage);
    std::vector<STreePage> pages;
    for (int i = 0; i < nPages; ++i) {
        const int nFirst = i * nRowsPerPage;
        pages.push_back({.strHeader = std::string(strTitle),
                         .strFooter = "Page " + std::to_string(i + 1) + "/" + std::to_string(nPages),
                         .nFirstRow = nFirst,
                         .nRowCount = std::min(nRowsPerPage, nRows - nFirst)});
    }
    return pages;
}

} // namespace kestrabel
