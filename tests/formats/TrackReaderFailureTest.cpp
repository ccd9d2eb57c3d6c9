#include "formats/BinaryLogBytes.h"
#include "formats/BinaryLogReader.h"
#include "formats/GardownReader.h"
#include "formats/Pcx5Reader.h"
#include "formats/SirfBytes.h"
#include "formats/SirfReader.h"
#include "support/TemporaryFolder.h"

#include <functional>
#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

TEST(TrackReaderFailure, AFileThatCannotBeOpenedAndAnAbort)
{
    const struct
    {
        std::function<EReadEnd(CImportMonitor&, const std::string&, CSeries&)> read;
        std::string strSample;
    } readers[] = {
        {[](auto& monitor, auto& strPath, auto& s) { return ReadBinaryLog(monitor, strPath, s, s.m_points); },
         RecordAt(0)},
        {[](auto& monitor, auto& strPath, auto& s) { return ReadSirf(monitor, strPath, s, s.m_points); },
         Frame(Navigation(0))},
        {[](auto& monitor, auto& strPath, auto& s) { return ReadGardown(monitor, strPath, s.m_points); },
         "T N33.5 W96.25 Fri Jan 12 10:13:00 2001"},
        {[](auto& monitor, auto& strPath, auto& s) { return ReadPcx5(monitor, strPath, s.m_points); },
         "T 1 2 04-May-07 12:34:56 0"}};
    const CTemporaryFolder folder;
    CSeries series;
    for (const auto& reader : readers) {
        CImportMonitor missing;
        EXPECT_EQ(reader.read(missing, folder.Path("a"), series), EReadEnd::Failed);
        EXPECT_EQ(missing.Message(), folder.Path("a") + ": The file could not be located");
        EXPECT_TRUE(missing.IsAborted());
        CImportMonitor aborted;
        aborted.Abort();
        EXPECT_EQ(reader.read(aborted, folder.Write("b", reader.strSample), series), EReadEnd::Stopped);
        EXPECT_TRUE(series.m_points.IsEmpty());
    }
}

} // namespace
} // namespace kestrabel::test
