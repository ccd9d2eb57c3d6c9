#pragma once

#include "geo/Ellipsoid.h"
#include "geo/Position.h"
#include "model/Date.h"
#include "model/ObjectArray.h"
#include "model/Persistent.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// Writes values and objects in the encodings of ArchiveFormat.h, into memory. Every object is written in
/// full: nothing is ever referred to a second time.
class CArchiveWriter
{
public:
    const std::string& Bytes() const { return m_strBytes; }

    void WriteByte(std::uint8_t nValue) { m_strBytes += static_cast<char>(nValue); }
    void WriteWord(std::uint16_t nValue);
    void WriteDword(std::uint32_t nValue);
    void WriteInt(std::int32_t nValue) { WriteDword(static_cast<std::uint32_t>(nValue)); }
    void WriteDouble(double dValue);
    /// At most 4 GiB.
    void WriteText(std::string_view strText);
    void WriteCount(std::uint32_t nCount);
    void WriteDateText(const DATE& date);
    void WritePosition(const CPosition& position);
    void WriteEllipsoid(const CEllipsoid& ellipsoid);

    /// The array with its objects; each class T has an operation `WriteBody(CArchiveWriter&, const T&)`.
    template <class T>
    void WriteObjects(const CObjectArray<T>& objects)
    {
        WriteCount(static_cast<std::uint32_t>(objects.GetCount()));
        for (const T* pObject : objects) {
            BeginObject(T::Class);
            WriteBody(*this, *pObject);
        }
    }

private:
    struct SWrittenClass
    {
        const CClassRecord* pClass;
        std::uint32_t nIndex;
    };

    void BeginObject(const CClassRecord& objectClass);

    std::string m_strBytes;
    std::vector<SWrittenClass> m_classes;
    std::uint32_t m_nLastIndex = 0;
};

} // namespace kestrabel
