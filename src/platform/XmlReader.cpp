#include "platform/XmlReader.h"

#include "platform/File.h"
#include "platform/Path.h"
#include "platform/Text.h"

#include <exception>
#include <expat.h>
#include <memory>
#include <new>
#include <type_traits>

namespace kestrabel {

namespace {

constexpr int ChunkSize = 256 * 1024;

struct SParserDeleter
{
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using CParserHandle = std::unique_ptr<std::remove_pointer_t<XML_Parser>, SParserDeleter>;

/// What the callbacks of one load share. Expat is C: no exception may pass through it, so one is kept here.
struct SLoad
{
    CXmlHandler& handler;
    XML_Parser parser;
    bool bEntityDeclared = false;
    std::exception_ptr exception = nullptr;

    template <class TCall>
    void Guard(TCall&& call)
    {
        if (exception)
            return;
        try {
            call();
        } catch (...) {
            exception = std::current_exception();
            XML_StopParser(parser, XML_FALSE);
        }
    }
};

SLoad& LoadOf(void* pUser)
{
    return *static_cast<SLoad*>(pUser);
}

void XMLCALL OnStart(void* pUser, const XML_Char* pName, const XML_Char** pAttributes)
{
    SLoad& load = LoadOf(pUser);
    load.Guard([&] { load.handler.StartElement(pName, CXmlHandler::CAttributes(pAttributes)); });
}

void XMLCALL OnEnd(void* pUser, const XML_Char* /*pName*/)
{
    SLoad& load = LoadOf(pUser);
    load.Guard([&] { load.handler.EndElement(); });
}

void XMLCALL OnText(void* pUser, const XML_Char* pText, int nLength)
{
    SLoad& load = LoadOf(pUser);
    load.Guard([&] { load.handler.Text({pText, static_cast<std::size_t>(nLength)}); });
}

void XMLCALL OnEntity(void* pUser, const XML_Char* /*pName*/, int /*bParameter*/, const XML_Char* /*pValue*/,
                      int /*nLength*/, const XML_Char* /*pBase*/, const XML_Char* /*pSystem*/,
                      const XML_Char* /*pPublic*/, const XML_Char* /*pNotation*/)
{
    SLoad& load = LoadOf(pUser);
    load.bEntityDeclared = true;
    XML_StopParser(load.parser, XML_FALSE);
}

int XMLCALL OnUnknownEncoding(void* /*pUser*/, const XML_Char* pName, XML_Encoding* pEncoding)
{
    if (!EqualNoCase(pName, "windows-1252") && !EqualNoCase(pName, "cp1252"))
        return XML_STATUS_ERROR;
    for (int nByte = 0; nByte < 256; ++nByte)
        pEncoding->map[nByte] = static_cast<int>(Windows1252CodePoint(static_cast<unsigned char>(nByte)));
    pEncoding->data = nullptr;
    pEncoding->convert = nullptr;
    pEncoding->release = nullptr;
    return XML_STATUS_OK;
}

std::string DescribeError(const SLoad& load)
{
    const std::string strReason = load.bEntityDeclared ? "entity declarations are refused"
                                                       : XML_ErrorString(XML_GetErrorCode(load.parser));
    return "line " + std::to_string(XML_GetCurrentLineNumber(load.parser)) + ": " + strReason;
}

} // namespace

const char* CXmlHandler::CAttributes::Find(std::string_view strName) const
{
    for (const char* const* p = m_pNamesAndValues; *p != nullptr; p += 2) {
        if (strName == *p)
            return p[1];
    }
    return nullptr;
}

bool CXmlReader::Load(std::string_view strPath, CXmlHandler& handler)
{
    m_strError.clear();
    CFile file;
    const EFileCause cause = file.Open(strPath, CFile::EMode::Read);
    if (cause != EFileCause::None) {
        m_strError = FileCauseText(cause);
        return false;
    }
    const CParserHandle parser(XML_ParserCreate(nullptr));
    if (!parser)
        throw std::bad_alloc();
    SLoad load{.handler = handler, .parser = parser.get()};
    XML_SetUserData(parser.get(), &load);
    XML_SetElementHandler(parser.get(), OnStart, OnEnd);
    XML_SetCharacterDataHandler(parser.get(), OnText);
    XML_SetEntityDeclHandler(parser.get(), OnEntity);
    XML_SetUnknownEncodingHandler(parser.get(), OnUnknownEncoding, nullptr);

    bool bLast = false;
    while (!bLast) {
        char* pBuffer = static_cast<char*>(XML_GetBuffer(parser.get(), ChunkSize));
        if (pBuffer == nullptr)
            throw std::bad_alloc();
        std::size_t nRead = 0;
        try {
            nRead = file.Read({pBuffer, static_cast<std::size_t>(ChunkSize)});
        } catch (const CFileException& exception) {
            m_strError = FileCauseText(exception.Cause());
            return false;
        }
        bLast = nRead < static_cast<std::size_t>(ChunkSize);
        if (XML_ParseBuffer(parser.get(), static_cast<int>(nRead), bLast ? 1 : 0) == XML_STATUS_OK)
            continue;
        if (load.exception)
            std::rethrow_exception(load.exception);
        m_strError = DescribeError(load);
        return false;
    }
    return true;
}

} // namespace kestrabel
