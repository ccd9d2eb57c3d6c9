#include "platform/File.h"

#include "support/SmallDisk.h"
#include "support/TemporaryFolder.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrabel {
namespace {

using test::CSmallDisk;
using test::CTemporaryFolder;
namespace fs = std::filesystem;
using EMode = CFile::EMode;

std::set<std::string> NamesIn(const CTemporaryFolder& folder)
{
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder.Path("")))
        names.insert(entry.path().lexically_relative(folder.Path("")).string());
    return names;
}

/// The cause of what `run` throws, None when it throws nothing.
template <class TRun>
EFileCause CauseOf(TRun&& run)
{
    try {
        run();
    } catch (const CFileException& exception) {
        return exception.Cause();
    }
    return EFileCause::None;
}

EFileCause WriteWhole(const std::string& strPath, EMode mode, std::string_view bytes)
{
    CFile file;
    const EFileCause cause = file.Open(strPath, mode);
    if (cause != EFileCause::None)
        return cause;
    return CauseOf([&] {
        file.Write(bytes);
        file.Commit();
    });
}

/// What `run` returns when a user without privileges runs it, in a process of its own: for root no file is
/// protected.
template <class TRun>
int AsOrdinaryUser(TRun&& run)
{
    constexpr uid_t nNobody = 65534;
    const pid_t nChild = ::fork();
    if (nChild == 0) {
        if (::geteuid() == 0 && (::setgid(nNobody) != 0 || ::setuid(nNobody) != 0))
            ::_exit(100);
        ::_exit(static_cast<int>(run()));
    }
    int nStatus = 0;
    ::waitpid(nChild, &nStatus, 0);
    return WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -1;
}

TEST(FileCause, EveryCauseHasItsText)
{
    const char* const texts[] = {
        "No error occurred",
        "An unspecified error occurred",
        "The file could not be located",
        "All or part of the path is invalid",
        "The permitted number of open files was exceeded",
        "The file could not be accessed",
        "There was an attempt to use an invalid file handle",
        "The current working directory cannot be removed",
        "There are no more directory entries",
        "There was an error trying to set the file pointer",
        "There was a hardware error",
        "SHARE.EXE was not loaded, or a shared region was locked",
        "There was an attempt to lock a region that was already locked",
        "The disk is full",
        "The end of file was reached",
    };
    for (int i = 0; i < 15; ++i)
        EXPECT_EQ(FileCauseText(static_cast<EFileCause>(i)), texts[i]) << i;
    EXPECT_EQ(FileCauseText(static_cast<EFileCause>(-1)), "");
    EXPECT_EQ(FileCauseText(static_cast<EFileCause>(15)), "");
    EXPECT_STREQ(CFileException(EFileCause::DiskFull, "a/b.gpx").what(), "a/b.gpx: The disk is full");
}

TEST(FileCause, SystemErrorsHaveTheirCause)
{
    const struct
    {
        int nError;
        EFileCause cause;
    } cases[] = {
        {0, EFileCause::None},
        {ENOENT, EFileCause::NotFound},
        {ENOTDIR, EFileCause::BadPath},
        {ENAMETOOLONG, EFileCause::BadPath},
        {EMFILE, EFileCause::TooManyOpenFiles},
        {EACCES, EFileCause::AccessDenied},
        {EROFS, EFileCause::AccessDenied},
        {EISDIR, EFileCause::AccessDenied},
        {EBADF, EFileCause::InvalidHandle},
        {EIO, EFileCause::HardwareError},
        {ENOSPC, EFileCause::DiskFull},
        {EDQUOT, EFileCause::DiskFull},
        {EFBIG, EFileCause::DiskFull},
        {ENOEXEC, EFileCause::Unspecified},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FileCauseFromErrno(test.nError), test.cause) << test.nError;
}

