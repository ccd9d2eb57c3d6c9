#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrabel {

/// What an XML document consists of, in document order. Names and texts are UTF-8 and stand only for the
/// call.
class CXmlHandler
{
public:
    /// The attributes of a start tag.
    class CAttributes
    {
    public:
        /// `pNamesAndValues`: name, value, name, value, …, null.
        explicit CAttributes(const char* const* pNamesAndValues) : m_pNamesAndValues(pNamesAndValues) {}
        /// The value of the attribute of that exact name; null when there is none.
        const char* Find(std::string_view strName) const;

    private:
        const char* const* m_pNamesAndValues;
    };

    virtual ~CXmlHandler() = default;
    virtual void StartElement(std::string_view strName, const CAttributes& attributes) = 0;
    virtual void EndElement() = 0;
    /// A piece of character data; one text may come in several pieces.
    virtual void Text(std::string_view strText) = 0;
};

/// Reads XML files as a stream, a quarter of a megabyte in memory at a time. Names are given as written,
/// prefix included. UTF-8, UTF-16, ISO-8859-1 and Windows-1252 documents are understood. A DOCTYPE is
/// tolerated and nothing that it names is ever fetched; an entity declaration ends the load, since nothing
/// but attacks uses one in a track file.
class CXmlReader
{
public:
    /// Parses the whole file. False when it cannot be opened or is not well-formed; the handler may have seen
    /// a part of it by then, so it must hand nothing on before the end. `Error` then tells why. Does not
    /// throw but for lack of memory.
    bool Load(std::string_view strPath, CXmlHandler& handler);

    /// Such as "line 12: mismatched tag"; empty after a successful load.
    const std::string& Error() const { return m_strError; }

private:
    std::string m_strError;
};

} // namespace kestrabel
