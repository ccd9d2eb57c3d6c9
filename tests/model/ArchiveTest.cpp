#include "model/ArchiveBytes.h"
#include "model/StoredForms.h"

#include <gtest/gtest.h>
#include <set>

namespace kestrabel::test {
namespace {

/// Why reading fails; empty when it does not.
template <class TRead>
std::string FailureOf(std::string_view bytes, TRead&& read)
{
    CArchiveReader reader(bytes);
    try {
        read(reader);
    } catch (const CArchiveException& exception) {
        return exception.what();
    }
    return {};
}

TEST(Archive, NumbersAreLittleEndian)
{
    CArchiveWriter writer;
    writer.WriteByte(0xFE);
    writer.WriteWord(0x1234);
    writer.WriteDword(0x89ABCDEF);
    writer.WriteInt(-2);
    writer.WriteDouble(-0.1);
    writer.WritePosition(MakePosition(-38.5, 146.25));
    CEllipsoid ellipsoid;
    ellipsoid.SetEllipsoid(CEllipsoid::User, 6377000.5, 300.25);
    writer.WriteEllipsoid(ellipsoid);
    const std::string expected = std::string("\xFE\x34\x12\xEF\xCD\xAB\x89\xFE\xFF\xFF\xFF", 11) +
                                 "\x9A\x99\x99\x99\x99\x99\xB9\xBF" +
                                 CArchiveBytes().Position(-38.5, 146.25).Get() +
                                 CArchiveBytes().Dword(6).Double(6377000.5).Double(300.25).Get();
    EXPECT_EQ(writer.Bytes(), expected);

    CArchiveReader reader(writer.Bytes());
    EXPECT_EQ(reader.ReadByte(), 0xFE);
    EXPECT_EQ(reader.ReadWord(), 0x1234);
    EXPECT_EQ(reader.PeekDword(), 0x89ABCDEFU);
    EXPECT_EQ(reader.ReadDword(), 0x89ABCDEFU);
    EXPECT_EQ(reader.ReadInt(), -2);
    EXPECT_EQ(reader.ReadDouble(), -0.1);
    EXPECT_EQ(reader.ReadPosition(), MakePosition(-38.5, 146.25));
    EXPECT_EQ(reader.ReadEllipsoid(), ellipsoid);
    EXPECT_EQ(reader.Offset(), expected.size());
}

TEST(Archive, DatesWithAStatusAndAsText)
{
    for (const auto& [nStored, status] :
         {std::pair{0U, DATE::Valid}, {1U, DATE::Invalid}, {2U, DATE::Null}, {0xFFFFFFFFU, DATE::Invalid}})
    {
        const CArchiveBytes bytes = CArchiveBytes().Dword(nStored).Double(45444.25);
        const DATE date = CArchiveReader(bytes).ReadDate();
        EXPECT_EQ(date.m_nStatus, status) << nStored;
        EXPECT_EQ(date.m_dDays, 45444.25);
    }
    for (const DATE& date : {DATE(45444.0), DATE(45444.25), DATE(0.75), DATE(0.0), DATE::MakeInvalid()}) {
        CArchiveWriter writer;
        writer.WriteDateText(date);
        EXPECT_EQ(CArchiveReader(writer.Bytes()).ReadDateText(), date) << writer.Bytes();
    }
    EXPECT_FALSE(CArchiveReader("\x05soon!").ReadDateText().IsValid());
}

TEST(Archive, TextsAndCountsOfEverySize)
{
    for (const std::uint32_t n : {0, 1, 254, 255, 256, 65533, 65534, 65535, 65536}) {
        SCOPED_TRACE(n);
        const CArchiveBytes prefix = n < 255     ? CArchiveBytes().Byte(n)
                                     : n < 65534 ? CArchiveBytes().Byte(255).Word(n)
                                                 : CArchiveBytes().Byte(255).Word(65535).Dword(n);
        const std::string strText(n, 't');
        CArchiveWriter writer;
        writer.WriteText(strText);
        EXPECT_TRUE(writer.Bytes() == prefix.Get() + strText);
        CArchiveReader reader(writer.Bytes());
        EXPECT_TRUE(reader.ReadText() == strText);
        EXPECT_EQ(reader.Remaining(), 0U);
        const std::string_view cut(writer.Bytes().data(), writer.Bytes().size() - 1);
        EXPECT_NE(FailureOf(cut, [](CArchiveReader& r) { r.ReadText(); }), "") << "one byte less";

        CArchiveWriter counts;
        counts.WriteCount(n);
        EXPECT_EQ(counts.Bytes(),
                  n < 65535 ? CArchiveBytes().Word(n).Get() : CArchiveBytes().Word(0xFFFF).Dword(n).Get());
        const std::string bytes = counts.Bytes() + std::string(3 * std::size_t{n}, '\0');
        EXPECT_EQ(CArchiveReader(bytes).ReadCount(3), n);
        if (n > 0) {
            EXPECT_NE(FailureOf(bytes.substr(0, bytes.size() - 1), [](CArchiveReader& r) { r.ReadCount(3); }),
                      "");
        }
    }
    // The long form of a small number is a number too.
    EXPECT_EQ(CArchiveReader(CArchiveBytes().Word(0xFFFF).Dword(2).Word(0)).ReadCount(1), 2U);
}

TEST(Archive, TextsInAnyEncodingBecomeUtf8)
{
    using namespace std::string_literals;
    const auto wide = [](const std::u16string& strText) {
        CArchiveBytes bytes;
        bytes.Byte(0xFF).Word(0xFFFE).Byte(strText.size());
        for (const char16_t c : strText)
            bytes.Word(c);
        return bytes.Get();
    };
    CArchiveBytes longWide = CArchiveBytes().Byte(0xFF).Word(0xFFFE).Byte(0xFF).Word(300);
    CArchiveBytes longerWide = CArchiveBytes().Byte(0xFF).Word(0xFFFE).Byte(0xFF).Word(0xFFFF).Dword(300);
    for (int i = 0; i < 300; ++i) {
        longWide.Word('x');
        longerWide.Word('x');
    }
    const struct
    {
        std::string bytes, strText;
    } cases[] = {
        {"\x05Zo\xC3\xAB!", "Zoë!"},
        {"\x03Zo\xEB", "Zoë"}, // Windows-1252
        {"\x02\x80\x99", "€™"},
        {"\x03"s + "a\0b"s, "a\0b"s},
        {wide(u""), ""},
        {wide(u"Zoë €"), "Zoë €"},
        {wide(u"\U0001F6A9"), "\U0001F6A9"},
        {wide({u'a', 0xD83D, u'b'}), "a\uFFFDb"},
        {wide({0xDEA9, 0xD83D}), "\uFFFD\uFFFD"},
        {longWide.Get(), std::string(300, 'x')},
        {longerWide.Get(), std::string(300, 'x')},
    };
    for (const auto& test : cases) {
        CArchiveReader reader(test.bytes);
        EXPECT_EQ(reader.ReadText(), test.strText);
        EXPECT_EQ(reader.Remaining(), 0U) << test.strText;
        // What is read is written as UTF-8 and reads back the same.
        CArchiveWriter writer;
        writer.WriteText(test.strText);
        CArchiveReader again(writer.Bytes());
        EXPECT_EQ(again.ReadText(), test.strText);
    }
}

TEST(Archive, WhatIsAnnouncedButNotThere)
{
    const auto readText = [](CArchiveReader& reader) { reader.ReadText(); };
    const auto readTexts = [](CArchiveReader& reader) { reader.ReadTexts(); };
    const auto readObjects = [](CArchiveReader& reader) {
        CObjectArray<CWayPoint> objects;
        reader.ReadObjects(objects);
    };
    const struct
    {
        void (*pRead)(CArchiveReader&);
        CArchiveBytes bytes;
        const char* pFailure;
    } cases[] = {
        {readText, {}, "byte 0: the file ends in the middle of a value"},
        {readText, CArchiveBytes().Byte(5).Raw("abcd"),
         "byte 1: 5 characters of text do not fit in the 4 bytes that are left"},
        {readText, CArchiveBytes().Byte(0xFF).Word(0xFFFF).Dword(0xFFFFFFFF).Raw("abc"),
         "byte 7: 4294967295 characters of text do not fit in the 3 bytes that are left"},
        {readText, CArchiveBytes().Byte(0xFF).Word(0xFFFE).Byte(2).Raw("abc"),
         "byte 4: 2 16-bit characters of text do not fit in the 3 bytes that are left"},
        {readText,
         CArchiveBytes().Byte(0xFF).Word(0xFFFE).Byte(0xFF).Word(0xFFFF).Dword(0x80000001).Raw("abc"),
         "byte 10: 2147483649 16-bit characters of text do not fit in the 3 bytes that are left"},
        {readText, CArchiveBytes().Byte(0xFF).Word(0xFFFE).Byte(0xFF).Word(0xFFFE).Byte(0),
         "byte 3: a text of 16-bit characters is announced twice"},
        {readTexts, CArchiveBytes().Word(0xFFFF).Dword(0xFFFFFFFF).Raw("abc"),
         "byte 0: 4294967295 elements do not fit in the 3 bytes that are left"},
        {readObjects, CArchiveBytes().Word(0xFFFF).Dword(0x80000000).Raw("abc"),
         "byte 0: 2147483648 elements do not fit in the 3 bytes that are left"},
        {readObjects, CArchiveBytes().Word(2).Raw("abc"),
         "byte 0: 2 elements do not fit in the 3 bytes that are left"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FailureOf(test.bytes, test.pRead), test.pFailure);
}

/// A waypoint's body; the name tells them apart.
std::string Body(std::string_view strName)
{
    return CArchiveBytes().Text(strName).Dword(0).Double(0.005).Position(1, 2).Get();
}

/// The names of the waypoints in an array of objects.
std::string ReadNames(std::string_view bytes)
{
    CArchiveReader reader(bytes);
    CObjectArray<CWayPoint> objects;
    reader.ReadObjects(objects);
    EXPECT_EQ(reader.Remaining(), 0U);
    std::string strNames;
    for (const CWayPoint* pObject : objects)
        strNames += pObject->m_strName;
    return strNames;
}

TEST(Archive, ClassesAndObjectsAreNumberedTogether)
{
    // Class 1, objects 2 and 3; each is then meant once more, in both forms of a tag.
    CArchiveBytes bytes;
    bytes.Word(10).NewClass("CWayPoint", 2).Raw(Body("A")).Word(0x8001).Raw(Body("B"));
    bytes.Word(3).Word(2).Word(0).Word(0x7FFF).Dword(3);
    bytes.Word(0x7FFF).Dword(0x80000001).Raw(Body("C"));
    bytes.Word(4).Word(0).Word(0x8001).Raw(Body("D"));
    EXPECT_EQ(ReadNames(bytes), "ABBABCCD");

    // A second descriptor has a schema of its own: class 3, without proximity.
    CArchiveBytes schemas;
    schemas.Word(4).NewClass("CWayPoint", 2).Raw(Body("A"));
    schemas.NewClass("CWayPoint", 1).Text("B").Dword(0).Position(1, 2);
    schemas.Word(0x8003).Text("C").Dword(0).Position(1, 2).Word(0x8001).Raw(Body("D"));
    EXPECT_EQ(ReadNames(schemas), "ABCD");
}

/// A lap-racing division with that waypoint array.
std::string LapDivision(std::string_view strName, std::string_view strWaypoints)
{
    CArchiveBytes bytes;
    bytes.Text(strName).Double(0).Double(0).Double(0).Byte(1).Byte(0).Text("").Text("").Byte(4).Byte(0);
    bytes.Byte(0).Byte(0).Dword(0).Dword(0).Dword(0).Dword(0).Double(0).Double(0).Double(0).Double(0);
    return bytes.Raw(strWaypoints).Get();
}

TEST(Archive, ASecondReferenceIsACopyWithAnOwnerOfItsOwn)
{
    // Division 2 (class 1) has the waypoints 4 (class 3) and 5; then the same division again, one that refers
    // to a waypoint of the first, that one again, and one with a waypoint of its own: number 7.
    const std::string waypoints =
        CArchiveBytes().Word(2).NewClass("CWayPoint", 2).Raw(Body("A")).Word(0x8003).Raw(Body("B")).Get();
    CArchiveBytes bytes;
    bytes.Word(5).NewClass("CDivision", 10).Raw(LapDivision("First", waypoints)).Word(2);
    bytes.Word(0x8001).Raw(LapDivision("Second", CArchiveBytes().Word(2).Word(5).Word(4))).Word(6);
    bytes.Word(0x8001).Raw(LapDivision("Third", CArchiveBytes().Word(2).Word(0x8003).Raw(Body("C")).Word(8)));
    CArchiveReader reader(bytes);
    CObjectArray<CDivision> divisions;
    reader.ReadObjects(divisions);
    EXPECT_EQ(reader.Remaining(), 0U);
    std::string strFound;
    std::set<const CWayPoint*> found;
    for (const CDivision* pDivision : divisions) {
        strFound += pDivision->m_strName + ":";
        for (const CWayPoint* pWayPoint : pDivision->m_waypoints) {
            strFound += pWayPoint->m_strName;
            EXPECT_TRUE(found.insert(pWayPoint).second) << "two owners";
        }
    }
    EXPECT_EQ(strFound, "First:ABFirst:ABSecond:BASecond:BAThird:CC");
}

TEST(Archive, ASmallFileCannotAskForAnyAmountOfCopies)
{
    const std::string name(100, 'n');
    const std::size_t nBody = Body(name).size();
    const auto withCopies = [&](std::size_t nCopies) {
        CArchiveBytes bytes;
        bytes.Word(nCopies + 1).NewClass("CWayPoint", 2).Raw(Body(name));
        for (std::size_t i = 0; i < nCopies; ++i)
            bytes.Word(2);
        return bytes.Get();
    };
    const std::size_t nMost = CArchiveReader::MaxRepeatedBytes / nBody;
    EXPECT_EQ(ReadNames(withCopies(nMost)).size(), (nMost + 1) * name.size());
    EXPECT_NE(
        FailureOf(withCopies(nMost + 1), [](CArchiveReader& reader) { reader.SkipObjects<CWayPoint>(); })
            .find("too many references"),
        std::string::npos);
}

TEST(Archive, TagsThatMeanNothing)
{
    const CArchiveBytes twoPoints =
        CArchiveBytes().NewClass("CWayPoint", 2).Raw(Body("A")).Word(0x8001).Raw(Body("B"));
    const std::string strWhere = "byte " + std::to_string(2 + twoPoints.Get().size()) + ": ";
    const auto FailureWith = [&](const CArchiveBytes& third) {
        const std::string bytes = CArchiveBytes().Word(3).Raw(twoPoints).Raw(third).Raw(Body("C")).Get();
        return FailureOf(bytes, [](CArchiveReader& reader) { reader.SkipObjects<CWayPoint>(); });
    };
    // 1 is the class, 4 would be itself.
    for (const std::uint32_t nObject : {1, 4, 0x7FFE, 0, 0x7FFFFFFF}) {
        CArchiveBytes tag;
        nObject - 1 < 0x7FFE ? tag.Word(nObject) : tag.Word(0x7FFF).Dword(nObject);
        EXPECT_EQ(FailureWith(tag),
                  strWhere + "unknown tag: no object has the number " + std::to_string(nObject));
    }
    for (const std::uint32_t nClass : {0, 2, 0x7FFE}) { // 2 is an object
        const std::string strFailure =
            strWhere + "unknown tag: no class has the number " + std::to_string(nClass);
        EXPECT_EQ(FailureWith(CArchiveBytes().Word(0x8000 | nClass)), strFailure);
        EXPECT_EQ(FailureWith(CArchiveBytes().Word(0x7FFF).Dword(0x80000000 | nClass)), strFailure);
    }
    EXPECT_EQ(FailureWith(CArchiveBytes().NewClass("CSeries", 11)),
              strWhere + "a CSeries stands where a CWayPoint belongs");
}

TEST(Archive, ClassNames)
{
    for (const std::string& strName : {std::string(), std::string("cwaypoint"), std::string("CWayPointX"),
                                       std::string(63, 'C'), std::string(64, 'C')})
    {
        const std::string bytes = CArchiveBytes().Word(1).NewClass(strName, 2).Raw(Body("A")).Get();
        EXPECT_EQ(FailureOf(bytes, [](CArchiveReader& reader) { reader.SkipObjects<CWayPoint>(); }),
                  strName.size() < 64 ? "byte 6: there is no class \"" + strName + "\""
                                      : "byte 6: a class name of 64 characters is too long");
    }
}

/// Waypoints as the last class behind so many divisions: class 1, objects 2 to n + 1, so class n + 2.
std::string WriteBehind(std::uint32_t nDivisions, CEvent& event)
{
    while (static_cast<std::uint32_t>(event.m_divisions.GetCount()) < nDivisions)
        event.m_divisions.Add(std::make_unique<CDivision>());
    CArchiveWriter writer;
    writer.WriteObjects(event.m_divisions);
    writer.WriteObjects(event.m_waypoints);
    return writer.Bytes();
}

TEST(Archive, LargeNumbersHaveALongTag)
{
    CEvent event(DATE(1.0));
    event.m_waypoints.Add(std::make_unique<CWayPoint>()).m_strName = "one";
    event.m_waypoints.Add(std::make_unique<CWayPoint>()).m_strName = "two";
    for (const std::uint32_t nClass : {0x7FFEU, 0x7FFFU, 0x8000U}) {
        const std::string bytes = WriteBehind(nClass - 2, event);
        CArchiveBytes second;
        if (nClass < 0x7FFF)
            second.Word(0x8000 | nClass);
        else
            second.Word(0x7FFF).Dword(0x80000000 | nClass);
        second.Text("two").Dword(0).Double(0.005).Position(0, 0);
        EXPECT_TRUE(bytes.ends_with(second)) << nClass;

        CArchiveReader reader(bytes);
        reader.SkipObjects<CDivision>();
        CObjectArray<CWayPoint> found;
        reader.ReadObjects(found);
        ASSERT_EQ(found.GetCount(), 2);
        EXPECT_EQ(found[1].m_strName, "two");
        EXPECT_EQ(reader.Remaining(), 0U);
    }
    // The second waypoint once more.
    const std::string again =
        WriteBehind(0x8000, event) + CArchiveBytes().Word(1).Word(0x7FFF).Dword(0x8000 + 4).Get();
    CArchiveReader reader(again);
    reader.SkipObjects<CDivision>();
    reader.SkipObjects<CWayPoint>();
    CObjectArray<CWayPoint> found;
    reader.ReadObjects(found);
    ASSERT_EQ(found.GetCount(), 1);
    EXPECT_EQ(found[0].m_strName, "two");
}

} // namespace
} // namespace kestrabel::test
