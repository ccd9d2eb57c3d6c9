#pragma once

#include <QString>
#include <QStringList>

#include <string_view>

namespace kestrabel {

/// "text|patterns|text|patterns||", whose patterns stand between ";" or ",", in Qt's form: "text (*.a *.b)".
/// A pattern fits in either case, and "*.*" means every file.
QStringList QtFilters(std::string_view strFilter);

/// The extension, dot included, of the first pattern of one of these; empty for every file.
QString FirstExtension(const QString& strQtFilter);

} // namespace kestrabel
