#include "ui/print/GridPrintJob.h"

#include "platform/FileSettings.h"
#include "support/ScriptedDesktop.h"
#include "ui/DialogDriver.h"
#include "ui/print/PageFrame.h"
#include "ui/print/ScenePrintJob.h"
#include "ui/print/TreePrintJob.h"
#include "ui/scene/ScenePane.h"
#include "ui/TestWindow.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QPrintPreviewWidget>

#include <gmock/gmock.h>

namespace kestrabel::test {
namespace {

constexpr int Dpi = 100;

/// An A4 page of 100 dots an inch.
QImage BlankPage()
{
    QImage page(827, 1169, QImage::Format_Grayscale8);
    page.setDotsPerMeterX(qRound(Dpi / 0.0254));
    page.setDotsPerMeterY(qRound(Dpi / 0.0254));
    page.fill(Qt::white);
    return page;
}

/// The lines of dots that have ink, from the first to the last.
std::pair<int, int> InkedRows(const QImage& page)
{
    int nFirst = page.height();
    int nLast = -1;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (qGray(page.pixel(x, y)) < 128) {
                nFirst = std::min(nFirst, y);
                nLast = y;
            }
        }
    }
    return {nFirst, nLast};
}

int InkInColumn(const QImage& page, int x)
{
    int nInk = 0;
    for (int y = 0; y < page.height(); ++y)
        nInk += qGray(page.pixel(x, y)) < 128 ? 1 : 0;
    return nInk;
}

TEST(Print, GridFillsPagesFromHeadingToPageNumber)
{
    SWindowWith<CScriptedDesktop> window;
    window.desktop.Files("*.*", {window.folder.Write("anna.nmea", Sentences(140))});
    window.pFrame->Router().CarryOut(ECommand::ImportTrackFiles);
    CApplication& application = window.pFrame->Application();
    CTrackPointGrid grid(application.m_document.m_event, application.m_document.m_hub,
                         application.m_document.m_selection, *window.pSettings,
                         application.m_document.m_surroundings.progress);
    grid.OnUpdate(HINT_POINTS_CHANGED);
    ASSERT_EQ(grid.RowCount(), 140);

    CGridPrintJob job(grid, "Event  Distance=1kms", "2026-11-23");
    constexpr int nMargin = 40;
    const QRectF area = BlankPage().rect().adjusted(nMargin, nMargin, -nMargin, -nMargin);
    int nPages = 0;
    const auto drawn = [&](int nPage) {
        QImage page = BlankPage();
        QPainter painter(&page);
        nPages = job.Paginate(painter, area);
        job.DrawPage(painter, area, nPage);
        painter.end();
        return page;
    };
    const QImage first = drawn(0);
    ASSERT_GE(nPages, 2);
    EXPECT_LE(nPages, 4);
    const auto [nFirst, nLast] = InkedRows(first);
    EXPECT_LT(nFirst, nMargin + Dpi / 4) << "the heading stands on top";
    EXPECT_GT(nLast, first.height() - nMargin - Dpi / 4) << "the page's number below";
    EXPECT_LT(nLast, first.height() - nMargin);
    EXPECT_EQ(InkInColumn(first, first.width() - nMargin + 2), 0) << "no column is cut by the paper's edge";
    const QImage last = drawn(nPages - 1);
    EXPECT_GT(InkedRows(last).second, last.height() - nMargin - Dpi / 4);
}

TEST(Print, OneLongNameDoesNotShrinkTheTable)
{
    const auto inkedLines = [](int nLength) {
        SWindowWith<CScriptedDesktop> window;
        const std::string strName = std::string(static_cast<std::size_t>(nLength), 'w') + ".nmea";
        window.desktop.Files("*.*", {window.folder.Write(strName, Sentences(60))});
        window.pFrame->Router().CarryOut(ECommand::ImportTrackFiles);
        CKestroDoc& document = window.pFrame->Application().m_document;
        CResultGrid grid(document.m_event, document.m_hub, document.m_selection, *window.pSettings);
        EXPECT_GE(grid.RowCount(), 3);
        CGridPrintJob job(grid, "", "");
        QImage page = BlankPage();
        QPainter painter(&page);
        job.Paginate(painter, page.rect());
        job.DrawPage(painter, page.rect(), 0);
        painter.end();
        int nLines = 0;
        for (int y = 0; y < page.height(); ++y) {
            const QImage line = page.copy(0, y, page.width(), 1);
            nLines += InkedRows(line).second >= 0 ? 1 : 0;
        }
        return nLines;
    };
    EXPECT_GT(inkedLines(240), inkedLines(20) * 3 / 4);
}

