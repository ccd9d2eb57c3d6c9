#include "platform/XmlReader.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <tuple>

namespace kestrabel {
namespace {

using namespace std::string_literals;

/// Writes what it sees as "<name lat>text</>", and throws where it is told to.
class CRecordingHandler final : public CXmlHandler
{
public:
    void StartElement(std::string_view strName, const CAttributes& attributes) override
    {
        const char* pLatitude = attributes.Find("lat");
        See("<" + std::string(strName) + (pLatitude == nullptr ? "" : " "s + pLatitude) + ">");
    }
    void EndElement() override { See("</>"); }
    void Text(std::string_view strText) override { See(strText); }

    std::string m_strSeen;
    std::string m_strFailAt;

private:
    void See(std::string_view strText)
    {
        m_strSeen += strText;
        if (strText == m_strFailAt)
            throw std::runtime_error("handler failed");
    }
};

TEST(XmlReader, WellFormedDocuments)
{
    const std::string strLong(400'000, 'x'); // more than one piece
    const std::tuple<std::string, std::string> cases[] = {
        {"<a Lat='1' x:lat='2'><b lon='3' lat='4'/></a>", "<a><b 4></></>"}, // attributes by exact name
        {"<a>1 &lt; &#50;&#x20AC;<![CDATA[<3>]]></a>", "<a>1 < 2\xE2\x82\xAC<3></>"},
        {"\xEF\xBB\xBF<a>\xC3\xBC</a>", "<a>\xC3\xBC</>"},
        {"\xFF\xFE<\0a\0>\0b\0<\0/\0a\0>\0"s, "<a>b</>"}, // UTF-16
        {"<?xml version='1.0' encoding='Windows-1252'?><a>\x80\xFC</a>", "<a>\xE2\x82\xAC\xC3\xBC</>"},
        {"<!DOCTYPE a PUBLIC 'p' 'http://x.invalid/a.dtd'><a/>", "<a></>"},
        {"<a>" + strLong + "</a>", "<a>" + strLong + "</>"},
    };
    const test::CTemporaryFolder folder;
    for (const auto& [strBytes, strSeen] : cases) {
        CRecordingHandler handler;
        CXmlReader reader;
        EXPECT_TRUE(reader.Load(folder.Write("x.xml", strBytes), handler)) << strBytes << reader.Error();
        EXPECT_EQ(handler.m_strSeen, strSeen);
    }
}

TEST(XmlReader, BrokenDocumentsSayWhere)
{
    const std::tuple<const char*, const char*> cases[] = {
        {"<a>\n<b>\n</a>", "line 3: mismatched tag"},
        {"<?xml version='1.0' encoding='ebcdic-x'?><a/>", "line 1: unknown encoding"},
        // An attack has to end before it grows or reads anything.
        {"<!DOCTYPE a [\n<!ENTITY b 'c'>]><a>&b;</a>", "line 2: entity declarations are refused"},
        {"<!DOCTYPE a [<!ENTITY b SYSTEM 'x.xml'>]><a>&b;</a>", "line 1: entity declarations are refused"},
        {"<!DOCTYPE a [<!ENTITY % b SYSTEM 'x'> %b;]><a/>", "line 1: entity declarations are refused"},
    };
    const test::CTemporaryFolder folder;
    CRecordingHandler handler;
    CXmlReader reader;
    for (const auto& [pBytes, pError] : cases) {
        EXPECT_FALSE(reader.Load(folder.Write("x.xml", pBytes), handler)) << pBytes;
        EXPECT_EQ(reader.Error(), pError) << pBytes;
    }
    EXPECT_FALSE(reader.Load(folder.Path("missing.xml"), handler));
    EXPECT_EQ(reader.Error(), "The file could not be located");
}

TEST(XmlReader, AHandlersExceptionPassesThroughAndEndsReading)
{
    const test::CTemporaryFolder folder;
    const std::string strPath = folder.Write("x.xml", "<a><b/><c>text</c></a>");
    for (const char* pFailAt : {"<b>", "text", "</>"}) {
        CRecordingHandler handler;
        handler.m_strFailAt = pFailAt;
        CXmlReader reader;
        EXPECT_THROW(reader.Load(strPath, handler), std::runtime_error) << pFailAt;
        EXPECT_TRUE(handler.m_strSeen.ends_with(pFailAt)) << pFailAt;
    }
}

} // namespace
} // namespace kestrabel
