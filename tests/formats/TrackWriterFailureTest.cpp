#include "formats/BinaryLogWriter.h"
#include "formats/GpxWriter.h"
#include "formats/Pcx5Writer.h"
#include "formats/ScriptedPrompt.h"
#include "formats/TrackMarksWriter.h"
#include "support/FileSizeLimit.h"
#include "support/KilledSave.h"
#include "support/TemporaryFolder.h"
#include "support/Track.h"

#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

using CTexts = std::vector<std::string>;

struct SWriter
{
    const char* pWhat;
    std::function<bool(CImportMonitor&, const std::string&, const CSeries&)> write;
    const char* pFailure; ///< reported when the file cannot be written on
    bool bShowsCause;     ///< the cause of a failed open is also shown
};

const std::vector<SWriter> Writers = {
    {"binary log",
     [](auto& monitor, auto& strPath, auto& s) { return WriteBinaryLog(monitor, s, strPath, s.m_points); },
     "Failed to write file", false},
    {"PCX5", [](auto& monitor, auto& strPath, auto& s) { return WritePcx5(monitor, strPath, s.m_points); },
     "Failed to write file", true},
    {"track marks",
     [](auto& monitor, auto& strPath, auto& s) { return WriteTrackMarks(monitor, strPath, s.m_points); },
     "Failed to write track marks", false},
    {"GPX", [](auto& monitor, auto& strPath, auto& s) { return WriteGpx(monitor, strPath, s.m_points); },
     "Failed to write file", true}};

void FillSeries(CSeries& series)
{
    for (int n = 0; n < 5000; ++n) {
        series.m_points.Add(MakePoint(n, 48.5, 11.5));
        series.m_points.Last()->m_nSats = 8;
    }
}

TEST(TrackWriterFailure, AFileThatCannotBeCreated)
{
    const CTemporaryFolder folder;
    CSeries series;
    for (const SWriter& writer : Writers) {
        CScriptedPrompt prompt;
        CImportMonitor monitor(&prompt);
        const std::string strPath = folder.Path("missing/a.trk");
        const std::string strCause = "All or part of the path is invalid";
        EXPECT_FALSE(writer.write(monitor, strPath, series)) << writer.pWhat;
        EXPECT_EQ(monitor.Message(), strPath + ": " + strCause) << writer.pWhat;
        EXPECT_TRUE(monitor.IsAborted()) << writer.pWhat;
        EXPECT_EQ(prompt.m_shown, writer.bShowsCause ? CTexts{strCause} : CTexts()) << writer.pWhat;
        CImportMonitor alone;
        EXPECT_FALSE(writer.write(alone, strPath, series)) << "without a window";
    }
}

TEST(TrackWriterFailure, FullDiskLeavesTheOldFile)
{
    const CTemporaryFolder folder;
    const std::string strOld = folder.Write("old.trk", "old");
    CSeries series;
    FillSeries(series);
    for (const SWriter& writer : Writers) {
        CImportMonitor good;
        const std::string strNew = folder.Path("new.trk");
        ASSERT_TRUE(writer.write(good, strNew, series));
        const auto nSize = std::filesystem::file_size(strNew);
        std::filesystem::remove(strNew);
        // In the first flush, in the middle, and one byte before the end.
        for (const auto nLimit : {std::uintmax_t(0), nSize / 2, nSize - 1}) {
            for (const std::string& strPath : {strOld, strNew}) {
                CScriptedPrompt prompt;
                CImportMonitor monitor(&prompt);
                bool bWritten = true;
                {
                    const CFileSizeLimit limit(nLimit);
                    bWritten = writer.write(monitor, strPath, series);
                }
                EXPECT_FALSE(bWritten) << writer.pWhat << nLimit;
                EXPECT_EQ(monitor.Message(), writer.pFailure) << writer.pWhat;
                EXPECT_TRUE(monitor.IsAborted()) << writer.pWhat;
                ASSERT_EQ(monitor.Issues().size(), 1U);
                EXPECT_THAT(monitor.Issues()[0].strReason, testing::HasSubstr("The disk is full"));
                EXPECT_EQ(prompt.m_shown, CTexts()) << writer.pWhat;
            }
            EXPECT_EQ(CTemporaryFolder::Read(strOld), "old") << writer.pWhat << nLimit;
            EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path("")), {}), 1)
                << "nothing half-written is left";
        }
    }
}

TEST(TrackWriterFailure, KilledWhileSavingItIsTheOldFileOrTheNewOne)
{
    const CTemporaryFolder folder;
    CSeries series[2];
    for (CSeries& one : series)
        FillSeries(one);
    for (CTrackPoint* pPoint : series[1].m_points)
        pPoint->m_position.m_dLatitude += 0.25;
    for (const SWriter& writer : Writers) {
        SCOPED_TRACE(writer.pWhat);
        KillWhileSaving(folder.Path("log"), 20, [&](int nContent) {
            CImportMonitor monitor;
            writer.write(monitor, folder.Path("log"), series[nContent]);
        });
    }
}

} // namespace
} // namespace kestrabel::test
