// What every kind of division and every combination of its options costs on a short and on a long session.
//
//     kestrabel-kinds [SHORT LONG] [Google Benchmark options]
//
// SHORT and LONG are numbers of fixes sailed; every hundred thousand have an hour at anchor in their middle.
// Prints Google Benchmark's own table, then a Markdown table with the median of each kind on the long
// session, its ratio to one derivation of the points, and the growth: how many times longer it takes when the
// short session is sailed over and over in the same waters until it is as long. Another session of that
// length would have other runs and rests, which costs more or less by itself. Ends with status 1 when a
// target is missed.

#include "app/NewProject.h"
#include "engine/Ranking.h"
#include "engine/SeriesResults.h"
#include "engine/TrackPointDerivation.h"
#include "MedianReporter.h"
#include "platform/NumberInput.h"
#include "simulator/RandomSource.h"
#include "simulator/SessionSimulator.h"

#include <cstdint>
#include <iomanip>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

using namespace kestrabel;

namespace {

constexpr const char* Derivation = "derivation, both passes";
constexpr double MostRatio = 3.0;   // of alphas, laps and splits to a derivation
constexpr double MostGrowth = 14.0; // for ten times the fixes

struct SSession
{
    SSession(std::string strSessionName, std::int64_t nFixes, std::int64_t nTimes)
        : strName(std::move(strSessionName))
    {
        FillNewProject(event, DATE::Now());
        pPerson = &AddCompetitor(event, "");
        pSeries = &pPerson->m_series.Add(std::make_unique<CSeries>());
        SSessionOptions options;
        options.nSeed = 7;
        options.nFixes = nFixes;
        SimulateSession(options, *pSeries);
        LieAtAnchor();
        Repeat(nTimes);
        CalculateTrackPoints(event, *pPerson, *pSeries, NoProgress());
    }

    /// Puts an hour at anchor into every hundred thousand fixes: nothing but the noise of the positions.
    void LieAtAnchor()
    {
        constexpr int nBetween = 100000;
        constexpr int nHour = 18000;
        constexpr double dStep = 0.2 * DaysPerSecond;
        CObjectArray<CTrackPoint> sailed;
        sailed.TakeAll(pSeries->m_points);
        CRandomSource random(11);
        double dLater = 0.0; // days by which the hours so far have put off the rest
        for (int i = 0; i < sailed.GetCount(); ++i) {
            CTrackPoint& fix = sailed[i];
            fix.m_time = fix.m_time.Plus(dLater);
            pSeries->m_points.Add(std::make_unique<CTrackPoint>(fix));
            if ((i + 1) % nBetween != nBetween / 2)
                continue;
            for (int n = 1; n <= nHour; ++n) {
                auto pRest = std::make_unique<CTrackPoint>(fix);
                pRest->m_time = fix.m_time.Plus(n * dStep);
                pRest->m_position.m_dLatitude += 1e-7 * random.Normal();
                pRest->m_position.m_dLongitude += 1e-7 * random.Normal();
                pRest->m_dDoppler = 0.3 * random.Uniform();
                pSeries->m_points.Add(std::move(pRest));
            }
            dLater += nHour * dStep;
        }
    }

    /// Appends the session to itself until it is there so many times, each an hour behind the one before.
    void Repeat(std::int64_t nTimes)
    {
        CObjectArray<CTrackPoint>& points = pSeries->m_points;
        const int nCount = points.GetCount();
        const double dPeriod =
            points[nCount - 1].m_time.m_dDays - points[0].m_time.m_dDays + 3600.0 * DaysPerSecond;
        for (std::int64_t n = 1; n < nTimes; ++n) {
            for (int i = 0; i < nCount; ++i) {
                CTrackPoint& fix = points.Add(std::make_unique<CTrackPoint>(points[i]));
                fix.m_time = fix.m_time.Plus(static_cast<double>(n) * dPeriod);
            }
        }
    }

