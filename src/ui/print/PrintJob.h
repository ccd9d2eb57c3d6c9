#pragma once

#include <QRectF>

class QPainter;
class QPrinter;
class QWidget;

namespace kestrabel {

class CSettingsStore;

/// What is printed: its pages for a paper. The same job draws the preview.
class CPrintJob
{
public:
    virtual ~CPrintJob() = default;

    /// Lays the pages out for this paper, in the painter's units and with its fonts; the result is their
    /// number, at least 1.
    virtual int Paginate(QPainter& painter, const QRectF& page) = 0;
    /// Draws a page, from 0, as laid out last.
    virtual void DrawPage(QPainter& painter, const QRectF& page, int nPage) = 0;
};

/// Draws the job's pages, or those from the printer's "from" to "to" where it has them.
void DrawPages(CPrintJob& job, QPrinter& printer);

/// Asks for printer and pages, and prints.
void Print(QWidget* pParent, QPrinter& printer, CPrintJob& job);
/// Shows the pages on the screen, as many at a time as at the end of the last preview; they can be printed
/// from there.
void ShowPrintPreview(QWidget* pParent, QPrinter& printer, CPrintJob& job, CSettingsStore& settings);
/// Asks for the paper.
void SetUpPrinter(QWidget* pParent, QPrinter& printer);

} // namespace kestrabel
