#include "simulator/SessionWriter.h"

#include "formats/GpxWriter.h"
#include "formats/TrackFileDispatcher.h"
#include "formats/TrackFormat.h"
#include "platform/Path.h"
#include "simulator/SirfWriter.h"

#include <memory>

namespace kestrabel {

namespace {

bool IsNmea(std::string_view strPath)
{
    const std::string strExtension = ToLower(FileExtension(strPath));
    return strExtension == ".txt" || strExtension == ".nmea";
}

bool IsGpx(std::string_view strPath)
{
    return ToLower(FileExtension(strPath)) == ".gpx";
}

bool IsSirf(std::string_view strPath)
{
    return ToLower(FileExtension(strPath)) == ".sbn";
}

bool WriteGpxSession(CImportMonitor& monitor, std::string_view strPath, const CSeries& series)
{
    CEvent event(series.m_date);
    CPerson& person = event.m_persons.Add(std::make_unique<CPerson>());
    CSeries& written = person.m_series.Add(std::make_unique<CSeries>());
    written.m_strName = series.m_strName;
    written.m_points = CObjectArray<CTrackPoint>(CObjectArray<CTrackPoint>::EOwnership::Borrows);
    for (CTrackPoint* pPoint : series.m_points) {
        if (pPoint->HasPosition())
            written.m_points.Borrow(*pPoint);
    }
    return WriteEventGpx(monitor, event, 0, 0, strPath);
}

} // namespace

bool IsWritableName(std::string_view strPath)
{
    if (IsNmea(strPath) || IsGpx(strPath) || IsSirf(strPath))
        return true;
    const STrackFormat* pFormat = FormatForSave(strPath, EGpxTest::ExtensionAnywhere);
    return pFormat != nullptr && pFormat->pWrite != nullptr;
}

bool WriteSession(CImportMonitor& monitor, std::string_view strPath, const CSeries& series,
                  const SNmeaOptions& nmeaOptions)
{
    if (IsNmea(strPath))
        return WriteNmea(monitor, strPath, series.m_points, nmeaOptions);
    if (IsGpx(strPath))
        return WriteGpxSession(monitor, strPath, series);
    if (IsSirf(strPath))
        return WriteSirf(monitor, strPath, series);
    return SavePoints(monitor, strPath, series, series.m_points);
}

} // namespace kestrabel
