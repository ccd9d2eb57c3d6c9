#include "app/Document.h"
#include "app/EditRecorder.h"
#include "app/TimeOrder.h"
#include "app/TrackEditing.h"
#include "platform/Path.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace kestrabel {

namespace {

constexpr int TapCount = 11;
constexpr int HalfTaps = TapCount / 2;
/// Weights of a low-pass over five fixes on either side; they sum to 1.
constexpr std::array<double, TapCount> Taps = {0.026416921, 0.054193837, 0.08680674,  0.117938646,
                                               0.140365579, 0.148556554, 0.140365579, 0.117938646,
                                               0.08680674,  0.054193837, 0.026416921};
constexpr std::size_t ShortestCommonName = 3;
constexpr double HoursPerDay = 24.0;

/// A text taken apart, so that no character is kept by half.
std::vector<std::string_view> Characters(std::string_view strText)
{
    std::vector<std::string_view> characters;
    while (!strText.empty()) {
        characters.push_back(FirstCharacters(strText, 1));
        strText.remove_prefix(characters.back().size());
    }
    return characters;
}

/// The characters that all names have at the same places; the competitor's name when hardly any is.
std::string CommonName(const CPerson& person)
{
    std::vector<std::vector<std::string_view>> names;
    for (const CSeries* pSeries : person.m_series)
        names.push_back(Characters(pSeries->m_strName));
    std::string strCommon;
    std::size_t nCount = 0;
    for (std::size_t i = 0; i < names[0].size(); ++i) {
        const bool bShared = std::ranges::all_of(
            names, [&](const auto& name) { return i < name.size() && name[i] == names[0][i]; });
        if (!bShared)
            continue;
        strCommon += names[0][i];
        ++nCount;
    }
    return nCount >= ShortestCommonName ? strCommon : person.m_strName;
}

/// What is smoothed of a point.
struct SSmoothed
{
    double dLatitude = 0.0;
    double dLongitude = 0.0;
    double dAltitude = 0.0;
    double dClimb = 0.0; ///< by the vertical speed over the step
};

SSmoothed ValuesOf(const CTrackPoint& point)
{
    return {point.m_position.m_dLatitude, point.m_position.m_dLongitude,
            static_cast<double>(point.m_nAltitude), point.m_dVertSpeed * point.m_dDeltaTime * HoursPerDay};
}

std::int32_t WholeMetres(double dAltitude, std::int32_t nOld)
{
    constexpr double dLimit = std::numeric_limits<std::int32_t>::max();
    return std::abs(dAltitude) < dLimit ? static_cast<std::int32_t>(dAltitude) : nOld;
}

/// Where the window reaches past an end, the taps stay on their points and are divided by what is left of
/// their sum.
SSmoothed WeightedMean(const std::vector<SSmoothed>& values, int nCentre)
{
    SSmoothed mean;
    double dWeights = 0.0;
    const int nCount = static_cast<int>(values.size());
    for (int nTap = 0; nTap < TapCount; ++nTap) {
        const int nIndex = nCentre - HalfTaps + nTap;
        if (nIndex < 0 || nIndex >= nCount)
            continue;
        const double dWeight = Taps[static_cast<std::size_t>(nTap)];
        const SSmoothed& value = values[static_cast<std::size_t>(nIndex)];
        mean.dLatitude += dWeight * value.dLatitude;
        mean.dLongitude += dWeight * value.dLongitude;
        mean.dAltitude += dWeight * value.dAltitude;
        mean.dClimb += dWeight * value.dClimb;
        dWeights += dWeight;
    }
    if (nCentre < HalfTaps || nCentre + HalfTaps >= nCount) {
        mean.dLatitude /= dWeights;
        mean.dLongitude /= dWeights;
        mean.dAltitude /= dWeights;
        mean.dClimb /= dWeights;
    }
    return mean;
}

void Smooth(const CObjectArray<CTrackPoint>& points)
{
    std::vector<SSmoothed> values;
    values.reserve(static_cast<std::size_t>(points.GetCount()));
    for (const CTrackPoint* pPoint : points)
        values.push_back(ValuesOf(*pPoint));
    for (int i = 0; i < points.GetCount(); ++i) {
        const SSmoothed mean = WeightedMean(values, i);
        CTrackPoint& point = points[i];
        point.m_position = MakePosition(mean.dLatitude, mean.dLongitude);
        const double dClimb = values[static_cast<std::size_t>(i)].dClimb;
        point.m_nAltitude = WholeMetres(dClimb + mean.dAltitude - mean.dClimb, point.m_nAltitude);
    }
}

/// All files of the competitor as one, in the order of time.
std::unique_ptr<CSeries> Combine(const CEvent& event, const CPerson& person)
{
    auto pCombined = std::make_unique<CSeries>();
    pCombined->m_strName = CommonName(person) + "_Combined";
    pCombined->m_strFileName =
        UniqueFileName(FolderOf(person.m_series[0].m_strFileName), pCombined->m_strName, ".gpx");
    pCombined->m_ellipsoid = event.m_ellipsoid;
    std::vector<CTrackPoint*> points;
    for (const CSeries* pSeries : person.m_series) {
        for (const CWayPoint* pWayPoint : pSeries->m_waypoints)
            pCombined->m_waypoints.Add(std::make_unique<CWayPoint>(*pWayPoint));
        pCombined->m_dTrackError = std::max(pCombined->m_dTrackError, pSeries->m_dTrackError);
        pCombined->m_dDopplerError = std::max(pCombined->m_dDopplerError, pSeries->m_dDopplerError);
        points.insert(points.end(), pSeries->m_points.begin(), pSeries->m_points.end());
    }
    pCombined->m_points.Reserve(static_cast<int>(points.size()));
    for (const int nIndex : TimeOrder(points))
        pCombined->m_points.Add(std::make_unique<CTrackPoint>(*points[static_cast<std::size_t>(nIndex)]));
    Smooth(pCombined->m_points);
    return pCombined;
}

} // namespace

void CreateCombinedSeries(CKestroDoc& document, int nCompetitor)
{
    CEvent& event = document.m_event;
    if (nCompetitor < 0 || nCompetitor >= event.m_persons.GetCount())
        return;
    CPerson& person = event.m_persons[nCompetitor];
    const int nFiles = person.m_series.GetCount();
    if (nFiles == 0)
        return;
    std::unique_ptr<CSeries> pCombined = Combine(event, person);
    pCombined->m_nPersonIndex = nCompetitor;

    CEditRecorder recorder(document, "Create Combined File");
    recorder.Touch(person, *pCombined, false);
    recorder.Do(std::make_unique<CObjectChange<CSeries>>(person.m_series, nFiles, std::move(pCombined)));
    recorder.MarkDocument();
    recorder.Finish();
    document.m_selection.SelectSeries(nFiles, false, true);
    recorder.Keep();
}

} // namespace kestrabel