    std::string strName;
    CEvent event;
    CPerson* pPerson = nullptr;
    CSeries* pSeries = nullptr;
};

/// A row of the table.
struct SKind
{
    std::string strName;
    CDivision division;
    bool bHasRatioTarget = false;
};

std::unique_ptr<SKind> MakeKind(std::string strName, std::uint8_t nKind, std::uint8_t nUsing)
{
    auto pKind = std::make_unique<SKind>();
    pKind->strName = std::move(strName) + (nUsing == CalcUsing::Doppler ? ", Doppler" : ", positions");
    pKind->division.m_strName = pKind->strName;
    pKind->division.m_nKind = nKind;
    pKind->division.m_nCalcUsing = nUsing;
    return pKind;
}

/// Four gates in the waters that both sessions sail.
void AddGates(CDivision& division, const CSeries& series)
{
    for (int i = 1; i <= 4; ++i) {
        CWayPoint& gate = division.m_waypoints.Add(std::make_unique<CWayPoint>());
        gate.m_strName = "Gate " + std::to_string(i);
        gate.m_position = series.m_points[series.m_points.GetCount() / 5 * i].m_position;
        gate.m_dProximity = 0.05;
    }
}

using CKinds = std::vector<std::unique_ptr<SKind>>;

CKinds MakeKinds(const CSeries& series)
{
    CKinds kinds;
    for (const std::uint8_t nUsing : {CalcUsing::Trackpoints, CalcUsing::Doppler}) {
        kinds.push_back(MakeKind("alpha 500 m, gate 50 m", DivisionKind::AlphaRacing, nUsing));
        kinds.push_back(MakeKind("laps, 4 gates", DivisionKind::LapRacing, nUsing));
        AddGates(kinds.back()->division, series);
        kinds.push_back(MakeKind("splits 500 m", DivisionKind::Splits, nUsing));
    }
    for (const auto& pKind : kinds)
        pKind->bHasRatioTarget = true;
    for (const std::uint8_t nKind : {DivisionKind::Distance, DivisionKind::Time}) {
        for (const std::uint8_t nUsing : {CalcUsing::Trackpoints, CalcUsing::Doppler}) {
            for (int nOptions = 0; nOptions < 16; ++nOptions) {
                const auto Option = [&](int nBit) { return static_cast<std::uint8_t>(nOptions >> nBit & 1); };
                std::string strName = nKind == DivisionKind::Distance ? "500 m" : "10 s";
                strName += Option(3) != 0 ? ", one a run" : ", any";
                strName += Option(2) != 0 ? ", summed" : ", straight";
                strName += Option(1) != 0 ? ", altitude" : "";
                strName += Option(0) != 0 ? ", strict" : "";
                kinds.push_back(MakeKind(strName, nKind, nUsing));
                CDivision& division = kinds.back()->division;
                division.m_bOneResultPerRun = Option(3);
                division.m_bAccumulation = Option(2);
                division.m_bUseAltitude = Option(1);
                division.m_bStrict = Option(0);
            }
        }
    }
    return kinds;
}

std::string NameOf(const std::string& strName, const SSession& session)
{
    return strName + "; " + session.strName;
}

template <class TMeasure>
void Register(const std::string& strName, const SSession& session, TMeasure&& measure)
{
    benchmark::RegisterBenchmark(NameOf(strName, session).c_str(),
                                 [measure](benchmark::State& state) {
                                     for ([[maybe_unused]] auto _ : state)
                                         measure();
                                 })
        ->Iterations(1)
        ->Repetitions(5)
        ->Unit(benchmark::kMillisecond);
}

void RegisterAll(const SSession& session, const CKinds& kinds)
{
    Register(Derivation, session, [&session] {
        CalculateTrackPoints(session.event, *session.pPerson, *session.pSeries, NoProgress());
    });
    for (const auto& pKind : kinds) {
        Register(pKind->strName, session, [&session, &division = pKind->division] {
            session.pSeries->m_divisions.RemoveAll();
            CResultList results;
            CalculateSeriesResults(session.event, *session.pPerson, 0, division, results, NoProgress());
            benchmark::DoNotOptimize(results.Best());
        });
    }
}

/// True when all targets are met.
bool PrintTable(CMedianReporter& reporter, const SSession& shortOne, const SSession& repeatedOne,
                const SSession& longOne, const CKinds& kinds)
{
    const double dDerivation = reporter.Median(NameOf(Derivation, longOne));
    bool bMet = true;
    std::cout << "\n| Work on " << longOne.pSeries->m_points.GetCount()
              << " fixes | median | to a derivation | target | growth from "
              << shortOne.pSeries->m_points.GetCount() << " to " << repeatedOne.pSeries->m_points.GetCount()
              << " | target |\n|---|---|---|---|---|---|\n"
              << std::fixed << std::setprecision(2);
    for (const auto& pKind : kinds) {
        const double dLong = reporter.Median(NameOf(pKind->strName, longOne));
        const double dShort = reporter.Median(NameOf(pKind->strName, shortOne));
        const double dRepeated = reporter.Median(NameOf(pKind->strName, repeatedOne));
        if (dShort == 0.0)
            continue; // filtered out
        const double dRatio = dLong / dDerivation;
        const double dGrowth = dRepeated / dShort;
        bMet = bMet && dGrowth <= MostGrowth && (!pKind->bHasRatioTarget || dRatio <= MostRatio);
        std::cout << "| " << pKind->strName << " | " << dLong << " ms | " << dRatio << " | ";
        if (pKind->bHasRatioTarget)
            std::cout << "at most " << MostRatio;
        std::cout << " | " << dGrowth << " | at most " << MostGrowth << " |\n";
    }
    return bMet;
}

} // namespace

int main(int nArguments, char** pArguments)
{
    double dShort = 100000.0;
    double dLong = 1000000.0;
    int nFirstOption = 1;
    if (nArguments >= 3 && IsDecimal(pArguments[1], dShort) && IsDecimal(pArguments[2], dLong) &&
        dShort >= 1.0 && dLong >= dShort)
        nFirstOption = 3;
    // Interleaved, so that a machine that gets slower in between slows all of them.
    std::string strInterleaving = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> options = {pArguments[0], strInterleaving.data()};
    options.insert(options.end(), pArguments + nFirstOption, pArguments + nArguments);
    int nOptions = static_cast<int>(options.size());
    benchmark::Initialize(&nOptions, options.data());
    if (benchmark::ReportUnrecognizedArguments(nOptions, options.data()))
        return 2;

    const auto nShort = static_cast<std::int64_t>(dShort);
    const auto nLong = static_cast<std::int64_t>(dLong);
    const SSession shortOne("short", nShort, 1);
    const SSession repeatedOne("repeated", nShort, nLong / nShort);
    const SSession longOne("long", nLong, 1);
    const CKinds kinds = MakeKinds(*shortOne.pSeries);
    for (const SSession* pSession : {&shortOne, &repeatedOne, &longOne})
        RegisterAll(*pSession, kinds);
    CMedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return PrintTable(reporter, shortOne, repeatedOne, longOne, kinds) ? 0 : 1;
}