TEST(File, WhatCannotBeOpenedSaysWhy)
{
    const CTemporaryFolder folder;
    folder.Write("file", "x");
    fs::create_directory(folder.Path("sub"));
    fs::create_symlink("loop", folder.Path("loop"));
    const std::string strLong(300, 'n');
    using namespace std::string_literals;
    const struct
    {
        std::string strPath;
        EFileCause read, create, replace;
    } cases[] = {
        {"", EFileCause::BadPath, EFileCause::BadPath, EFileCause::BadPath},
        {folder.Path("missing"), EFileCause::NotFound, EFileCause::None, EFileCause::None},
        {folder.Path("nowhere/x"), EFileCause::BadPath, EFileCause::BadPath, EFileCause::BadPath},
        {folder.Path("nowhere\\x"), EFileCause::BadPath, EFileCause::BadPath, EFileCause::BadPath},
        {folder.Path("sub"), EFileCause::AccessDenied, EFileCause::AccessDenied, EFileCause::AccessDenied},
        {folder.Path("file/x"), EFileCause::BadPath, EFileCause::BadPath, EFileCause::BadPath},
        {folder.Path(strLong), EFileCause::BadPath, EFileCause::BadPath, EFileCause::BadPath},
        {folder.Path("loop"), EFileCause::BadPath, EFileCause::BadPath, EFileCause::BadPath},
        {folder.Path("file") + "\0.gpx"s, EFileCause::BadPath, EFileCause::BadPath, EFileCause::BadPath},
    };
    for (const auto& test : cases) {
        CFile file;
        EXPECT_EQ(file.Open(test.strPath, EMode::Read), test.read) << test.strPath;
        EXPECT_EQ(file.IsOpen(), test.read == EFileCause::None);
        EXPECT_EQ(file.Path(), test.strPath);
        EXPECT_EQ(file.Open(test.strPath, EMode::Replace), test.replace) << test.strPath;
        EXPECT_EQ(file.Open(test.strPath, EMode::Create), test.create) << test.strPath;
    }
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"file", "loop", "missing", "sub"})) << "leftovers";
    EXPECT_EQ(CTemporaryFolder::Read(folder.Path("file")), "x");
}

TEST(File, ProtectedFilesAndFoldersAreRefused)
{
    const CTemporaryFolder folder;
    fs::permissions(folder.Path(""), fs::perms::all);
    folder.Write("readonly", "old");
    ::chmod(folder.Path("readonly").c_str(), 0444);
    folder.Write("secret", "old");
    ::chmod(folder.Path("secret").c_str(), 0000);
    fs::create_directory(folder.Path("locked"));
    folder.Write("locked/file", "old");
    ::chmod(folder.Path("locked").c_str(), 0555);
    const struct
    {
        const char* pName;
        EMode mode;
    } cases[] = {
        {"secret", EMode::Read},       {"readonly", EMode::Create},    {"readonly", EMode::Replace},
        {"locked/new", EMode::Create}, {"locked/new", EMode::Replace}, {"locked/file", EMode::Replace},
    };
    for (const auto& test : cases) {
        const EFileCause cause{AsOrdinaryUser([&] {
            CFile file;
            return file.Open(folder.Path(test.pName), test.mode);
        })};
        EXPECT_EQ(cause, EFileCause::AccessDenied) << test.pName << " mode " << static_cast<int>(test.mode);
    }
    EXPECT_EQ(CTemporaryFolder::Read(folder.Path("readonly")), "old");
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"locked", "locked/file", "readonly", "secret"}));
    ::chmod(folder.Path("locked").c_str(), 0755);
}

TEST(File, ReadsByPositionUpToTheEnd)
{
    const CTemporaryFolder folder;
    CFile file;
    ASSERT_EQ(file.Open(folder.Write("a", "0123456789"), EMode::Read), EFileCause::None);
    EXPECT_EQ(file.Size(), 10U);
    std::string buffer(4, ' ');
    EXPECT_EQ(file.Read(buffer), 4U);
    EXPECT_EQ(buffer, "0123");
    file.Seek(8);
    EXPECT_EQ(file.Position(), 8U);
    EXPECT_EQ(file.Read(buffer), 2U);
    EXPECT_EQ(buffer.substr(0, 2), "89");
    EXPECT_EQ(file.Position(), 10U);
    EXPECT_EQ(file.Read(buffer), 0U);
    file.Seek(99);
    EXPECT_EQ(file.Read(buffer), 0U) << "behind the end";
    EXPECT_EQ(CauseOf([&] { file.Seek(~std::uint64_t{0}); }), EFileCause::BadSeek);
    file.Close();
    EXPECT_EQ(CauseOf([&] { file.Read(buffer); }), EFileCause::InvalidHandle);
    EXPECT_EQ(CauseOf([&] { file.Commit(); }), EFileCause::InvalidHandle);
}

TEST(File, TheOldFileStandsUntilCommit)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Write("track.gpx", "old");
    const std::string strNew(200'000, 'n'); // more than any buffer
    {
        CFile file;
        ASSERT_EQ(file.Open(strPath, EMode::Replace), EFileCause::None);
        file.Write(strNew);
        EXPECT_EQ(file.Position(), strNew.size());
        EXPECT_EQ(CTemporaryFolder::Read(strPath), "old");
    }
    EXPECT_EQ(CTemporaryFolder::Read(strPath), "old");
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{"track.gpx"}) << "the new file is gone";

    CFile file;
    ASSERT_EQ(file.Open(strPath, EMode::Replace), EFileCause::None);
    file.Write("thrown away by opening again");
    ASSERT_EQ(file.Open(strPath, EMode::Replace), EFileCause::None);
    file.Write(strNew);
    file.Commit();
    EXPECT_EQ(CTemporaryFolder::Read(strPath), strNew);
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{"track.gpx"});
    EXPECT_FALSE(file.IsOpen());
}

