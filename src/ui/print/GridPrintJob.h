#pragma once

#include "present/Grid.h"
#include "ui/print/PrintJob.h"

#include <QString>

#include <vector>

namespace kestrabel {

/// A grid on paper: its shown columns with their titles, its rows page by page, under a heading and the date.
/// Columns too wide for the paper are made smaller, all in the same measure.
class CGridPrintJob : public CPrintJob
{
public:
    /// The grid outlives the job.
    CGridPrintJob(const CGrid& grid, QString strHeading, QString strDate);

    int Paginate(QPainter& painter, const QRectF& page) override;
    void DrawPage(QPainter& painter, const QRectF& page, int nPage) override;

private:
    void DrawCell(QPainter& painter, const QRectF& cell, int nColumn, const QString& strText) const;

    const CGrid& m_grid;
    QString m_strHeading;
    QString m_strDate;
    std::vector<double> m_widths;
    double m_dRowHeight = 0.0;
    double m_dTextScale = 1.0;
    int m_nRowsPerPage = 1;
    int m_nPages = 1;
};

} // namespace kestrabel
