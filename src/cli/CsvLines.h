#pragma once

#include "cli/Output.h"

#include <functional>
#include <string_view>

namespace kestrabel {

/// Takes the lines of a comma-separated export and prints them as its file has them, ended by CR LF.
inline std::function<void(std::string_view)> CsvLines(COutput& output)
{
    return [&output](std::string_view strLine) {
        output.Write(strLine);
        output.Write("\r\n");
    };
}

} // namespace kestrabel
