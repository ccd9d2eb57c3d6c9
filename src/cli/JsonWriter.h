#pragma once

#include "cli/Output.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace kestrabel {

/// Writes one JSON document (RFC 8259) piece by piece: nothing is kept but the nesting, so a million points
/// cost no memory. Objects in an array stand on lines of their own, for tools that work by lines.
///
/// A document library is not used for output: its number form must be the shortest that reads back to the
/// same double, which `std::to_chars` guarantees and the usual Grisu2 algorithm does not.
///
/// Keys are plain ASCII without characters that need escaping. What is begun must be ended, in order.
class CJsonWriter
{
public:
    explicit CJsonWriter(COutput& output) : m_output(output) {}

    /// Without a key: the document itself, or an element of an array.
    void BeginObject();
    void BeginObject(std::string_view strKey);
    void EndObject();
    void BeginArray(std::string_view strKey);
    void EndArray();

    /// The shortest form that reads back to the same double; null for what is not finite.
    void Number(std::string_view strKey, double dValue);
    void Integer(std::string_view strKey, std::int64_t nValue);
    void Boolean(std::string_view strKey, bool bValue);
    void Null(std::string_view strKey);
    /// Any bytes; written as UTF-8.
    void Text(std::string_view strKey, std::string_view strValue);

private:
    struct SLevel
    {
        bool bArray;
        bool bEmpty = true;
    };

    void Separate();
    void Key(std::string_view strKey);
    void Open(bool bArray);

    COutput& m_output;
    std::vector<SLevel> m_levels;
};

} // namespace kestrabel
