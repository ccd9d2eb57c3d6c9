#include "platform/XmlReader.h"

#include "platform/FileCause.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace kestrabel {
namespace {

using namespace std::string_literals;
using test::CTemporaryFolder;

/// Writes what it sees as "<name lat>text</>", and throws where it is told to.
class CRecordingHandler final : public CXmlHandler
{
public:
    void StartElement(std::string_view strName, const CAttributes& attributes) override
    {
        m_strSeen.append("<").append(strName);
        if (const char* pLatitude = attributes.Find("lat"))
            m_strSeen.append(" ").append(pLatitude);
        m_strSeen += ">";
        Fail('<');
    }
    void EndElement() override
    {
        m_strSeen += "</>";
        Fail('/');
    }
    void Text(std::string_view strText) override
    {
        m_strSeen += strText;
        Fail('t');
    }

    std::string m_strSeen;
    char m_cFailAt = 0;
    int m_nCallsAfterFailure = 0;

private:
    void Fail(char cAt)
    {
        m_nCallsAfterFailure += m_bFailed ? 1 : 0;
        if (cAt != m_cFailAt)
            return;
        m_bFailed = true;
        throw std::runtime_error("handler failed");
    }
    bool m_bFailed = false;
};

std::string Utf16(std::string_view strAscii, bool bBigEndian)
{
    std::string bytes = bBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : strAscii)
        bytes += bBigEndian ? "\0"s + c : c + "\0"s;
    return bytes;
}

TEST(XmlReader, WellFormedDocuments)
{
    const struct
    {
        const char* pWhat;
        std::string bytes;
        const char* pSeen;
    } cases[] = {
        {"shortest", "<a/>", "<a></>"},
        {"attributes by exact name", "<a Lat='1' x:lat='2'><b lon='3' lat='4'/></a>", "<a><b 4></></>"},
        {"text, references and CDATA", "<a>1 &lt; &#50;&#x20AC;<![CDATA[<3>]]></a>",
         "<a>1 < 2\xE2\x82\xAC<3></>"},
        {"comments and instructions", "<?xml version='1.0'?><!--x--><a><?p i?>b<!-- c --></a>\n", "<a>b</>"},
        {"prefixes as written", "<g:a xmlns:g='urn:g'><g:b/></g:a>", "<g:a><g:b></></>"},
        {"UTF-8 with a byte-order mark", "\xEF\xBB\xBF<a>\xC3\xBC</a>", "<a>\xC3\xBC</>"},
        {"UTF-16 little-endian", Utf16("<a lat='1'>b</a>", false), "<a 1>b</>"},
        {"UTF-16 big-endian", Utf16("<?xml version='1.0' encoding='UTF-16'?><a>b</a>", true), "<a>b</>"},
        {"ISO-8859-1", "<?xml version='1.0' encoding='iso-8859-1'?><a>\xFC</a>", "<a>\xC3\xBC</>"},
        {"Windows-1252", "<?xml version='1.0' encoding='Windows-1252'?><a>\x80\xFC</a>",
         "<a>\xE2\x82\xAC\xC3\xBC</>"},
        {"a DOCTYPE", "<!DOCTYPE a><a/>", "<a></>"},
        {"a DOCTYPE elsewhere", "<!DOCTYPE a PUBLIC 'p' 'http://x.invalid/a.dtd'><a/>", "<a></>"},
        {"declared elements", "<!DOCTYPE a [<!ELEMENT a ANY><!ATTLIST a lat CDATA '7'>]><a/>", "<a 7></>"},
    };
    const CTemporaryFolder folder;
    for (const auto& test : cases) {
        CRecordingHandler handler;
        CXmlReader reader;
        EXPECT_TRUE(reader.Load(folder.Write("x.xml", test.bytes), handler)) << test.pWhat << reader.Error();
        EXPECT_EQ(handler.m_strSeen, test.pSeen) << test.pWhat;
        EXPECT_EQ(reader.Error(), "");
    }
}

