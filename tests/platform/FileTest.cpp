#include "platform/File.h"

#include "support/SmallDisk.h"
#include "support/TemporaryFolder.h"

#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>

namespace kestrabel {
namespace {

using test::CTemporaryFolder;
namespace fs = std::filesystem;
using EMode = CFile::EMode;
using CNames = std::set<std::string>;

CNames NamesIn(const CTemporaryFolder& folder)
{
    CNames names;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder.Path("")))
        names.insert(entry.path().lexically_relative(folder.Path("")).string());
    return names;
}

/// Writes and commits; the cause of the failure, None when there is none.
EFileCause WriteAll(CFile& file, std::string_view bytes)
{
    try {
        file.Write(bytes);
        file.Commit();
    } catch (const CFileException& exception) {
        return exception.Cause();
    }
    return EFileCause::None;
}

EFileCause WriteWhole(const std::string& strPath, EMode mode, std::string_view bytes)
{
    CFile file;
    const EFileCause cause = file.Open(strPath, mode);
    return cause == EFileCause::None ? WriteAll(file, bytes) : cause;
}

TEST(FileCause, EveryCauseHasItsTextAndSystemErrorsTheirCause)
{
    const auto TextOf = [](int nError) { return FileCauseText(FileCauseFromErrno(nError)); };
    EXPECT_EQ(FileCauseText(EFileCause::EndOfFile), "The end of file was reached");
    EXPECT_EQ(TextOf(EMFILE), "The permitted number of open files was exceeded");
    EXPECT_EQ(TextOf(EIO), "There was a hardware error");
    EXPECT_EQ(TextOf(ENOEXEC), "An unspecified error occurred");
    EXPECT_STREQ(CFileException(EFileCause::DiskFull, "a/b.gpx").what(), "a/b.gpx: The disk is full");
}

TEST(File, WhatCannotBeOpenedSaysWhy)
{
    const CTemporaryFolder folder;
    folder.Write("file", "x");
    fs::create_directory(folder.Path("sub"));
    using enum EFileCause;
    const std::tuple<std::string, EFileCause, EFileCause> cases[] = {
        {"", BadPath, BadPath},
        {folder.Path("missing"), NotFound, None},
        {folder.Path("nowhere\\x"), BadPath, BadPath},
        {folder.Path("sub"), AccessDenied, AccessDenied},
        {folder.Path("file/x"), BadPath, BadPath},
        {folder.Path(std::string(300, 'n')), BadPath, BadPath},
        {folder.Path("file") + std::string("\0.gpx", 5), BadPath, BadPath},
    };
    for (const auto& [strPath, read, write] : cases) {
        CFile file;
        EXPECT_EQ(file.Open(strPath, EMode::Read), read) << strPath;
        EXPECT_EQ(file.Open(strPath, EMode::Replace), write) << strPath;
        EXPECT_EQ(file.Open(strPath, EMode::Create), write) << strPath;
    }
    EXPECT_EQ(NamesIn(folder), (CNames{"file", "missing", "sub"})) << "leftovers";
}

TEST(File, ProtectedFilesAndFoldersAreRefused)
{
    const CTemporaryFolder folder;
    fs::permissions(folder.Path(""), fs::perms::all);
    ::chmod(folder.Write("readonly", "old").c_str(), 0444);
    fs::create_directory(folder.Path("locked"));
    folder.Write("locked/file", "old");
    ::chmod(folder.Path("locked").c_str(), 0555);
    const std::pair<const char*, EMode> cases[] = {
        {"readonly", EMode::Create}, {"readonly", EMode::Replace}, {"locked/file", EMode::Replace}};
    for (const auto& [pName, mode] : cases) {
        const pid_t nChild = ::fork();
        if (nChild == 0) { // for root no file is protected
            CFile file;
            const bool bOrdinary = ::geteuid() != 0 || ::setuid(65534) == 0;
            ::_exit(bOrdinary ? static_cast<int>(file.Open(folder.Path(pName), mode)) : 100);
        }
        int nStatus = 0;
        ::waitpid(nChild, &nStatus, 0);
        EXPECT_EQ(WEXITSTATUS(nStatus), static_cast<int>(EFileCause::AccessDenied)) << pName;
    }
    EXPECT_EQ(NamesIn(folder), (CNames{"locked", "locked/file", "readonly"}));
}

