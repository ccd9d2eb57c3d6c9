#include "formats/NmeaReader.h"

#include "formats/FieldSplitter.h"
#include "formats/LineFile.h"
#include "formats/NmeaSentence.h"
#include "formats/ReportFormat.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kestrabel {

namespace {

enum class ESentence
{
    GGA,
    GLL,
    RMC,
    ZDA,
    VTG,
    GSA,
    GSV
};

struct SSentenceRow
{
    std::string_view strStart;
    ESentence sentence;
    std::size_t nMinFields; ///< field 0, the name, included
    bool bOnlyBeforeRmc;
    bool bNeedsDate; ///< skipped while no RMC has told the date
};

constexpr std::array<SSentenceRow, 7> Sentences = {{
    {"$GPGGA", ESentence::GGA, 12, false, true},
    {"$GPGLL", ESentence::GLL, 7, true, true},
    {"$GPRMC", ESentence::RMC, 9, false, false},
    {"$GPZDA", ESentence::ZDA, 6, true, false},
    {"$GPVTG", ESentence::VTG, 9, true, false},
    {"$GPGSA", ESentence::GSA, 18, false, false},
    {"$GPGSV", ESentence::GSV, 0, false, false},
}};

constexpr std::size_t RmcDateField = 9;
constexpr std::size_t MaxDateLength = 79;

/// Which parts of the current point have been seen; all of them make it complete.
constexpr unsigned PositionSource = 2 | 4;
constexpr unsigned ZdaSource = 1 | 4;
constexpr unsigned Complete = 7;

/// Assembles the points of one file.
class CNmeaAssembler
{
public:
    CNmeaAssembler(CImportMonitor& monitor, CObjectArray<CTrackPoint>& points)
        : m_monitor(monitor), m_points(points)
    {
    }

    /// Takes one line. False when the user wants to stop.
    bool Take(std::string_view strLine, std::int64_t nLine);

    /// The file is read to its end: the last point is finished too.
    void Finish() { FinishCurrent(); }

private:
    void Merge(const SNmeaFix& fix);
    void TakeRmcDate();
    void FinishCurrent();

    CImportMonitor& m_monitor;
    CObjectArray<CTrackPoint>& m_points;
    std::unique_ptr<CTrackPoint> m_pCurrent = std::make_unique<CTrackPoint>();
    unsigned m_nCompleteness = 0;
    std::string m_strDate; ///< date field of the last RMC
    bool m_bRmcSeen = false;
    std::vector<std::string_view> m_fields;
};

const SSentenceRow* FindSentence(std::string_view strLine)
{
    for (const SSentenceRow& row : Sentences) {
        if (strLine.starts_with(row.strStart))
            return &row;
    }
    return nullptr;
}

bool CNmeaAssembler::Take(std::string_view strLine, std::int64_t nLine)
{
    if (!strLine.starts_with('$'))
        return true;
    strLine = strLine.substr(0, strLine.find('*')); // the checksum is never verified
    const SSentenceRow* pRow = FindSentence(strLine);
    if (pRow == nullptr || (pRow->bOnlyBeforeRmc && m_bRmcSeen) || (pRow->bNeedsDate && m_strDate.empty()))
        return true;

    SplitFields(strLine.substr(1), m_fields);
    if (m_fields.size() < pRow->nMinFields) {
        return m_monitor.AskToContinue(nLine, std::string(pRow->strStart) + " with " +
                                                  std::to_string(m_fields.size()) + " fields instead of " +
                                                  std::to_string(pRow->nMinFields));
    }
    switch (pRow->sentence) {
    case ESentence::GGA: Merge(ParseGga(m_fields, m_strDate)); break;
    case ESentence::GLL: Merge(ParseGll(m_fields, m_strDate)); break;
    case ESentence::RMC:
        TakeRmcDate();
        Merge(ParseRmc(m_fields));
        break;
    case ESentence::ZDA: Merge(ParseZda(m_fields)); break;
    case ESentence::VTG: m_pCurrent->m_dDoppler = ParseVtgSpeed(m_fields); break;
    case ESentence::GSA: m_pCurrent->m_dHDOP = ParseGsaHdop(m_fields); break;
    case ESentence::GSV: break;
    }
    return true;
}

void CNmeaAssembler::TakeRmcDate()
{
    if (m_fields.size() > RmcDateField)
        m_strDate = m_fields[RmcDateField].substr(0, MaxDateLength);
}

void CNmeaAssembler::Merge(const SNmeaFix& fix)
{
    const bool bSameEpoch = fix.time == m_pCurrent->m_time;
    if (!bSameEpoch) {
        FinishCurrent();
        m_pCurrent = std::make_unique<CTrackPoint>();
        m_nCompleteness = 0;
    }
    fix.ApplyTo(*m_pCurrent);

    const bool bHasLatitude = m_pCurrent->m_position.m_dLatitude != 0.0;
    switch (fix.kind) {
    case SNmeaFix::EKind::GGA:
    case SNmeaFix::EKind::GLL:
        if (bHasLatitude)
            m_nCompleteness |= PositionSource;
        break;
    case SNmeaFix::EKind::RMC:
        if (bHasLatitude)
            m_nCompleteness |= Complete;
        m_bRmcSeen = true;
        break;
    case SNmeaFix::EKind::ZDA:
        // A new epoch of an unreadable time still counts as a source of the date, an old one does not.
        if (!bSameEpoch || fix.time.IsValid())
            m_nCompleteness |= ZdaSource;
        break;
    }
}

void CNmeaAssembler::FinishCurrent()
{
    if (m_nCompleteness == Complete)
        m_points.Add(std::move(m_pCurrent));
}

} // namespace

EReadEnd ReadNmea(CImportMonitor& monitor, std::string_view strPath, CObjectArray<CTrackPoint>& points)
{
    CLineFile file;
    if (!file.OpenForReading(strPath)) {
        ReportOpenFailure(monitor, strPath, file.ErrorText());
        return EReadEnd::Failed;
    }
    CNmeaAssembler assembler(monitor, points);
    try {
        std::string_view strLine;
        while (file.ReadLine(strLine)) {
            if (monitor.IsAborted() || !assembler.Take(strLine, file.LineNumber()))
                return EReadEnd::Stopped;
        }
    } catch (const CFileException& exception) {
        monitor.NoteIssue(file.LineNumber(), exception.what());
        monitor.Report(StringTableText(EText::ReadFailure), false);
        return EReadEnd::Stopped;
    }
    assembler.Finish();
    return EReadEnd::Complete;
}

} // namespace kestrabel
