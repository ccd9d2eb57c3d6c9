#pragma once

#include <string>
#include <string_view>

namespace kestrabel {

/// "About Kestro": the program icon, its version and OK.
struct SAboutDialog
{
    static constexpr std::string_view Title = "About Kestro";

    static SAboutDialog From(std::string_view strVersion) { return {"Kestrabel " + std::string(strVersion)}; }

    std::string strVersion;
};

} // namespace kestrabel
