#pragma once

#include "present/ProjectTree.h"
#include "ui/print/PrintJob.h"

#include <QString>

#include <vector>

namespace kestrabel {

/// The visible nodes of the project tree on paper.
class CTreePrintJob : public CPrintJob
{
public:
    CTreePrintJob(std::vector<STreeRow> rows, std::string strTitle, QString strDate);

    int Paginate(QPainter& painter, const QRectF& page) override;
    void DrawPage(QPainter& painter, const QRectF& page, int nPage) override;

private:
    std::vector<STreeRow> m_rows;
    std::string m_strTitle;
    QString m_strDate;
    std::vector<STreePage> m_pages;
};

} // namespace kestrabel
