#include "ui/QtSettings.h"

#include "ui/QtText.h"

namespace kestrabel {

namespace {

QString KeyOf(std::string_view strSection, std::string_view strEntry)
{
    return ToQt(strSection) + '/' + ToQt(strEntry);
}

} // namespace

std::string CQtSettings::Read(std::string_view strSection, std::string_view strEntry,
                              std::string_view strDefault) const
{
    return FromQt(m_settings.value(KeyOf(strSection, strEntry), ToQt(strDefault)).toString());
}

void CQtSettings::Write(std::string_view strSection, std::string_view strEntry, std::string_view strValue)
{
    m_settings.setValue(KeyOf(strSection, strEntry), ToQt(strValue));
}

bool CQtSettings::HasSection(std::string_view strSection) const
{
    const QString strStart = ToQt(strSection) + '/';
    const QStringList keys = m_settings.allKeys();
    return std::any_of(keys.begin(), keys.end(),
                       [&](const QString& strKey) { return strKey.startsWith(strStart); });
}

void CQtSettings::RemoveSection(std::string_view strSection)
{
    m_settings.remove(ToQt(strSection));
}

std::string CQtSettings::Problem() const
{
    const std::string strFile = FromQt(m_settings.fileName());
    if (m_settings.status() == QSettings::FormatError)
        return strFile + ": the settings are damaged; the program starts with its defaults";
    if (!m_settings.isWritable())
        return strFile + ": the settings cannot be written; changes last until the program ends";
    return {};
}

} // namespace kestrabel
