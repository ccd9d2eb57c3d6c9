#include "ui/print/ScenePrintJob.h"

#include "ui/print/PageFrame.h"
#include "ui/scene/ScenePainter.h"

#include <QPainter>

#include <cmath>
#include <utility>

namespace kestrabel {

namespace {

/// Scenes leave out what is not seen in pixels of this size. Finer ones only make long tracks large files.
constexpr double PrintedDotsPerInch = 300.0;
constexpr double ScreenDotsPerInch = 96.0;
constexpr double PointsPerInch = 72.0;

} // namespace

CScenePrintJob::CScenePrintJob(CSceneView& view, QString strHeader, QString strDate)
    : m_view(view), m_strHeader(std::move(strHeader)), m_strDate(std::move(strDate))
{
}

void CScenePrintJob::DrawPage(QPainter& painter, const QRectF& page, int /*nPage*/)
{
    painter.setFont(CPageFrame::Font());
    painter.setPen(Qt::black);
    CPageFrame::Draw(painter, page, m_strHeader, m_strDate, {});

    const QRectF body = CPageFrame::Body(painter, page);
    const double dDots = painter.device()->logicalDpiX() / PrintedDotsPerInch; // of the device per scene's
    QFont font = CPageFrame::Font();
    font.setPixelSize(static_cast<int>(std::lround(font.pointSizeF() * PrintedDotsPerInch / PointsPerInch)));
    const double dScale = PrintedDotsPerInch / ScreenDotsPerInch;
    const SSceneArea area = {0, 0, static_cast<std::int32_t>(body.width() / dDots),
                             static_cast<std::int32_t>(body.height() / dDots)};
    const SScene scene = m_view.PrintScene(area, dScale, CFontTextSize(font));

    painter.save();
    painter.translate(body.topLeft());
    painter.scale(dDots, dDots);
    painter.setClipRect(QRectF(0, 0, area.Width(), area.Height()));
    for (const SSceneLayer& layer : scene.layers)
        PaintLayer(painter, layer, {.font = font, .dPenScale = dScale});
    painter.restore();
}

} // namespace kestrabel
