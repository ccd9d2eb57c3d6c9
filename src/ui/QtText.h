#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace kestrabel {

/// The library's texts are UTF-8.
inline QString ToQt(std::string_view strText)
{
    return QString::fromUtf8(strText.data(), static_cast<qsizetype>(strText.size()));
}

inline std::string FromQt(const QString& strText)
{
    return strText.toStdString();
}

} // namespace kestrabel
