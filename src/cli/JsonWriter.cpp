#include "cli/JsonWriter.h"

#include "platform/Text.h"

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <string>

namespace kestrabel {

namespace {

std::string Escape(std::string_view bytes)
{
    constexpr std::string_view hexDigits = "0123456789abcdef";
    std::string strEscaped;
    for (const char c : ToUtf8(bytes)) {
        const auto nByte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            strEscaped += '\\';
            strEscaped += c;
        } else if (nByte < 0x20) {
            strEscaped += "\\u00";
            strEscaped += hexDigits[nByte >> 4U];
            strEscaped += hexDigits[nByte & 0xFU];
        } else {
            strEscaped += c;
        }
    }
    return strEscaped;
}

template <class TNumber>
void WriteNumber(COutput& output, TNumber number)
{
    std::array<char, 32> buffer; // the longest double has 24 characters
    const auto [pEnd, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    output.Write({buffer.data(), pEnd});
}

} // namespace

void CJsonWriter::Separate()
{
    if (m_levels.empty())
        return;
    SLevel& level = m_levels.back();
    if (!level.bEmpty)
        m_output.Write(",");
    if (level.bArray)
        m_output.Write("\n");
    level.bEmpty = false;
}

void CJsonWriter::Key(std::string_view strKey)
{
    assert(!m_levels.empty() && !m_levels.back().bArray);
    Separate();
    m_output.Write("\"");
    m_output.Write(strKey);
    m_output.Write("\":");
}

void CJsonWriter::Open(bool bArray)
{
    m_output.Write(bArray ? "[" : "{");
    m_levels.push_back({bArray});
}

void CJsonWriter::BeginObject()
{
    assert(m_levels.empty() || m_levels.back().bArray);
    Separate();
    Open(false);
}

void CJsonWriter::BeginObject(std::string_view strKey)
{
    Key(strKey);
    Open(false);
}

void CJsonWriter::EndObject()
{
    m_levels.pop_back();
    m_output.Write(m_levels.empty() ? "}\n" : "}");
}

void CJsonWriter::BeginArray(std::string_view strKey)
{
    Key(strKey);
    Open(true);
}

void CJsonWriter::EndArray()
{
    m_output.Write(m_levels.back().bEmpty ? "]" : "\n]");
    m_levels.pop_back();
}

void CJsonWriter::Number(std::string_view strKey, double dValue)
{
    if (!std::isfinite(dValue)) {
        Null(strKey);
        return;
    }
    Key(strKey);
    WriteNumber(m_output, dValue);
}

void CJsonWriter::Integer(std::string_view strKey, std::int64_t nValue)
{
    Key(strKey);
    WriteNumber(m_output, nValue);
}

void CJsonWriter::Boolean(std::string_view strKey, bool bValue)
{
    Key(strKey);
    m_output.Write(bValue ? "true" : "false");
}

void CJsonWriter::Null(std::string_view strKey)
{
    Key(strKey);
    m_output.Write("null");
}

void CJsonWriter::Text(std::string_view strKey, std::string_view strValue)
{
    Key(strKey);
    m_output.Write("\"");
    m_output.Write(Escape(strValue));
    m_output.Write("\"");
}

} // namespace kestrabel
