#pragma once

#include <string>
#include <string_view>

namespace kestrabel {

/// The per-user settings: texts under a section and an entry. A section within a section is written with a
/// slash, such as "Grid Fields/Results/Speed". Names are compared case included. What cannot be kept is
/// dropped: a program must run without its settings.
class CSettingsStore
{
public:
    virtual ~CSettingsStore() = default;

    /// The stored text; `strDefault` when there is none.
    virtual std::string Read(std::string_view strSection, std::string_view strEntry,
                             std::string_view strDefault = {}) const = 0;
    virtual void Write(std::string_view strSection, std::string_view strEntry, std::string_view strValue) = 0;
    /// True when the section, or one within it, holds an entry.
    virtual bool HasSection(std::string_view strSection) const = 0;
    /// Removes the entries of the section and of those within it.
    virtual void RemoveSection(std::string_view strSection) = 0;
};

} // namespace kestrabel