/// How much ink the rows of dots from `nFrom` to before `nEnd` have.
double Ink(const QImage& page, int nFrom, int nEnd)
{
    double dInk = 0.0;
    for (int y = nFrom; y < nEnd; ++y) {
        for (int x = 0; x < page.width(); ++x)
            dInk += 255 - qGray(page.pixel(x, y));
    }
    return dInk;
}

TEST(Print, TitlesOfColumnsAreNotCut)
{
    SWindowWith<CScriptedDesktop> window;
    CApplication& application = window.pFrame->Application();
    const CTrackPointGrid grid(application.m_document.m_event, application.m_document.m_hub,
                               application.m_document.m_selection, *window.pSettings,
                               application.m_document.m_surroundings.progress);
    QImage page = BlankPage().scaled(2400, 400); // wide enough for letters of full size
    page.setDotsPerMeterX(qRound(Dpi / 0.0254));
    page.setDotsPerMeterY(qRound(Dpi / 0.0254));
    QImage titles = page;
    CGridPrintJob job(grid, {}, {});
    QPainter painter(&page);
    job.Paginate(painter, page.rect());
    const QRectF body = CPageFrame::Body(painter, page.rect());
    job.DrawPage(painter, page.rect(), 0);
    painter.end();

    QPainter alone(&titles);
    QFont font = CPageFrame::Font();
    font.setBold(true);
    alone.setFont(font);
    const double dLine = QFontMetricsF(font, &titles).lineSpacing();
    for (int i = 0; i < grid.ColumnCount(); ++i)
        alone.drawText(QRectF(10 + 120 * i, body.top(), 120, dLine), Qt::AlignVCenter,
                       ToQt(grid.Column(i).m_strTitle));
    alone.end();
    // Above the line that stands below the titles.
    const int nTop = qRound(body.top());
    const int nEnd = qRound(body.top() + dLine) - 3;
    const double dWhole = Ink(titles, nTop, nEnd);
    EXPECT_GT(dWhole, 0.0);
    EXPECT_NEAR(Ink(page, nTop, nEnd), dWhole, dWhole * 0.03);
}

TEST(Print, TreeStandsInItsOrder)
{
    std::vector<STreeRow> rows = {{DivisionsRoot, "Divisions", 2, 0, true, true}};
    for (int i = 0; i < 150; ++i)
        rows.push_back({{NodeKind::Division, i}, "Division " + std::to_string(i), 2, 1, false, false});
    CTreePrintJob job(rows, "Event", "2026-11-23");
    QImage page = BlankPage();
    QPainter painter(&page);
    EXPECT_EQ(job.Paginate(painter, page.rect()), 2);
    job.DrawPage(painter, page.rect(), 0);
    int nLeft = 0;
    while (InkInColumn(page, nLeft) == 0)
        ++nLeft;
    EXPECT_LT(nLeft, 5) << "the root begins at the edge";
    const int nChild = nLeft + Dpi * 8 / 72; // an indent of more than a line's height
    EXPECT_GT(InkInColumn(page, nChild + 4) + InkInColumn(page, nChild + 8), 100)
        << "its children stand further in";
}

struct SThreePages : CPrintJob
{
    int Paginate(QPainter&, const QRectF&) override { return 3; }
    void DrawPage(QPainter&, const QRectF&, int nPage) override { pages.push_back(nPage); }
    std::vector<int> pages;
};

