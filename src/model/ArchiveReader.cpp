#include "model/ArchiveReader.h"

#include "model/ArchiveFormat.h"
#include "model/ClassRegistry.h"
#include "model/DateText.h"
#include "platform/Text.h"

#include <algorithm>
#include <bit>

namespace kestrabel {

namespace {

std::string Number(std::size_t nValue)
{
    return std::to_string(nValue);
}

} // namespace

void CArchiveReader::Fail(std::size_t nOffset, std::string_view strReason)
{
    throw CArchiveException(nOffset, strReason);
}

std::string_view CArchiveReader::Take(std::size_t nBytes)
{
    if (nBytes > Remaining())
        Fail(m_nOffset, "the file ends in the middle of a value");
    const std::string_view taken = m_bytes.substr(m_nOffset, nBytes);
    m_nOffset += nBytes;
    return taken;
}

/// The bytes of `nCount` elements; what was announced may be more than any memory holds.
std::string_view CArchiveReader::TakeElements(std::uint32_t nCount, std::size_t nSize,
                                              std::string_view strWhat)
{
    if (nCount > Remaining() / nSize)
        Fail(m_nOffset, Number(nCount) + " " + std::string(strWhat) + " do not fit in the " +
                            Number(Remaining()) + " bytes that are left");
    return Take(nCount * nSize);
}

template <class T>
T CArchiveReader::TakeNumber()
{
    const std::string_view bytes = Take(sizeof(T));
    T nValue = 0;
    for (std::size_t i = sizeof(T); i-- > 0;)
        nValue = static_cast<T>(nValue << 8 | static_cast<unsigned char>(bytes[i]));
    return nValue;
}

std::uint8_t CArchiveReader::ReadByte()
{
    return static_cast<std::uint8_t>(Take(1).front());
}

std::uint16_t CArchiveReader::ReadWord()
{
    return TakeNumber<std::uint16_t>();
}

std::uint32_t CArchiveReader::ReadDword()
{
    return TakeNumber<std::uint32_t>();
}

std::uint32_t CArchiveReader::PeekDword() const
{
    CArchiveReader ahead(m_bytes);
    ahead.m_nOffset = m_nOffset;
    return ahead.ReadDword();
}

double CArchiveReader::ReadDouble()
{
    return std::bit_cast<double>(TakeNumber<std::uint64_t>());
}

/// The length of a text in characters; `bWide` tells whether these have two bytes.
std::uint32_t CArchiveReader::ReadLength(bool& bWide)
{
    const std::size_t nStart = m_nOffset;
    const std::uint8_t nByte = ReadByte();
    if (nByte != ArchiveFormat::LongText)
        return nByte;
    const std::uint16_t nWord = ReadWord();
    if (nWord == ArchiveFormat::LongerText)
        return ReadDword();
    if (nWord != ArchiveFormat::WideText)
        return nWord;
    if (bWide)
        Fail(nStart, "a text of 16-bit characters is announced twice");
    bWide = true;
    return ReadLength(bWide);
}

std::string CArchiveReader::ReadText()
{
    bool bWide = false;
    const std::uint32_t nLength = ReadLength(bWide);
    if (!bWide)
        return ToUtf8(TakeElements(nLength, 1, "characters of text"));
    const std::string_view bytes = TakeElements(nLength, 2, "16-bit characters of text");
    std::u16string strWide(nLength, u'\0');
    for (std::size_t i = 0; i < strWide.size(); ++i)
        strWide[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                           static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
    return Utf16ToUtf8(strWide);
}

std::uint32_t CArchiveReader::ReadCount(std::size_t nSmallestElement)
{
    const std::size_t nStart = m_nOffset;
    std::uint32_t nCount = ReadWord();
    if (nCount == ArchiveFormat::LongCount)
        nCount = ReadDword();
    if (nCount > Remaining() / nSmallestElement)
        Fail(nStart,
             Number(nCount) + " elements do not fit in the " + Number(Remaining()) + " bytes that are left");
    return nCount;
}

DATE CArchiveReader::ReadDateText()
{
    return ParseDateText(ReadText());
}

DATE CArchiveReader::ReadDate()
{
    const std::uint32_t nStatus = ReadDword();
    DATE date(ReadDouble());
    if (nStatus != DATE::Valid)
        date.m_nStatus = nStatus == DATE::Null ? DATE::Null : DATE::Invalid;
    return date;
}

CPosition CArchiveReader::ReadPosition()
{
    const double dLatitude = ReadDouble();
    return MakePosition(dLatitude, ReadDouble());
}

CEllipsoid CArchiveReader::ReadEllipsoid()
{
    const std::int32_t nIndex = ReadInt();
    const double dRadius = ReadDouble();
    CEllipsoid ellipsoid;
    ellipsoid.SetEllipsoid(nIndex, dRadius, ReadDouble());
    return ellipsoid;
}

CGeoRect CArchiveReader::ReadRect()
{
    CGeoRect rect;
    for (double* pEdge : {&rect.m_dWest, &rect.m_dNorth, &rect.m_dEast, &rect.m_dSouth})
        *pEdge = ReadDouble();
    return rect;
}

std::vector<std::string> CArchiveReader::ReadTexts()
{
    std::vector<std::string> texts;
    for (std::uint32_t nLeft = ReadCount(1); nLeft > 0; --nLeft)
        texts.push_back(ReadText());
    return texts;
}

int CArchiveReader::HighestSchemaOf(const CClassRecord& objectClass) const
{
    int nHighest = -1;
    for (const SNumbered& numbered : m_numbered) {
        if (numbered.bObject && numbered.pClass == &objectClass)
            nHighest = std::max(nHighest, numbered.nSchema);
    }
    return nHighest;
}

/// The class behind a "new class" tag.
CArchiveReader::SNumbered CArchiveReader::ReadClass()
{
    const int nSchema = ReadWord();
    const std::size_t nStart = m_nOffset;
    const std::uint16_t nLength = ReadWord();
    if (nLength > ArchiveFormat::MaxClassName)
        Fail(nStart, "a class name of " + Number(nLength) + " characters is too long");
    const std::string_view strName = Take(nLength);
    const CClassRecord* pClass = FindClass(strName);
    if (pClass == nullptr)
        Fail(nStart, "there is no class \"" + std::string(strName) + "\"");
    const SNumbered objectClass = {.pClass = pClass, .nSchema = nSchema, .bObject = false};
    if (m_nCopyDepth == 0)
        m_numbered.push_back(objectClass);
    return objectClass;
}

const CArchiveReader::SNumbered& CArchiveReader::Numbered(std::size_t nIndex, bool bObject,
                                                          std::size_t nTagOffset) const
{
    if (nIndex == 0 || nIndex > m_numbered.size() || m_numbered[nIndex - 1].bObject != bObject)
        Fail(nTagOffset, "unknown tag: no " + std::string(bObject ? "object" : "class") + " has the number " +
                             Number(nIndex));
    return m_numbered[nIndex - 1];
}

/// Everything before the body. `expected` is the class of the array's elements.
CArchiveReader::SBody CArchiveReader::BeginObject(const CClassRecord& expected)
{
    const std::size_t nTagOffset = m_nOffset;
    const std::uint16_t nTag = ReadWord();
    if (nTag == ArchiveFormat::NoObject)
        return {.bNull = true};

    SNumbered found = {};
    if (nTag == ArchiveFormat::NewClass) {
        found = ReadClass();
    } else {
        bool bClass = (nTag & ArchiveFormat::ClassBit) != 0;
        std::uint32_t nIndex = nTag & ~unsigned{ArchiveFormat::ClassBit};
        if (nTag == ArchiveFormat::LargeIndex) {
            nIndex = ReadDword();
            bClass = (nIndex & ArchiveFormat::LargeClassBit) != 0;
            nIndex &= ~ArchiveFormat::LargeClassBit;
        }
        found = Numbered(nIndex, !bClass, nTagOffset);
    }
    if (found.pClass != &expected)
        Fail(nTagOffset, "a " + std::string(found.pClass->strName) + " stands where a " +
                             std::string(expected.strName) + " belongs");
    return found.bObject ? BeginCopy(found, nTagOffset) : BeginNew(found);
}

CArchiveReader::SBody CArchiveReader::BeginNew(const SNumbered& objectClass)
{
    SBody body = {.nSchema = objectClass.nSchema};
    if (m_nCopyDepth > 0)
        return body;
    m_numbered.push_back(
        {.pClass = objectClass.pClass, .nSchema = objectClass.nSchema, .bObject = true, .nBody = m_nOffset});
    body.nIndex = m_numbered.size();
    return body;
}

/// An object has one owner, so a second reference to it reads its body once more, as another object.
CArchiveReader::SBody CArchiveReader::BeginCopy(const SNumbered& object, std::size_t nTagOffset)
{
    if (object.nEnd == 0)
        Fail(nTagOffset, "an object refers to itself");
    m_nRepeatedBytes += object.nEnd - object.nBody;
    if (m_nRepeatedBytes > MaxRepeatedBytes)
        Fail(nTagOffset, "too many references to objects that were read before");
    const SBody body = {.nSchema = object.nSchema, .nReturnTo = m_nOffset, .bCopy = true};
    m_nOffset = object.nBody;
    ++m_nCopyDepth;
    return body;
}

void CArchiveReader::EndObject(const SBody& body)
{
    if (body.bCopy) {
        m_nOffset = body.nReturnTo;
        --m_nCopyDepth;
    } else if (body.nIndex != 0) {
        m_numbered[body.nIndex - 1].nEnd = m_nOffset;
    }
}

} // namespace kestrabel
