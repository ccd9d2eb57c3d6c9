#pragma once

#include "platform/SettingsStore.h"

#include <QSettings>

namespace kestrabel {

/// The settings in the platform's own store.
class CQtSettings : public CSettingsStore
{
public:
    /// The user's store of the program.
    CQtSettings() : m_settings("Kestrabel", "Kestro") {}
    /// A file of its own.
    explicit CQtSettings(const QString& strFile) : m_settings(strFile, QSettings::IniFormat) {}

    std::string Read(std::string_view strSection, std::string_view strEntry,
                     std::string_view strDefault = {}) const override;
    void Write(std::string_view strSection, std::string_view strEntry, std::string_view strValue) override;
    bool HasSection(std::string_view strSection) const override;
    void RemoveSection(std::string_view strSection) override;

    /// What is wrong with the store, for a message at the start; empty: nothing.
    std::string Problem() const;

private:
    QSettings m_settings;
};

} // namespace kestrabel
