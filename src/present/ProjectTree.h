#pragma once

#include "model/Event.h"
#include "present/Menus.h"
#include "present/UpdateHub.h"
#include "present/ViewSelection.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// A node of the project tree.
struct STreeNode
{
    int nKind = 0; ///< NodeKind
    int nIndex = 0;

    bool operator==(const STreeNode&) const = default;
};

inline constexpr STreeNode DivisionsRoot = {NodeKind::Divisions, 0};
inline constexpr STreeNode TrackFilesRoot = {NodeKind::TrackFiles, 1};

/// A node as the 32-bit value that a tree control keeps with its item: the index in the high half.
constexpr std::uint32_t TreeData(const STreeNode& node)
{
    return static_cast<std::uint32_t>(node.nIndex) << 16 | static_cast<std::uint32_t>(node.nKind);
}
constexpr STreeNode NodeOf(std::uint32_t nTreeData)
{
    return {static_cast<int>(nTreeData & 0xFFFFU), static_cast<int>(nTreeData >> 16)};
}

/// The menu of a right click on the node.
EContextMenu ContextMenuOf(const STreeNode& node);

/// A visible node.
struct STreeRow
{
    STreeNode node;
    std::string strText;
    int nImage;   ///< 1 the competitor, 2 divisions, 5 a track file
    int nLevel;   ///< 0: a root
    bool bButton; ///< can be expanded
    bool bExpanded;
};

enum class ETreeKey
{
    Right,
    Left,
    Plus,  ///< of the numeric pad
    Minus, ///< of the numeric pad
    F5,
};

/// The project tree: "Divisions" over the event's divisions, "Track Files" over the files of its first
/// competitor. It keeps what is expanded and selected; the nodes are always those that the event has now.
class CProjectTree : public CPane
{
public:
    /// `createCompetitor` gives an event without competitors its default one. Event and hub outlive the tree.
    CProjectTree(const CEvent& event, CUpdateHub& hub, std::function<void()> createCompetitor);
    ~CProjectTree() override { m_hub.Detach(*this); }
    CProjectTree(const CProjectTree&) = delete;
    CProjectTree& operator=(const CProjectTree&) = delete;

    /// The visible nodes from top to bottom.
    std::vector<STreeRow> Rows() const;

    /// The selected node; none when it does not exist any more.
    std::optional<STreeNode> Selected() const;
    void Select(const STreeNode& node);

    /// A click on a node's button, or a double click on the node. Nothing for a node without children.
    void Toggle(const STreeNode& node);
    /// Acts on the selected node; F5 builds the tree anew. False: the key is left to the control.
    bool OnKey(ETreeKey key);
    /// "Divisions" expanded, "Track Files" not.
    void Rebuild();

    /// Changed properties of a track file, or other divisions, expand both roots.
    void OnUpdate(EUpdateHint hint) override;
    void OnInitialUpdate() override;

    /// Called when rows, texts or selection may be others than before; the selected row, if any, is then to
    /// be scrolled into view.
    std::function<void()> m_changed;

private:
    bool IsExpanded(const STreeNode& node) const;
    bool Exists(const STreeNode& node) const;
    void Expand(const STreeNode& root, bool bExpand);
    void Changed() const;

    const CEvent& m_event;
    CUpdateHub& m_hub;
    std::function<void()> m_createCompetitor;
    bool m_bDivisionsExpanded = true;
    bool m_bTrackFilesExpanded = false;
    std::optional<STreeNode> m_selected;
};

/// A page of the printed tree.
struct STreePage
{
    std::string strHeader; ///< the document's title
    std::string strFooter; ///< "Page 1/3", centred
    int nFirstRow;
    int nRowCount;
};

/// At least one page; `nRowsPerPage` is at least 1.
std::vector<STreePage> TreePages(int nRows, int nRowsPerPage, std::string_view strTitle);

} // namespace kestrabel
