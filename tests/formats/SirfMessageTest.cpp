#include "formats/SirfMessage.h"

#include "formats/SirfBytes.h"
#include "model/TimeText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <tuple>
#include <vector>

namespace kestrabel::test {
namespace {

constexpr std::size_t MaxLength = 1024;

struct SStream
{
    std::vector<std::string> payloads;
    ESirfFrame end;
    std::uint64_t nPosition;
};

SStream ReadAll(const std::string& strPath, std::size_t nMaxLength = MaxLength)
{
    CBinaryInput input;
    EXPECT_EQ(input.Open(strPath), EFileCause::None);
    SStream stream = {};
    std::string_view payload;
    while ((stream.end = ReadSirfMessage(input, nMaxLength, payload)) == ESirfFrame::Message)
        stream.payloads.emplace_back(payload);
    stream.nPosition = input.Position();
    return stream;
}

SStream ReadBytes(std::string_view bytes, std::size_t nMaxLength = MaxLength)
{
    const CTemporaryFolder folder;
    return ReadAll(folder.Write("a.sbn", bytes), nMaxLength);
}

TEST(SirfMessage, FindsFramesBetweenOtherBytes)
{
    using CPayloads = std::vector<std::string>;
    const std::string strAb = Frame("ab");
    const std::string strCde = Frame("cde");
    const CPayloads both = {"ab", "cde"};
    const struct
    {
        const char* pWhat;
        std::string bytes;
        CPayloads payloads;
    } cases[] = {
        {"between", strAb + "xyz" + strCde, both},
        {"behind", strAb + strCde + "xyz", both},
        {"zeros", std::string(10000, '\0') + strAb, {"ab"}},
        {"start bytes the wrong way round", "\xA2\xA2" + strAb, {"ab"}},
        // The byte behind an A0 is dropped with it, even when it is the A0 of a start.
        {"A0 A0 A2 is no start", "\xA0" + strAb, {}},
        {"A0 A0 A0 A2 is one", "\xA0\xA0" + strAb, {"ab"}},
        // A frame without its end: the search goes on within its payload.
        {"a wrong end", Frame("ab", 2, "\xB0\xB4") + strCde, {"cde"}},
        {"a length into the next frame", Frame("ab", 3) + strCde, {"cde"}},
        {"a frame within a broken one", Frame("x" + strAb + "y", 11, "zz") + strCde, both},
        {"a frame within a whole one counts as payload", Frame(strAb), {strAb}},
        {"a false start that reaches beyond the file ends it", "\xA0\xA2\x01\x02" + strAb, {}},
    };
    for (const auto& test : cases)
        EXPECT_EQ(ReadBytes(test.bytes).payloads, test.payloads) << test.pWhat;
}

TEST(SirfMessage, StartThatABlockSplits)
{
    // Starts at every distance around the sizes in which the file is scanned and fetched.
    for (const std::size_t nBlock : {std::size_t(4096), CBinaryInput::MaxPeek, 4 * CBinaryInput::MaxPeek}) {
        for (std::size_t nBefore = nBlock - 12; nBefore < nBlock + 3; ++nBefore) {
            const SStream stream = ReadBytes(std::string(nBefore, 'x') + Frame("ab") + Frame("cd"));
            ASSERT_EQ(stream.payloads, (std::vector<std::string>{"ab", "cd"})) << nBefore;
            ASSERT_EQ(stream.nPosition, nBefore + 20);
        }
    }
}

TEST(SirfMessage, Lengths)
{
    const auto Bytes = [](std::size_t nLength, bool bLittleEndian) {
        std::string frame = Frame(std::string(nLength, 'p'), nLength);
        if (bLittleEndian)
            std::swap(frame[2], frame[3]);
        return frame + Frame("behind");
    };
    constexpr auto Bad = ESirfFrame::BadLength, Cut = ESirfFrame::CutOff;
    const struct
    {
        std::size_t nLength, nMaxLength;
        bool bLittleEndian;
        ESirfFrame end;
        std::size_t nMessages;
    } cases[] = {{0, 1024, false, Bad, 0},
                 {1, 1024, false, Bad, 0},
                 {2, 1024, false, Cut, 2},
                 {257, 1024, false, Cut, 2},
                 {511, 512, false, Cut, 2},
                 {513, 512, false, Bad, 0},
                 {1023, 1024, false, Cut, 2},
                 {1025, 1024, false, Bad, 0},
                 // A length whose second byte is 0 is little-endian: 54 as a logger writes it, and 1 for 256.
                 {54, 1024, true, Cut, 2},
                 {255, 1024, true, Cut, 2},
                 {256, 1024, false, Bad, 0},
                 {512, 1024, false, Cut, 1}}; // 2, so that the end does not stand there
    for (const auto& test : cases) {
        const SStream stream = ReadBytes(Bytes(test.nLength, test.bLittleEndian), test.nMaxLength);
        EXPECT_EQ(stream.payloads.size(), test.nMessages) << test.nLength;
        EXPECT_EQ(stream.end, test.end) << test.nLength;
        if (test.nMessages > 0) {
            EXPECT_EQ(stream.payloads.back(), "behind") << test.nLength;
        } else {
            EXPECT_EQ(stream.nPosition, 0U) << "where the frame begins";
        }
    }
    // A bad length ends the stream although good frames follow.
    EXPECT_EQ(ReadBytes(Frame("ab") + Bytes(65535, false)).payloads, std::vector<std::string>{"ab"});
    // Two bytes of payload are looked at before the length is.
    EXPECT_EQ(ReadBytes("\xA0\xA2\xFF\xFFx").end, ESirfFrame::CutOff);
    EXPECT_EQ(ReadBytes("\xA0\xA2\xFF\xFFxy").end, ESirfFrame::BadLength);
}

TEST(SirfMessage, EveryTruncationGivesTheFramesBeforeIt)
{
    const CTemporaryFolder folder;
    const std::string bytes = Frame("first") + "garbage" + Frame(std::string(300, 'x')) + Frame("last");
    for (std::size_t nSize = 0; nSize <= bytes.size(); ++nSize) {
        const SStream stream = ReadAll(folder.Write("a.sbn", bytes.substr(0, nSize)));
        std::size_t nExpected = 0;
        for (const std::size_t nEnd : {std::size_t(13), std::size_t(13 + 7 + 308), bytes.size()})
            nExpected += nSize >= nEnd ? 1 : 0;
        ASSERT_EQ(stream.payloads.size(), nExpected) << nSize;
        ASSERT_EQ(stream.end, ESirfFrame::CutOff) << nSize;
    }
}

TEST(SirfMessage, ParseLooksOnlyAtItsBytes)
{
    std::string_view payload = "untouched";
    const std::string frame = Frame("abc");
    for (std::size_t nSize = 0; nSize < frame.size(); ++nSize) {
        // A copy of its own size, so that reading on is seen.
        const std::vector<char> bytes(frame.begin(), frame.begin() + static_cast<std::ptrdiff_t>(nSize));
        EXPECT_EQ(ParseSirfFrame({bytes.data(), bytes.size()}, MaxLength, payload),
                  nSize < 7 ? ESirfFrame::CutOff : ESirfFrame::NoEnd)
            << nSize;
    }
    EXPECT_EQ(payload, "untouched");
    EXPECT_EQ(ParseSirfFrame(frame, MaxLength, payload), ESirfFrame::Message);
    EXPECT_EQ(payload, "abc");
    EXPECT_EQ(ParseSirfFrame("x" + frame, MaxLength, payload), ESirfFrame::NoStart);
    EXPECT_EQ(ParseSirfFrame(frame, 2, payload), ESirfFrame::BadLength);
}

std::string FullNavigation()
{
    std::string payload = Navigation(12600, 95);
    PutAt<std::int32_t>(payload, 31, 99999);
    PutAt<std::int32_t>(payload, 35, -1299);
    PutAt<std::uint16_t>(payload, 40, 1000);
    PutAt<std::uint16_t>(payload, 42, 9000);
    PutAt<std::int16_t>(payload, 46, -50);
    PutAt<std::uint32_t>(payload, 50, 250);
    PutAt<std::uint16_t>(payload, 62, 35);
    payload[88] = 9;
    payload[89] = 6;
    PutAt<std::uint16_t>(payload, 91, 2000);
    PutAt<std::uint16_t>(payload, 93, 18000);
    return payload;
}

TEST(SirfMessage, NavigationFillsThePoint)
{
    CTrackPoint point;
    point.m_dSpeed = 7.0; // what the derivation fills is cleared
    ASSERT_TRUE(ParseGeodeticNavigation(FullNavigation(), point));
    EXPECT_EQ(FormatIsoMillisecond(point.m_time), "2024-06-01T10:00:12.600");
    EXPECT_DOUBLE_EQ(point.m_position.m_dLatitude, 48.5);
    EXPECT_DOUBLE_EQ(point.m_position.m_dLongitude, 11.5);
    EXPECT_EQ(point.m_nAltitude, -12) << "of the sea level, cut towards zero";
    EXPECT_DOUBLE_EQ(point.m_dDoppler, 36.0);
    EXPECT_DOUBLE_EQ(point.m_dDirection, 1.5707963267948966);
    EXPECT_DOUBLE_EQ(point.m_dVertSpeed, -1.8);
    EXPECT_DOUBLE_EQ(point.m_dPosError, 0.0025);
    EXPECT_DOUBLE_EQ(point.m_dDopplerError, 0.35);
    EXPECT_EQ(point.m_nSats, 9);
    EXPECT_DOUBLE_EQ(point.m_dHDOP, 1.2);
    EXPECT_DOUBLE_EQ(point.m_dUSOG, 72.0);
    EXPECT_DOUBLE_EQ(point.m_dUCOG, 3.141592653589793);
    EXPECT_EQ(point.m_dSpeed, 0.0);
}

TEST(SirfMessage, NavigationLengths)
{
    for (const std::size_t nLength : {2, 41, 90, 91, 92, 94, 95, 96, 512}) {
        std::string payload = FullNavigation();
        payload.resize(nLength);
        const std::vector<char> bytes(payload.begin(), payload.end());
        CTrackPoint point;
        point.m_dUSOG = -1.0;
        EXPECT_EQ(ParseGeodeticNavigation({bytes.data(), bytes.size()}, point), nLength >= 91) << nLength;
        EXPECT_EQ(point.m_nSats, nLength >= 91 ? 9 : 0) << nLength;
        EXPECT_EQ(point.m_dUSOG, nLength == 95 ? 72.0 : -1.0) << nLength;
    }
}

TEST(SirfMessage, NavigationTimes)
{
    const std::tuple<std::uint16_t, std::string_view, std::uint16_t, const char*> cases[] = {
        {2024, "\x02\x1D\x17\x3B", 59999, "2024-02-29T23:59:59.999"}, // month, day, hour, minute
        {1999, std::string_view("\x0C\x1F\x00\x00", 4), 500, "1999-12-31T00:00:00.500"},
        {2038, "\x01\x13\x03\x0E", 8000, "2038-01-19T03:14:08.000"},
        {2100, "\x02\x1D\x01\x01", 0, ""},
        {0, std::string_view("\0\0\0\0", 4), 0, ""},
        {2024, "\x01\x01\x18\x01", 0, ""},
        {2024, "\x01\x01\x01\x3C", 0, ""},
        {2024, "\x01\x01\x01\x01", 60000, ""}};
    for (const auto& [nYear, strFields, nMilliseconds, pTime] : cases) {
        std::string payload = Navigation(nMilliseconds);
        PutAt(payload, 11, nYear);
        payload.replace(13, 4, strFields);
        CTrackPoint point;
        ASSERT_TRUE(ParseGeodeticNavigation(payload, point));
        EXPECT_EQ(FormatIsoMillisecond(point.m_time), pTime) << nYear;
    }
}

} // namespace
} // namespace kestrabel::test