TEST(File, TheOldFileStandsUntilCommit)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Write(std::string(255, 'n'), "old"); // the longest name
    const std::string strNew(200'000, 'n');                                 // more than any buffer
    CFile file;
    for (int i = 0; i < 2; ++i) { // opened again, what was written is thrown away
        ASSERT_EQ(file.Open(strPath, EMode::Replace), EFileCause::None);
        file.Write(strNew);
        EXPECT_EQ(CTemporaryFolder::Read(strPath), "old");
    }
    file.Commit();
    EXPECT_EQ(CTemporaryFolder::Read(strPath), strNew);
    EXPECT_EQ(NamesIn(folder).size(), 1U);

    // A target that cannot be replaced at the end.
    ASSERT_EQ(file.Open(folder.Path("name"), EMode::Replace), EFileCause::None);
    fs::create_directory(folder.Path("name"));
    EXPECT_EQ(WriteAll(file, "x"), EFileCause::AccessDenied);
    EXPECT_EQ(NamesIn(folder).size(), 2U) << "nothing is left behind";
}

TEST(File, ReplacingKeepsPermissionsAndLinks)
{
    const CTemporaryFolder folder;
    const mode_t oldMask = ::umask(027);
    EXPECT_EQ(WriteWhole(folder.Path("new"), EMode::Replace, "n"), EFileCause::None);
    ::umask(oldMask);
    EXPECT_EQ(fs::status(folder.Path("new")).permissions(), fs::perms{0640}) << "as any new file";
    ::chmod(folder.Write("real", "old").c_str(), 0664);
    fs::create_symlink("real", folder.Path("link"));
    EXPECT_EQ(WriteWhole(folder.Path("link"), EMode::Replace, "new"), EFileCause::None);
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
    EXPECT_EQ(CTemporaryFolder::Read(folder.Path("real")), "new");
    EXPECT_EQ(fs::status(folder.Path("real")).permissions(), fs::perms{0664});
}

TEST(File, AFullDiskNeverCostsTheOldFile)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Write("track.gpx", "the old track");
    // Found when the buffer is written out in between, and found only at the end.
    for (const std::size_t nSize : {200'000U, 2'000U}) {
        CFile file;
        ASSERT_EQ(file.Open(strPath, EMode::Replace), EFileCause::None);
        {
            const test::CSmallDisk disk(1'000);
            EXPECT_EQ(WriteAll(file, std::string(nSize, 'n')), EFileCause::DiskFull);
        }
        EXPECT_EQ(NamesIn(folder), CNames{"track.gpx"}) << "the cut file is gone";
        // There is room again, but bytes are lost: a writer that goes on must not succeed.
        EXPECT_NE(WriteAll(file, "the end"), EFileCause::None);
        EXPECT_EQ(CTemporaryFolder::Read(strPath), "the old track") << nSize;
    }
}

TEST(File, NamesFromOtherSystemsFindTheirFile)
{
    const CTemporaryFolder folder;
    fs::create_directory(folder.Path("Data"));
    folder.Write("Data/Track.GPX", "old");
    CFile file;
    EXPECT_EQ(file.Open(folder.Path("data\\track.gpx"), EMode::Read), EFileCause::None);
    // What is written goes to the folder so found, but never over a file of another name.
    EXPECT_EQ(WriteWhole(folder.Path("data\\new"), EMode::Create, "x"), EFileCause::None);
    EXPECT_EQ(WriteWhole(folder.Path("data/TRACK.gpx"), EMode::Replace, "x"), EFileCause::None);
    EXPECT_EQ(NamesIn(folder), (CNames{"Data", "Data/TRACK.gpx", "Data/Track.GPX", "Data/new"}));
    EXPECT_EQ(CTemporaryFolder::Read(folder.Path("Data/Track.GPX")), "old");
}

} // namespace
} // namespace kestrabel
