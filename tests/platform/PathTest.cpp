#include "platform/Path.h"

#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using test::CTemporaryFolder;
namespace fs = std::filesystem;

TEST(Path, PartsOfAPath)
{
    const struct
    {
        const char *pPath, *pFolder, *pTitle, *pExtension;
    } cases[] = {
        {"", "", "", ""},
        {"run", "", "run", ""},
        {"a.b.gpx", "", "a", ".gpx"},
        {".gpx", "", "", ".gpx"},
        {"run.", "", "run", "."},
        {"C:\\Data\\Run.GPX", "C:\\Data\\", "Run", ".GPX"},
        {"/data/run.gpx", "/data/", "run", ".gpx"},
        {"C:\\mixed/run.gpx", "C:\\mixed/", "run", ".gpx"},
        {"/mixed\\run.gpx", "/mixed\\", "run", ".gpx"},
        {"v1.2/run", "v1.2/", "run", ""},
        {"v1.2\\run", "v1.2\\", "run", ""},
        {"data/", "data/", "", ""},
        {"data\\", "data\\", "", ""},
        {"\xC3\x9C"
         "bung.gpx",
         "",
         "\xC3\x9C"
         "bung",
         ".gpx"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(FolderOf(test.pPath), test.pFolder) << test.pPath;
        EXPECT_EQ(FileTitle(test.pPath), test.pTitle) << test.pPath;
        EXPECT_EQ(FileExtension(test.pPath), test.pExtension) << test.pPath;
    }
}

TEST(Path, CaseIsThatOfAsciiLettersOnly)
{
    EXPECT_EQ(ToLower("AZ[@`{ \xC3\x9C\xDC"), "az[@`{ \xC3\x9C\xDC");
    EXPECT_EQ(ToUpper("az[@`{ \xC3\xBC\xFC"), "AZ[@`{ \xC3\xBC\xFC");
    EXPECT_TRUE(EqualNoCase("Run.GPX", "rUN.gpx"));
    EXPECT_FALSE(EqualNoCase("run", "run "));
    EXPECT_FALSE(EqualNoCase("[", "{")) << "32 apart as letters are";
    EXPECT_FALSE(EqualNoCase("\xC3\x9C", "\xC3\xBC"));
}

TEST(Path, TwoHundredNamesAreTried)
{
    const CTemporaryFolder folder;
    const std::string strFolder = folder.Path("");
    EXPECT_EQ(UniqueFileName(strFolder, "run", ".trk"), strFolder + "run.trk");
    folder.Write("Run.TRK", "");
    EXPECT_EQ(UniqueFileName(strFolder, "run", ".trk"), strFolder + "run 1.trk") << "but for case it exists";
    folder.Write("run 2.trk", "");
    EXPECT_EQ(UniqueFileName(strFolder, "run", ".trk"), strFolder + "run 1.trk") << "the first free one";
    for (int i = 1; i <= 198; ++i)
        folder.Write("run " + std::to_string(i) + ".trk", "");
    EXPECT_EQ(UniqueFileName(strFolder, "run", ".trk"), strFolder + "run 199.trk");
    folder.Write("run 199.trk", "");
    EXPECT_EQ(UniqueFileName(strFolder, "run", ".trk"), "");
}

TEST(Path, FilesAreFoundWhateverTheirCase)
{
    const CTemporaryFolder folder;
    fs::create_directories(folder.Path("Event 1/Data"));
    folder.Write("Event 1/Data/Run.GPX", "");
    folder.Write("Event 1/Data/run.gpx.bak", "");
    folder.Write("b.txt", "");
    folder.Write("B.txt", "");
    folder.Write("B.TXT", "");
    folder.Write("we\\ird", "");
    folder.Write("\xDC"
                 "bung.gpx",
                 ""); // Windows-1252, not UTF-8
    const struct
    {
        const char *pPath, *pFound;
    } cases[] = {
        {"Event 1/Data/Run.GPX", "Event 1/Data/Run.GPX"},
        {"event 1/data/run.gpx", "Event 1/Data/Run.GPX"},
        {"EVENT 1/DATA/RUN.gpx", "Event 1/Data/Run.GPX"},
        {"Event 1\\Data\\Run.GPX", "Event 1/Data/Run.GPX"},
        {"event 1\\DATA/run.gpx", "Event 1/Data/Run.GPX"},
        {"event 1/data", "Event 1/Data"},
        {"b.txt", "b.txt"},
        {"b.TXT", "B.TXT"}, // among several the first in byte order
        {"we\\ird", "we\\ird"},
        {"\xDC"
         "BUNG.GPX",
         "\xDC"
         "bung.gpx"},
        {"\xFC"
         "bung.gpx",
         "\xFC"
         "bung.gpx"}, // other than ASCII letters keep their case: not there
        {"event 1/data/missing.gpx", "event 1/data/missing.gpx"},
        {"event 2/data/run.gpx", "event 2/data/run.gpx"},
        {"Event 1/Data/Run.GPX/x", "Event 1/Data/Run.GPX/x"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FindFile(folder.Path(test.pPath)), folder.Path(test.pFound)) << test.pPath;
    EXPECT_EQ(FindFile(""), "");

    const fs::path before = fs::current_path();
    fs::current_path(folder.Path(""));
    EXPECT_EQ(FindFile("event 1\\data\\RUN.GPX"), "Event 1/Data/Run.GPX") << "relative";
    EXPECT_EQ(StoredFileName("Event 1/Data/Run.GPX"), "event 1/data/run.gpx");
    fs::current_path(before);
}

TEST(Path, TheStoredNameNeverLeadsToAnotherFile)
{
    const struct
    {
        const char* pWhat;
        std::vector<const char*> files;
        const char *pChosen, *pStored;
    } cases[] = {
        {"lower case finds the only file again", {"Run.GPX"}, "Run.GPX", "run.gpx"},
        {"nothing to lower", {"run.gpx"}, "run.gpx", "run.gpx"},
        {"another file has the lower-case name", {"Run.GPX", "run.gpx"}, "Run.GPX", "Run.GPX"},
        {"another file would be found first", {"RUN.GPX", "Run.GPX"}, "Run.GPX", "Run.GPX"},
        {"the one found first may be lowered", {"RUN.GPX", "Run.GPX"}, "RUN.GPX", "run.gpx"},
        {"another folder hides the file", {"data/other", "Data/Run.gpx"}, "Data/Run.gpx", "Data/Run.gpx"},
        {"folders are lowered too", {"Data/Run.gpx"}, "Data/Run.gpx", "data/run.gpx"},
        {"a file still to be written", {}, "New.GPX", "New.GPX"},
        {"other letters stay",
         {"\xC3\x9C"
          "A.GPX"},
         "\xC3\x9C"
         "A.GPX",
         "\xC3\x9C"
         "a.gpx"},
        {"bytes that are not UTF-8 stay",
         {"\xDC"
          "A.GPX"},
         "\xDC"
         "A.GPX",
         "\xDC"
         "a.gpx"},
    };
    const fs::path before = fs::current_path();
    for (const auto& test : cases) {
        const CTemporaryFolder folder;
        for (const char* pFile : test.files) {
            fs::create_directories(fs::path(folder.Path(pFile)).parent_path());
            folder.Write(pFile, "");
        }
        fs::current_path(folder.Path(""));
        EXPECT_EQ(StoredFileName(test.pChosen), test.pStored) << test.pWhat;
        fs::current_path(before);
    }
}

} // namespace
} // namespace kestrabel
