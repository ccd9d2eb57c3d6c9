#pragma once

#include "geo/Ellipsoid.h"
#include "geo/GeoRect.h"
#include "geo/Position.h"
#include "model/ArchiveException.h"
#include "model/Date.h"
#include "model/ObjectArray.h"
#include "model/Persistent.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// Reads values and objects in the encodings of ArchiveFormat.h. The bytes must outlive the reader.
///
/// Every operation throws CArchiveException when the bytes end too early or break the format; after that the
/// reader is of no use. Lengths and counts are compared with what is left before anything is allocated for
/// them, so a damaged file costs no more memory than its own size asks for.
class CArchiveReader
{
public:
    /// How much may be read again because the file refers to objects a second time, bytes. Some thousand
    /// waypoints; without a limit a small file could ask for any amount of memory.
    static constexpr std::size_t MaxRepeatedBytes = 1024 * 1024;

    explicit CArchiveReader(std::string_view bytes) : m_bytes(bytes) {}

    std::size_t Offset() const { return m_nOffset; }
    std::size_t Remaining() const { return m_bytes.size() - m_nOffset; }

    std::uint8_t ReadByte();
    std::uint16_t ReadWord();
    std::uint32_t ReadDword();
    /// The double word that comes next, without moving behind it.
    std::uint32_t PeekDword() const;
    std::int32_t ReadInt() { return static_cast<std::int32_t>(ReadDword()); }
    double ReadDouble();
    /// UTF-8: 8-bit text as `ToUtf8` takes it, 16-bit text converted.
    std::string ReadText();
    /// The number of elements that follow, of which each takes at least `nSmallestElement` bytes.
    std::uint32_t ReadCount(std::size_t nSmallestElement);
    /// Text that is no date gives an invalid one.
    DATE ReadDateText();
    /// A status other than valid and null gives an invalid date.
    DATE ReadDate();
    CPosition ReadPosition();
    CEllipsoid ReadEllipsoid();
    CGeoRect ReadRect();
    std::vector<std::string> ReadTexts();

    /// The objects of an array, which replace those in `objects`; each class T has an operation
    /// `ReadBody(CArchiveReader&, T&, int nSchema)`. Null elements are left out. An element that refers to an
    /// object read before becomes a copy of it, so that every object has one owner. Another class than T is a
    /// violation.
    template <class T>
    void ReadObjects(CObjectArray<T>& objects)
    {
        objects.RemoveAll();
        ForEachObject<T>([&](std::unique_ptr<T> pObject) { objects.Add(std::move(pObject)); });
    }

    /// Reads the objects of an array, one after the other, and keeps none.
    template <class T>
    void SkipObjects()
    {
        ForEachObject<T>([](std::unique_ptr<T>) {});
    }

    /// The highest schema under which the file had an object of that class so far; -1 when it had none.
    int HighestSchemaOf(const CClassRecord& objectClass) const;

private:
    /// What has a number in the file.
    struct SNumbered
    {
        const CClassRecord* pClass;
        int nSchema;
        bool bObject;          ///< a class otherwise
        std::size_t nBody = 0; ///< objects: where the body begins
        std::size_t nEnd = 0;  ///< objects: where it ends; 0 until that is known
    };

    struct SBody
    {
        bool bNull = false;
        int nSchema = 0;
        std::size_t nIndex = 0;    ///< the object's number; 0 when it is a copy
        std::size_t nReturnTo = 0; ///< copies: where reading goes on afterwards
        bool bCopy = false;
    };

    static constexpr std::size_t SmallestObject = 2; // the tag of "no object"

    template <class T, class TTake>
    void ForEachObject(TTake&& take)
    {
        for (std::uint32_t nLeft = ReadCount(SmallestObject); nLeft > 0; --nLeft) {
            const SBody body = BeginObject(T::Class);
            if (body.bNull)
                continue;
            auto pObject = std::make_unique<T>();
            ReadBody(*this, *pObject, body.nSchema);
            EndObject(body);
            take(std::move(pObject));
        }
    }

    [[noreturn]] static void Fail(std::size_t nOffset, std::string_view strReason);
    std::string_view Take(std::size_t nBytes);
    template <class T>
    T TakeNumber();
    std::uint32_t ReadLength(bool& bWide);
    std::string_view TakeElements(std::uint32_t nCount, std::size_t nSize, std::string_view strWhat);

    SBody BeginObject(const CClassRecord& expected);
    void EndObject(const SBody& body);
    SNumbered ReadClass();
    const SNumbered& Numbered(std::size_t nIndex, bool bObject, std::size_t nTagOffset) const;
    SBody BeginNew(const SNumbered& objectClass);
    SBody BeginCopy(const SNumbered& object, std::size_t nTagOffset);

    std::string_view m_bytes;
    std::size_t m_nOffset = 0;
    std::vector<SNumbered> m_numbered; ///< number 1 comes first
    int m_nCopyDepth = 0;              ///< while a copy is read nothing gets a number again
    std::size_t m_nRepeatedBytes = 0;
};

} // namespace kestrabel