TEST(Print, ThePreviewShowsAsManyPagesAsLastTime)
{
    using enum QPrintPreviewWidget::ViewMode;
    CMemorySettings settings;
    SThreePages job;
    for (const auto& [before, after, strStored] : {std::tuple{SinglePageView, FacingPagesView, "2"},
                                                   {FacingPagesView, AllPagesView, "3"},
                                                   {AllPagesView, SinglePageView, "1"},
                                                   {SinglePageView, SinglePageView, "1"}})
    {
        const auto open = [&] {
            QPrinter printer;
            ShowPrintPreview(nullptr, printer, job, settings);
            return settings.Read("Settings", "PreviewPages");
        };
        const auto turn = [&, now = before, next = after](QDialog& dialog) {
            auto* pPages = dialog.findChild<QPrintPreviewWidget*>();
            EXPECT_EQ(pPages->viewMode(), now);
            pPages->setViewMode(next);
            dialog.reject();
        };
        EXPECT_EQ(Drive(open, turn), strStored);
    }
}

/// Page objects of a PDF; the tree that holds them is of type "Pages".
int PdfPages(const QString& strPath)
{
    QFile file(strPath);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    return static_cast<int>(bytes.count("/Type /Page") - bytes.count("/Type /Pages"));
}

TEST(Print, MapAndGraphFillOnePageEach)
{
    SWindowWith<CScriptedDesktop> window;
    window.desktop.Files("*.*", {window.folder.Write("anna.nmea", Sentences(140))});
    window.pFrame->Router().CarryOut(ECommand::ImportTrackFiles);
    window.pFrame->setPalette(QPalette(Qt::white, Qt::black)); // paper stays white all the same
    int nScenes = 0;
    for (QAbstractScrollArea* pArea : window.pFrame->findChildren<QAbstractScrollArea*>()) {
        auto* pPane = dynamic_cast<CScenePane*>(pArea);
        if (pPane == nullptr)
            continue;
        ++nScenes;
        const std::string strPane = FromQt(pPane->accessibleName());
        CScenePrintJob job(pPane->View(), "Anna", "2026-11-24");
        constexpr int nMargin = 40;
        QImage page = BlankPage();
        const QRectF area = page.rect().adjusted(nMargin, nMargin, -nMargin, -nMargin);
        QPainter painter(&page);
        EXPECT_EQ(job.Paginate(painter, area), 1) << strPane;
        job.DrawPage(painter, area, 0);
        painter.end();
        EXPECT_EQ(qGray(page.pixel(1, 1)), 255) << strPane;
        const auto [nFirst, nLast] = InkedRows(page);
        EXPECT_GE(nFirst, nMargin) << strPane;
        EXPECT_LT(nFirst, nMargin + Dpi / 4) << strPane << ": the heading stands on top";
        EXPECT_LT(nLast, page.height() - nMargin) << strPane;
        EXPECT_GT(nLast, page.height() / 2) << strPane << ": the picture is as large as the page allows";
        int nColoured = 0; // light as a thin, smoothed line may be
        for (int x = 0; x < page.width(); ++x) {
            bool bColour = false;
            for (int y = nMargin + Dpi / 4; y < page.height(); ++y)
                bColour = bColour || qGray(page.pixel(x, y)) < 240;
            nColoured += bColour ? 1 : 0;
        }
        EXPECT_GT(nColoured, page.width() / 2) << strPane << " goes over the page below its heading";

        QPrinter printer(QPrinter::HighResolution);
        const QString strPath = ToQt(window.folder.Path("scene.pdf"));
        printer.setOutputFileName(strPath);
        DrawPages(job, printer);
        EXPECT_EQ(PdfPages(strPath), 1) << strPane;
    }
    EXPECT_EQ(nScenes, 2);
}

TEST(Print, PagesAreWrittenOneByOne)
{
    CTemporaryFolder folder;
    for (const auto& [nFrom, nTo, expected] :
         {std::tuple{0, 0, std::vector{0, 1, 2}}, {2, 3, std::vector{1, 2}}, {3, 9, std::vector{2}}})
    {
        QPrinter printer;
        printer.setOutputFileName(ToQt(folder.Path("pages.pdf")));
        if (nFrom != 0) {
            printer.setPrintRange(QPrinter::PageRange);
            printer.setFromTo(nFrom, nTo);
        }
        SThreePages job;
        DrawPages(job, printer);
        EXPECT_EQ(job.pages, expected) << nFrom << " to " << nTo;
    }
}

} // namespace
} // namespace kestrabel::test
