#pragma once

#include "present/scene/Scene.h"

#include <QFont>
#include <QFontMetricsF>

class QImage;
class QPainter;

namespace kestrabel {

/// How large the texts of a scene are in a font whose size is in the scene's pixels, or in those of a screen.
class CFontTextSize : public CSceneTextSize
{
public:
    explicit CFontTextSize(const QFont& font) : m_metrics(font) {}
    double Width(std::string_view strText) const override;
    double Height() const override { return m_metrics.height(); }

private:
    QFontMetricsF m_metrics;
};

struct SSceneStyle
{
    QFont font;
    double dPenScale = 1.0; ///< painter's units per pixel of a pen's width
    bool bDark = false;     ///< the background is: colours are turned from dark to light
};

/// Lines, circles and texts.
std::size_t PrimitiveCount(const SSceneLayer& layer);

/// Draws a layer smoothly, in the painter's units.
void PaintLayer(QPainter& painter, const SSceneLayer& layer, const SSceneStyle& style);

/// Draws a layer whose lines are so many that they run into each other: these are one pixel of the picture
/// thin and either cover a pixel or not. Which ones is what the scene reckons with when it leaves out lines
/// that are covered by later ones.
void PaintDenseLayer(QImage& picture, const SSceneLayer& layer, const SSceneStyle& style);

} // namespace kestrabel
