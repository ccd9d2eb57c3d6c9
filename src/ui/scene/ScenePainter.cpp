#include "ui/scene/ScenePainter.h"

#include "present/scene/PixelCover.h"
#include "ui/QtText.h"

#include <QColor>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

/// The colours are made for white. Turned lightness keeps their contrast; full colours become no lighter than
/// that they still can be told from each other.
QColor ColorOf(const SSceneColor& given, const SSceneStyle& style)
{
    QColor color(given.nRed, given.nGreen, given.nBlue);
    if (!style.bDark)
        return color;
    const float fLightest = color.hslSaturationF() > 0.5F ? 0.65F : 1.0F;
    const float fLightness = std::min(fLightest, 1.0F - 0.9F * color.lightnessF());
    color.setHslF(color.hslHueF(), color.hslSaturationF(), fLightness);
    return color;
}

QPen PenOf(const SScenePen& pen, const SSceneStyle& style)
{
    return {ColorOf(pen.color, style), pen.nWidth * style.dPenScale, Qt::SolidLine, Qt::RoundCap,
            Qt::RoundJoin};
}

/// Whole numbers of the scene are the middle of a pixel.
QPointF ToPoint(const SScenePoint& point)
{
    return {point.dX + 0.5, point.dY + 0.5};
}

void PaintBands(QPainter& painter, const SSceneLayer& layer, const SSceneStyle& style)
{
    for (const SSceneBand& band : layer.bands)
        painter.fillRect(
            QRectF(band.from.dX, band.from.dY, band.to.dX - band.from.dX, band.to.dY - band.from.dY),
            ColorOf(band.color, style));
}

void PaintLines(QPainter& painter, const SSceneLayer& layer, const SSceneStyle& style)
{
    QList<QPointF> points;
    for (const SSceneLines& lines : layer.lines) {
        points.clear();
        for (const SScenePoint& end : lines.ends)
            points.push_back(ToPoint(end));
        painter.setPen(PenOf(lines.pen, style));
        painter.drawLines(points.constData(), static_cast<int>(points.size() / 2));
    }
}

void StrokeLines(QImage& picture, const SSceneLayer& layer, const SSceneStyle& style)
{
    const double dScale = picture.devicePixelRatio();
    const auto pixel = [dScale](double dPlace) {
        return static_cast<int>(std::floor(dPlace * dScale + 0.5));
    };
    const int nWidth = picture.width();
    const int nHeight = picture.height();
    auto* const pPixels = reinterpret_cast<QRgb*>(picture.bits());
    const qsizetype nStride = picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    for (const SSceneLines& lines : layer.lines) {
        const QRgb color = ColorOf(lines.pen.color, style).rgb();
        for (std::size_t i = 0; i + 1 < lines.ends.size(); i += 2) {
            const SScenePoint& from = lines.ends[i];
            const SScenePoint& to = lines.ends[i + 1];
            CPixelCover::ForEachPixel(pixel(from.dX), pixel(from.dY), pixel(to.dX), pixel(to.dY),
                                      [&](int nX, int nY) {
                                          if (nX >= 0 && nX < nWidth && nY >= 0 && nY < nHeight)
                                              pPixels[nY * nStride + nX] = color;
                                      });
        }
    }
}

void PaintCurves(QPainter& painter, const SSceneLayer& layer, const SSceneStyle& style)
{
    QList<QPointF> points;
    for (const SScenePolyline& line : layer.polylines) {
        points.clear();
        for (const SScenePoint& point : line.points)
            points.push_back(ToPoint(point));
        painter.setPen(PenOf(line.pen, style));
        painter.drawPolyline(points.constData(), static_cast<int>(points.size()));
    }
    painter.setBrush(Qt::NoBrush);
    for (const SSceneCircle& circle : layer.circles) {
        painter.setPen(PenOf(circle.pen, style));
        painter.drawEllipse(ToPoint(circle.centre), circle.dRadiusX, circle.dRadiusY);
    }
}

void PaintText(QPainter& painter, const SSceneText& text, const SSceneStyle& style)
{
    constexpr double Wide = 1e5; // any text fits
    const auto begin = [](double dAt, ESceneAlign align) {
        switch (align) {
        case ESceneAlign::Low: return dAt;
        case ESceneAlign::Middle: return dAt - Wide / 2.0;
        case ESceneAlign::High: break;
        }
        return dAt - Wide;
    };
    constexpr Qt::AlignmentFlag horizontal[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    constexpr Qt::AlignmentFlag vertical[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    const QRectF box(begin(text.at.dX, text.horizontal), begin(text.at.dY, text.vertical), Wide, Wide);
    painter.setPen(ColorOf(text.color, style));
    painter.drawText(box,
                     horizontal[static_cast<int>(text.horizontal)] |
                         vertical[static_cast<int>(text.vertical)] | Qt::TextSingleLine,
                     ToQt(text.strText));
}

void PaintTexts(QPainter& painter, const SSceneLayer& layer, const SSceneStyle& style)
{
    painter.setFont(style.font);
    for (const SSceneText& text : layer.texts)
        PaintText(painter, text, style);
}

} // namespace

double CFontTextSize::Width(std::string_view strText) const
{
    return m_metrics.horizontalAdvance(ToQt(strText));
}

std::size_t PrimitiveCount(const SSceneLayer& layer)
{
    std::size_t nCount = layer.circles.size() + layer.texts.size();
    for (const SSceneLines& lines : layer.lines)
        nCount += lines.Count();
    for (const SScenePolyline& line : layer.polylines)
        nCount += line.points.size();
    return nCount;
}

void PaintLayer(QPainter& painter, const SSceneLayer& layer, const SSceneStyle& style)
{
    painter.setRenderHint(QPainter::Antialiasing);
    PaintBands(painter, layer, style);
    PaintLines(painter, layer, style);
    PaintCurves(painter, layer, style);
    PaintTexts(painter, layer, style);
}

void PaintDenseLayer(QImage& picture, const SSceneLayer& layer, const SSceneStyle& style)
{
    if (!layer.bands.empty()) {
        QPainter painter(&picture);
        PaintBands(painter, layer, style);
    }
    StrokeLines(picture, layer, style);
    QPainter painter(&picture);
    PaintCurves(painter, layer, style);
    PaintTexts(painter, layer, style);
}

} // namespace kestrabel
