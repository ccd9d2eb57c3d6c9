#include "formats/GpxReader.h"

#include "formats/GpxTime.h"
#include "formats/StringTable.h"
#include "platform/NumberInput.h"
#include "platform/XmlReader.h"

#include <array>
#include <memory>
#include <string>
#include <utility>

namespace kestrabel {

namespace {

constexpr double MetresPerSecondToKmh = 3.6;

// Depth of an element: the root has 1.
constexpr int SegmentDepth = 3;
constexpr int PointDepth = 4;
constexpr int ValueDepth = 5;

enum class EValue
{
    None,
    Time,
    Elevation,
    Speed,
    Satellites,
    Hdop
};

EValue ValueOf(std::string_view strElement)
{
    static constexpr std::array<std::pair<std::string_view, EValue>, 7> elements = {{
        {"time", EValue::Time},
        {"ele", EValue::Elevation},
        {"speed", EValue::Speed},
        {"dplr", EValue::Speed},
        {"sat", EValue::Satellites},
        {"sats", EValue::Satellites},
        {"HDOP", EValue::Hdop},
    }};
    for (const auto& [strName, value] : elements) {
        if (strName == strElement)
            return value;
    }
    return EValue::None;
}

class CGpxHandler final : public CXmlHandler
{
public:
    explicit CGpxHandler(CImportMonitor& monitor) : m_monitor(monitor) {}

    void StartElement(std::string_view strName, const CAttributes& attributes) override;
    void EndElement() override;
    void Text(std::string_view strText) override
    {
        if (m_value != EValue::None)
            m_strText += strText;
    }

    CObjectArray<CTrackPoint> m_points; ///< handed on only when the whole document proved well-formed
    bool m_bBroken = false;             ///< a point without a position was met; no later one is taken

private:
    void SetValue();

    CImportMonitor& m_monitor;
    int m_nDepth = 0;
    bool m_bInSegment = false;
    std::unique_ptr<CTrackPoint> m_pPoint;
    EValue m_value = EValue::None;
    std::string m_strText;
};

void CGpxHandler::StartElement(std::string_view strName, const CAttributes& attributes)
{
    ++m_nDepth;
    if (m_nDepth == SegmentDepth) {
        m_bInSegment = strName == "trkseg";
    } else if (m_nDepth == PointDepth && m_bInSegment && !m_bBroken && strName == "trkpt") {
        const char* pLatitude = attributes.Find("lat");
        const char* pLongitude = attributes.Find("lon");
        if (pLatitude == nullptr || pLongitude == nullptr) {
            m_bBroken = true;
            m_monitor.NoteIssue(0, "track point " + std::to_string(m_points.GetCount() + 1) + " has no " +
                                       (pLatitude == nullptr ? "lat" : "lon"));
            return;
        }
        m_pPoint = std::make_unique<CTrackPoint>();
        m_pPoint->m_position = MakePosition(ReadDecimal(pLatitude), ReadDecimal(pLongitude));
    } else if (m_nDepth == ValueDepth && m_pPoint) {
        m_value = ValueOf(strName);
        m_strText.clear();
    }
}

void CGpxHandler::EndElement()
{
    if (m_nDepth == ValueDepth && m_pPoint) {
        SetValue();
        m_value = EValue::None;
    } else if (m_nDepth == PointDepth && m_pPoint) {
        m_points.Add(std::move(m_pPoint));
    }
    --m_nDepth;
}

void CGpxHandler::SetValue()
{
    switch (m_value) {
    case EValue::Time: m_pPoint->m_time = ParseGpxTime(m_strText); break;
    case EValue::Elevation: m_pPoint->m_nAltitude = TruncateToInt(ReadDecimal(m_strText)); break;
    case EValue::Speed: m_pPoint->m_dDoppler = ReadDecimal(m_strText) * MetresPerSecondToKmh; break;
    case EValue::Satellites: m_pPoint->m_nSats = ReadInteger(m_strText); break;
    case EValue::Hdop: m_pPoint->m_dHDOP = ReadDecimal(m_strText); break;
    case EValue::None: break;
    }
}

} // namespace

EReadEnd ReadGpx(CImportMonitor& monitor, std::string_view strPath, CObjectArray<CTrackPoint>& points)
{
    CGpxHandler handler(monitor);
    CXmlReader reader;
    if (!reader.Load(strPath, handler)) {
        monitor.NoteIssue(0, reader.Error());
        monitor.Report(StringTableText(EText::XmlLoadFailure), true);
        return EReadEnd::Failed;
    }
    if (handler.m_bBroken)
        monitor.Report(StringTableText(EText::XmlWalkFailure), false);
    points.TakeAll(handler.m_points);
    return handler.m_bBroken ? EReadEnd::Failed : EReadEnd::Complete;
}

} // namespace kestrabel
