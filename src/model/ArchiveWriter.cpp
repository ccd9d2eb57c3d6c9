#include "model/ArchiveWriter.h"

#include "model/ArchiveFormat.h"
#include "model/DateText.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <limits>

namespace kestrabel {

namespace {

template <class T>
void Append(std::string& strBytes, T nValue)
{
    for (std::size_t i = 0; i < sizeof(T); ++i)
        strBytes += static_cast<char>(nValue >> (8 * i) & 0xFF);
}

} // namespace

void CArchiveWriter::WriteWord(std::uint16_t nValue)
{
    Append(m_strBytes, nValue);
}

void CArchiveWriter::WriteDword(std::uint32_t nValue)
{
    Append(m_strBytes, nValue);
}

void CArchiveWriter::WriteDouble(double dValue)
{
    Append(m_strBytes, std::bit_cast<std::uint64_t>(dValue));
}

void CArchiveWriter::WriteText(std::string_view strText)
{
    assert(strText.size() <= std::numeric_limits<std::uint32_t>::max());
    const auto nLength = static_cast<std::uint32_t>(strText.size());
    if (nLength < ArchiveFormat::LongText) {
        WriteByte(static_cast<std::uint8_t>(nLength));
    } else {
        WriteByte(ArchiveFormat::LongText);
        if (nLength < ArchiveFormat::WideText) {
            WriteWord(static_cast<std::uint16_t>(nLength));
        } else {
            WriteWord(ArchiveFormat::LongerText);
            WriteDword(nLength);
        }
    }
    m_strBytes += strText;
}

void CArchiveWriter::WriteCount(std::uint32_t nCount)
{
    if (nCount < ArchiveFormat::LongCount) {
        WriteWord(static_cast<std::uint16_t>(nCount));
        return;
    }
    WriteWord(ArchiveFormat::LongCount);
    WriteDword(nCount);
}

void CArchiveWriter::WriteDateText(const DATE& date)
{
    WriteText(FormatDateText(date));
}

void CArchiveWriter::WritePosition(const CPosition& position)
{
    WriteDouble(position.m_dLatitude);
    WriteDouble(position.m_dLongitude);
}

void CArchiveWriter::WriteEllipsoid(const CEllipsoid& ellipsoid)
{
    WriteInt(ellipsoid.m_nEllipsoid);
    WriteDouble(ellipsoid.m_dRadius);
    WriteDouble(ellipsoid.m_dInvFlattening);
}

/// Everything before the body.
void CArchiveWriter::BeginObject(const CClassRecord& objectClass)
{
    const auto known = std::find_if(m_classes.begin(), m_classes.end(), [&](const SWrittenClass& written) {
        return written.pClass == &objectClass;
    });
    if (known == m_classes.end()) {
        WriteWord(ArchiveFormat::NewClass);
        WriteWord(static_cast<std::uint16_t>(objectClass.nSchema));
        WriteWord(static_cast<std::uint16_t>(objectClass.strName.size()));
        m_strBytes += objectClass.strName;
        m_classes.push_back({&objectClass, ++m_nLastIndex});
    } else if (known->nIndex < ArchiveFormat::LargeIndex) {
        WriteWord(static_cast<std::uint16_t>(ArchiveFormat::ClassBit | known->nIndex));
    } else {
        WriteWord(ArchiveFormat::LargeIndex);
        WriteDword(ArchiveFormat::LargeClassBit | known->nIndex);
    }
    ++m_nLastIndex; // of the object itself
}

} // namespace kestrabel
