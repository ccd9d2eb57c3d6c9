#include "ui/FileFilter.h"

#include "ui/QtText.h"

#include <QRegularExpression>

namespace kestrabel {

namespace {

QString QtPatterns(const QString& strPatterns)
{
    QStringList patterns;
    for (const QString& strPattern : strPatterns.split(QRegularExpression("[;,]"), Qt::SkipEmptyParts)) {
        const QString strTrimmed = strPattern.trimmed();
        if (strTrimmed == "*.*") {
            patterns << "*";
            continue;
        }
        patterns << strTrimmed.toLower();
        if (strTrimmed.toUpper() != strTrimmed.toLower())
            patterns << strTrimmed.toUpper();
    }
    return patterns.join(' ');
}

} // namespace

QStringList QtFilters(std::string_view strFilter)
{
    const QStringList parts = ToQt(strFilter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size() && !parts[i].isEmpty(); i += 2) {
        // Qt takes what stands between brackets for the patterns, so those of the text go.
        const QString strText = parts[i].section('(', 0, 0).trimmed();
        filters << strText + " (" + QtPatterns(parts[i + 1]) + ')';
    }
    return filters;
}

QString FirstExtension(const QString& strQtFilter)
{
    static const QRegularExpression extension("\\(\\*(\\.[^ )]+)");
    return extension.match(strQtFilter).captured(1);
}

} // namespace kestrabel
