// The engine's work on one long track file, beside GeographicLib's over the same pairs of fixes.
//
//     kestrabel-bench FILE [Google Benchmark options]
//
// Prints Google Benchmark's own table, then the medians and the ratios of interest as a Markdown table.

#include "app/NewProject.h"
#include "app/TrackFileImport.h"
#include "engine/Ranking.h"
#include "engine/TrackPointDerivation.h"
#include "geo/DistanceCalculator.h"
#include "MedianReporter.h"

#include <benchmark/benchmark.h>
#include <GeographicLib/Geodesic.hpp>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

using namespace kestrabel;

namespace {

constexpr const char* Inverse = "GeographicLib Geodesic::Inverse";
constexpr const char* Distances = "distance and azimuth of consecutive fixes";
constexpr const char* Derivation = "derivation, both passes";
constexpr const char* Divisions = "results of the six default divisions";

struct SSession
{
    CEvent event;
    CPerson* pPerson = nullptr;
    CSeries* pSeries = nullptr;
    std::vector<CPosition> positions; ///< side by side, so that the formulas are measured and not the memory
};

bool LoadSession(SSession& session, const char* pPath)
{
    FillNewProject(session.event, DATE::Now());
    session.pPerson = &AddCompetitor(session.event, "");
    CImportMonitor monitor;
    EImportEnd end = EImportEnd::Failed;
    session.pSeries = AddTrackFile(session.event, *session.pPerson, pPath, monitor, end, NoProgress());
    if (session.pSeries == nullptr)
        std::cerr << pPath << ": " << monitor.Message() << '\n';
    else
        for (const CTrackPoint* pPoint : session.pSeries->m_points)
            session.positions.push_back(pPoint->m_position);
    return session.pSeries != nullptr;
}

void MeasureInverse(benchmark::State& state, const SSession& session)
{
    const GeographicLib::Geodesic& geodesic = GeographicLib::Geodesic::WGS84();
    for ([[maybe_unused]] auto _ : state) {
        double dSum = 0.0;
        for (std::size_t i = 1; i < session.positions.size(); ++i) {
            const CPosition& from = session.positions[i - 1];
            const CPosition& to = session.positions[i];
            double s12 = 0.0;
            double azi1 = 0.0;
            double azi2 = 0.0;
            geodesic.Inverse(from.m_dLatitude, from.m_dLongitude, to.m_dLatitude, to.m_dLongitude, s12, azi1,
                             azi2);
            dSum += s12 + azi1;
        }
        benchmark::DoNotOptimize(dSum);
    }
}

void MeasureDistances(benchmark::State& state, const SSession& session)
{
    for ([[maybe_unused]] auto _ : state) {
        CDistanceCalculator calculator(session.pSeries->m_ellipsoid);
        double dSum = 0.0;
        for (std::size_t i = 1; i < session.positions.size(); ++i) {
            const double dDistance = calculator.Distance(session.positions[i - 1], session.positions[i]);
            dSum += dDistance + calculator.m_dAzimuth;
        }
        benchmark::DoNotOptimize(dSum);
    }
}

void MeasureDerivation(benchmark::State& state, const SSession& session)
{
    for ([[maybe_unused]] auto _ : state)
        CalculateTrackPoints(session.event, *session.pPerson, *session.pSeries, NoProgress());
}

void MeasureDivisions(benchmark::State& state, const SSession& session)
{
    for ([[maybe_unused]] auto _ : state) {
        session.pSeries->m_divisions.RemoveAll();
        for (const CDivision* pDivision : session.event.m_divisions) {
            CResultList results;
            DivisionLeaderboard(session.event, session.event.m_persons, *pDivision, results, NoProgress());
            benchmark::DoNotOptimize(results.Best());
        }
    }
}

class CRatioReporter : public CMedianReporter
{
public:
    void PrintRatio(const std::string& strName, const std::string& strOther, double dTarget)
    {
        std::cout << "| " << strName << " | " << std::fixed << std::setprecision(0) << Median(strName)
                  << " ms | " << strOther << ' ' << Median(strOther) << " ms | " << std::setprecision(2)
                  << Median(strName) / Median(strOther) << " | at most " << dTarget << " |\n";
    }
};

void Register(const char* pName, void (*pMeasure)(benchmark::State&, const SSession&),
              const SSession& session)
{
    benchmark::RegisterBenchmark(pName,
                                 [pMeasure, &session](benchmark::State& state) { pMeasure(state, session); })
        ->Iterations(1)
        ->Repetitions(9)
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int nArguments, char** pArguments)
{
    if (nArguments < 2) {
        std::cerr << "usage: kestrabel-bench FILE [Google Benchmark options]\n";
        return 2;
    }
    SSession session;
    if (!LoadSession(session, pArguments[1]))
        return 3;

    // Interleaved, so that a machine that gets slower in between slows all of them.
    std::string strInterleaving = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> options = {pArguments[0], strInterleaving.data()};
    options.insert(options.end(), pArguments + 2, pArguments + nArguments);
    int nOptions = static_cast<int>(options.size());
    benchmark::Initialize(&nOptions, options.data());

    Register(Inverse, MeasureInverse, session);
    Register(Distances, MeasureDistances, session);
    Register(Derivation, MeasureDerivation, session);
    Register(Divisions, MeasureDivisions, session);
    CRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    std::cout << "\n| Work on " << session.pSeries->m_points.GetCount()
              << " fixes | median | beside | ratio | target |\n|---|---|---|---|---|\n";
    reporter.PrintRatio(Distances, Inverse, 0.5);
    reporter.PrintRatio(Derivation, Distances, 1.6);
    reporter.PrintRatio(Divisions, Derivation, 0.5);
    return 0;
}
