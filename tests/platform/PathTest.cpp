#include "platform/Path.h"

#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <tuple>

namespace kestrabel {
namespace {

using test::CTemporaryFolder;
namespace fs = std::filesystem;

TEST(Path, PartsOfAPath)
{
    // The path, its folder, title and extension.
    const std::vector<std::string> cases[] = {
        {"a.b.gpx", "", "a", ".gpx"},
        {"C:\\mixed/run.GPX", "C:\\mixed/", "run", ".GPX"},
        {"v1.2\\run", "v1.2\\", "run", ""},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(FolderOf(test[0]), test[1]);
        EXPECT_EQ(FileTitle(test[0]) + " " + FileExtension(test[0]), test[2] + " " + test[3]);
    }
    // Case is that of ASCII letters only.
    EXPECT_EQ(ToLower("AZ[@`{ \xC3\x9C\xDC"), "az[@`{ \xC3\x9C\xDC");
    EXPECT_EQ(ToUpper("az[@`{ \xC3\xBC\xFC"), "AZ[@`{ \xC3\xBC\xFC");
    EXPECT_TRUE(EqualNoCase("Run", "rUN") && !EqualNoCase("run", "run ") && !EqualNoCase("[", "{"));
}

TEST(Path, TwoHundredNamesAreTried)
{
    const CTemporaryFolder folder;
    const std::string strFolder = folder.Path("");
    EXPECT_EQ(UniqueFileName(strFolder, "run", ".trk"), strFolder + "run.trk");
    folder.Write("Run.TRK", "");
    for (int i = 1; i < 200; ++i) {
        const std::string strFree = "run " + std::to_string(i) + ".trk";
        EXPECT_EQ(UniqueFileName(strFolder, "run", ".trk"), strFolder + strFree);
        folder.Write(strFree, "");
    }
    EXPECT_EQ(UniqueFileName(strFolder, "run", ".trk"), "");
}

TEST(Path, FilesAreFoundWhateverTheirCase)
{
    const CTemporaryFolder folder;
    fs::create_directories(folder.Path("Event 1/Data"));
    for (const char* pName : {"Event 1/Data/Run.GPX", "b.txt", "B.txt", "B.TXT", "we\\ird", "\xDC.gpx"})
        folder.Write(pName, "");
    const std::pair<const char*, const char*> cases[] = {
        {"EVENT 1\\DATA/RUN.gpx", "Event 1/Data/Run.GPX"},
        {"b.TXT", "B.TXT"}, // among several the first in byte order
        {"we\\ird", "we\\ird"},
        {"\xDC.GPX", "\xDC.gpx"}, // Windows-1252, not UTF-8
        {"\xFC.gpx", "\xFC.gpx"}, // other than ASCII letters keep their case: not there
        {"Event 1/Data/Run.GPX/x", "Event 1/Data/Run.GPX/x"},
    };
    for (const auto& [pPath, pFound] : cases)
        EXPECT_EQ(FindFile(folder.Path(pPath)), folder.Path(pFound)) << pPath;
}

TEST(Path, TheStoredNameNeverLeadsToAnotherFile)
{
    const std::tuple<std::vector<const char*>, const char*, const char*> cases[] = {
        {{"Run.GPX"}, "Run.GPX", "run.gpx"},            // lower case finds the only file again
        {{"Run.GPX", "run.gpx"}, "Run.GPX", "Run.GPX"}, // another file has the lower-case name
        {{"RUN.GPX", "Run.GPX"}, "Run.GPX", "Run.GPX"}, // another file would be found first
        {{"RUN.GPX", "Run.GPX"}, "RUN.GPX", "run.gpx"}, // the one found first may be lowered
        {{"data/other", "Data/Run.gpx"}, "Data/Run.gpx", "Data/Run.gpx"}, // another folder hides the file
        {{"Data/Run.gpx"}, "Data/Run.gpx", "data/run.gpx"},
        {{}, "New.GPX", "New.GPX"}, // a file still to be written
    };
    const fs::path before = fs::current_path();
    for (const auto& [files, pChosen, pStored] : cases) {
        const CTemporaryFolder folder;
        for (const char* pFile : files) {
            fs::create_directories(fs::path(folder.Path(pFile)).parent_path());
            folder.Write(pFile, "");
        }
        fs::current_path(folder.Path(""));
        EXPECT_EQ(StoredFileName(pChosen), pStored);
        fs::current_path(before);
    }
}

} // namespace
} // namespace kestrabel