TEST(XmlReader, BrokenDocumentsSayWhere)
{
    const struct
    {
        const char* pBytes;
        const char* pError;
    } cases[] = {
        {"", "line 1: no element found"},
        {"<a>\n<b>\n</a>", "line 3: mismatched tag"},
        {"<a/>\n<b/>", "line 2: junk after document element"},
        {"text", "line 1: syntax error"},
        {"<a b='1' b='2'/>", "line 1: duplicate attribute"},
        {"<a>&nbsp;</a>", "line 1: undefined entity"},
        {"<a>\xFC</a>", "line 1: not well-formed (invalid token)"},
        {"<?xml version='1.0' encoding='ebcdic-x'?><a/>", "line 1: unknown encoding"},
        // An attack has to end before it grows or reads anything.
        {"<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>", "line 1: entity declarations are refused"},
        {"<!DOCTYPE a [\n<!ENTITY a0 'xx'>\n<!ENTITY a1 '&a0;&a0;'>]><a>&a1;</a>",
         "line 2: entity declarations are refused"},
        {"<!DOCTYPE a [<!ENTITY b SYSTEM 'secret'>]><a>&b;</a>", "line 1: entity declarations are refused"},
        {"<!DOCTYPE a [<!ENTITY % b SYSTEM 'secret'> %b;]><a/>", "line 1: entity declarations are refused"},
    };
    const CTemporaryFolder folder;
    for (const auto& test : cases) {
        CRecordingHandler handler;
        CXmlReader reader;
        EXPECT_FALSE(reader.Load(folder.Write("x.xml", test.pBytes), handler)) << test.pBytes;
        EXPECT_EQ(reader.Error(), test.pError) << test.pBytes;
        EXPECT_EQ(handler.m_strSeen.find("xx"), std::string::npos);
    }
    CRecordingHandler handler;
    CXmlReader reader;
    EXPECT_FALSE(reader.Load(folder.Path("missing.xml"), handler));
    EXPECT_EQ(reader.Error(), "The file could not be located");
    EXPECT_FALSE(reader.Load(folder.Path(""), handler));
    EXPECT_EQ(reader.Error(), "The file could not be accessed");
    EXPECT_TRUE(reader.Load(folder.Write("good.xml", "<a/>"), handler));
    EXPECT_EQ(reader.Error(), "") << "the next load starts anew";
}

TEST(XmlReader, NothingThatADoctypeNamesIsFetched)
{
    const CTemporaryFolder folder;
    const std::string strDtd = folder.Write("secret.dtd", "<!ENTITY secret 'SECRET'>");
    CRecordingHandler handler;
    CXmlReader reader;
    reader.Load(folder.Write("x.xml", "<!DOCTYPE a SYSTEM '" + strDtd + "'><a>&secret;</a>"), handler);
    EXPECT_EQ(handler.m_strSeen.find("SECRET"), std::string::npos);
}

TEST(XmlReader, EveryPrefixIsRefused)
{
    const std::string strWhole = "<?xml version=\"1.0\"?><!DOCTYPE gpx SYSTEM 'x'><gpx a='1'><!-- c -->"
                                 "<trkpt lat='1.5'><ele>7&amp;</ele></trkpt><![CDATA[x]]></gpx>";
    const CTemporaryFolder folder;
    for (std::size_t nLength = 0; nLength <= strWhole.size(); ++nLength) {
        CRecordingHandler handler;
        CXmlReader reader;
        const bool bLoaded = reader.Load(folder.Write("x.xml", strWhole.substr(0, nLength)), handler);
        EXPECT_EQ(bLoaded, nLength == strWhole.size()) << nLength;
        EXPECT_EQ(reader.Error().empty(), bLoaded) << nLength;
    }
}

TEST(XmlReader, AHandlersExceptionPassesThrough)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Write("x.xml", "<a>\n<b/>\n<c>text</c></a>");
    for (const char cFailAt : {'<', 't', '/'}) {
        CRecordingHandler handler;
        handler.m_cFailAt = cFailAt;
        CXmlReader reader;
        EXPECT_THROW(reader.Load(strPath, handler), std::runtime_error) << cFailAt;
        EXPECT_EQ(handler.m_nCallsAfterFailure, 0) << cFailAt;
    }
    // In the very last tag, and in a tag that both begins and ends.
    for (const char* pBytes : {"<a></a>", "<a/>"}) {
        CRecordingHandler handler;
        handler.m_cFailAt = pBytes[2] == '/' ? '<' : '/';
        CXmlReader reader;
        EXPECT_THROW(reader.Load(folder.Write("y.xml", pBytes), handler), std::runtime_error) << pBytes;
        EXPECT_EQ(handler.m_nCallsAfterFailure, 0) << pBytes;
    }
}

TEST(XmlReader, DocumentsOfAnySizeAreReadWhole)
{
    const CTemporaryFolder folder;
    for (const int nChange : {-1, 0, 1, 300'000}) {
        const std::size_t nSize = static_cast<std::size_t>(256 * 1024 + nChange); // around one piece
        const std::string strText(nSize - std::string("<a></a>").size(), 'x');
        CRecordingHandler handler;
        CXmlReader reader;
        EXPECT_TRUE(reader.Load(folder.Write("x.xml", "<a>" + strText + "</a>"), handler)) << nChange;
        EXPECT_EQ(handler.m_strSeen, "<a>" + strText + "</>");
    }
    const int nDepth = 20'000;
    std::string strDeep;
    for (int i = 0; i < nDepth; ++i)
        strDeep += "<a>";
    for (int i = 0; i < nDepth; ++i)
        strDeep += "</a>";
    CRecordingHandler handler;
    CXmlReader reader;
    EXPECT_TRUE(reader.Load(folder.Write("x.xml", strDeep), handler)) << "deep nesting costs no stack";
}

} // namespace
} // namespace kestrabel
