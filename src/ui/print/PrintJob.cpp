#include "ui/print/PrintJob.h"

#include "platform/NumberInput.h"
#include "platform/SettingsStore.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QScreen>

#include <algorithm>
#include <string>

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

namespace {

constexpr std::string_view PreviewSection = "Settings";
constexpr std::string_view PreviewEntry = "PreviewPages";

void RestorePageCount(QPrintPreviewWidget& preview, const CSettingsStore& settings)
{
    const std::int32_t nPages = ReadInteger(settings.Read(PreviewSection, PreviewEntry));
    if (nPages == 2)
        preview.setFacingPagesViewMode();
    else if (nPages > 2)
        preview.setAllPagesViewMode();
}

void StorePageCount(const QPrintPreviewWidget& preview, CSettingsStore& settings)
{
    int nPages = 1;
    if (preview.viewMode() == QPrintPreviewWidget::FacingPagesView)
        nPages = 2;
    else if (preview.viewMode() == QPrintPreviewWidget::AllPagesView)
        nPages = std::max(3, preview.pageCount()); // fewer are all pages, too
    settings.Write(PreviewSection, PreviewEntry, std::to_string(nPages));
}

} // namespace

void ShowPrintPreview(QWidget* pParent, QPrinter& printer, CPrintJob& job, CSettingsStore& settings)
{
    QPrintPreviewDialog dialog(&printer, pParent);
    auto& preview = *dialog.findChild<QPrintPreviewWidget*>();
    RestorePageCount(preview, settings);
    dialog.resize(dialog.screen()->availableSize() * 3 / 4);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&job](QPrinter* pPrinter) { DrawPages(job, *pPrinter); });
    dialog.exec();
    StorePageCount(preview, settings);
}

namespace {

/// Paper and orientation of a printer that is a file: the platform's own dialog is for real ones only.
void SetUpFile(QWidget* pParent, QPrinter& printer)
{
    constexpr QPageSize::PageSizeId papers[] = {QPageSize::A4, QPageSize::A3, QPageSize::A5,
                                                QPageSize::Letter, QPageSize::Legal};
    QDialog dialog(pParent);
    dialog.setWindowTitle("Print Setup");
    auto* pPaper = new QComboBox;
    pPaper->setAccessibleName("Paper");
    for (const QPageSize::PageSizeId paper : papers) {
        pPaper->addItem(QPageSize::name(paper), paper);
        if (printer.pageLayout().pageSize().id() == paper)
            pPaper->setCurrentIndex(pPaper->count() - 1);
    }
    auto* pLandscape = new QCheckBox("&Landscape");
    pLandscape->setAccessibleName("Landscape");
    pLandscape->setChecked(printer.pageLayout().orientation() == QPageLayout::Landscape);
    auto* pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* pLayout = new QFormLayout(&dialog);
    pLayout->addRow("&Paper:", pPaper);
    pLayout->addRow(pLandscape);
    pLayout->addRow(pButtons);
    QObject::connect(pButtons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(pButtons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (dialog.exec() != QDialog::Accepted)
        return;
    printer.setPageSize(QPageSize(static_cast<QPageSize::PageSizeId>(pPaper->currentData().toInt())));
    printer.setPageOrientation(pLandscape->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait);
}

} // namespace

void SetUpPrinter(QWidget* pParent, QPrinter& printer)
{
    if (printer.outputFormat() == QPrinter::NativeFormat)
        QPageSetupDialog(&printer, pParent).exec();
    else
        SetUpFile(pParent, printer);
}

} // namespace kestrabel
