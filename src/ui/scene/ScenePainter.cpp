#include "ui/scene/ScenePainter.h"

#include "ui/QtText.h"

#include <QColor>
#include <QPainter>

#include <algorithm>

namespace kestrabel {

namespace {

/// Beyond these smooth drawing takes longer than a frame may.
constexpr std::size_t SmoothLines = 4000;

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

QPen PenOf(const SScenePen& pen, const SSceneStyle& style, bool bSmooth)
{
    QPen result(ColorOf(pen.color, style));
    const bool bHairline = !bSmooth && pen.nWidth == 1;
    result.setWidthF(bHairline ? 1.0 : pen.nWidth * style.dPenScale);
    result.setCosmetic(bHairline);
    result.setCapStyle(Qt::RoundCap);
    result.setJoinStyle(Qt::RoundJoin);
    return result;
}

QPointF ToPoint(const SScenePoint& point)
{
    return {point.dX, point.dY};
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
    const bool bSmooth = PrimitiveCount(layer) <= SmoothLines;
    painter.setRenderHint(QPainter::Antialiasing, bSmooth);
    for (const SSceneBand& band : layer.bands)
        painter.fillRect(QRectF(ToPoint(band.from), ToPoint(band.to)), ColorOf(band.color, style));

    QList<QPointF> points;
    for (const SSceneLines& lines : layer.lines) {
        points.clear();
        for (const SScenePoint& end : lines.ends)
            points.push_back(ToPoint(end));
        painter.setPen(PenOf(lines.pen, style, bSmooth));
        painter.drawLines(points.constData(), static_cast<int>(points.size() / 2));
    }
    for (const SScenePolyline& line : layer.polylines) {
        points.clear();
        for (const SScenePoint& point : line.points)
            points.push_back(ToPoint(point));
        painter.setPen(PenOf(line.pen, style, bSmooth));
        painter.drawPolyline(points.constData(), static_cast<int>(points.size()));
    }
    painter.setBrush(Qt::NoBrush);
    for (const SSceneCircle& circle : layer.circles) {
        painter.setPen(PenOf(circle.pen, style, bSmooth));
        painter.drawEllipse(ToPoint(circle.centre), circle.dRadiusX, circle.dRadiusY);
    }
    painter.setFont(style.font);
    for (const SSceneText& text : layer.texts)
        PaintText(painter, text, style);
}

} // namespace kestrabel
