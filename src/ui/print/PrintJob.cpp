#include "ui/print/PrintJob.h"

#include <QApplication>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrintPreviewDialog>
#include <QScreen>

#include <algorithm>

namespace kestrabel {

void DrawPages(CPrintJob& job, QPrinter& printer)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return;
    const QRectF page(QPointF(), printer.pageRect(QPrinter::DevicePixel).size());
    const int nPages = job.Paginate(painter, page);
    const bool bSome = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
    const int nFirst = bSome ? printer.fromPage() - 1 : 0;
    const int nEnd = bSome && printer.toPage() > 0 ? std::min(printer.toPage(), nPages) : nPages;
    for (int nPage = nFirst; nPage < nEnd; ++nPage) {
        if (nPage != nFirst && !printer.newPage())
            return; // the disk is full or the job was cancelled
        job.DrawPage(painter, page, nPage);
    }
}

void Print(QWidget* pParent, QPrinter& printer, CPrintJob& job)
{
    QPrintDialog dialog(&printer, pParent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    DrawPages(job, printer);
    QApplication::restoreOverrideCursor();
}

void ShowPrintPreview(QWidget* pParent, QPrinter& printer, CPrintJob& job)
{
    QPrintPreviewDialog dialog(&printer, pParent);
    dialog.resize(dialog.screen()->availableSize() * 3 / 4);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&job](QPrinter* pPrinter) { DrawPages(job, *pPrinter); });
    dialog.exec();
}

void SetUpPrinter(QWidget* pParent, QPrinter& printer)
{
    QPageSetupDialog(&printer, pParent).exec();
}

} // namespace kestrabel