TEST(File, ReplacingKeepsPermissionsAndLinks)
{
    const CTemporaryFolder folder;
    const auto ModeOf = [](const std::string& strPath) {
        struct stat status = {};
        ::lstat(strPath.c_str(), &status);
        return status.st_mode;
    };
    const mode_t oldMask = ::umask(027);
    EXPECT_EQ(WriteWhole(folder.Path("new"), EMode::Replace, "n"), EFileCause::None);
    ::umask(oldMask);
    EXPECT_EQ(ModeOf(folder.Path("new")) & 0777U, 0640U) << "as any new file";

    for (const mode_t mode : {0600U, 0644U, 0664U, 0755U}) {
        const std::string strPath = folder.Write("kept", "old");
        ::chmod(strPath.c_str(), mode);
        EXPECT_EQ(WriteWhole(strPath, EMode::Replace, "new"), EFileCause::None);
        EXPECT_EQ(ModeOf(strPath) & 0777U, mode);
    }

    fs::create_directory(folder.Path("elsewhere"));
    folder.Write("elsewhere/real", "old");
    fs::create_symlink("elsewhere/real", folder.Path("link"));
    EXPECT_EQ(WriteWhole(folder.Path("link"), EMode::Replace, "new"), EFileCause::None);
    EXPECT_TRUE(S_ISLNK(ModeOf(folder.Path("link"))));
    EXPECT_EQ(CTemporaryFolder::Read(folder.Path("elsewhere/real")), "new");
}

TEST(File, TheLongestNameCanBeReplaced)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Write(std::string(255, 'n'), "old");
    EXPECT_EQ(WriteWhole(strPath, EMode::Replace, "new"), EFileCause::None);
    EXPECT_EQ(CTemporaryFolder::Read(strPath), "new");
}

TEST(File, AFullDiskNeverCostsTheOldFile)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Write("track.gpx", "the old track");
    // Found when the buffer is written out in between, and found only at the end.
    for (const std::size_t nSize : {std::size_t{200'000}, std::size_t{2'000}}) {
        CFile file;
        ASSERT_EQ(file.Open(strPath, EMode::Replace), EFileCause::None);
        {
            const CSmallDisk disk(1'000);
            EXPECT_EQ(CauseOf([&] {
                          file.Write(std::string(nSize, 'n'));
                          file.Commit();
                      }),
                      EFileCause::DiskFull);
        }
        EXPECT_EQ(NamesIn(folder), std::set<std::string>{"track.gpx"}) << "the cut file is gone";
        // There is room again, but bytes are lost: a writer that goes on must not succeed.
        EXPECT_NE(CauseOf([&] {
                      file.Write("the end");
                      file.Commit();
                  }),
                  EFileCause::None);
        EXPECT_EQ(CTemporaryFolder::Read(strPath), "the old track") << nSize;
    }
    EXPECT_EQ(WriteWhole("/dev/full", EMode::Create, "x"), EFileCause::DiskFull);
}

TEST(File, ATargetThatCannotBeReplacedAtTheEndLeavesNothingBehind)
{
    const CTemporaryFolder folder;
    CFile file;
    ASSERT_EQ(file.Open(folder.Path("name"), EMode::Replace), EFileCause::None);
    file.Write("x");
    fs::create_directory(folder.Path("name"));
    EXPECT_EQ(CauseOf([&] { file.Commit(); }), EFileCause::AccessDenied);
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{"name"});
}

TEST(File, NamesFromOtherSystemsFindTheirFile)
{
    const CTemporaryFolder folder;
    fs::create_directory(folder.Path("Data"));
    folder.Write("Data/Track.GPX", "old");
    CFile file;
    EXPECT_EQ(file.Open(folder.Path("data\\track.gpx"), EMode::Read), EFileCause::None);
    file.Close();
    // What is written goes to the folder so found, but never over a file of another name.
    for (const EMode mode : {EMode::Create, EMode::Replace}) {
        const std::string strName = mode == EMode::Create ? "created" : "replaced";
        EXPECT_EQ(WriteWhole(folder.Path("data\\" + strName), mode, "x"), EFileCause::None);
        EXPECT_EQ(WriteWhole(folder.Path("data/TRACK.gpx"), mode, "x"), EFileCause::None);
    }
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"Data", "Data/TRACK.gpx", "Data/Track.GPX",
                                                      "Data/created", "Data/replaced"}));
    EXPECT_EQ(CTemporaryFolder::Read(folder.Path("Data/Track.GPX")), "old");
}

} // namespace
} // namespace kestrabel
