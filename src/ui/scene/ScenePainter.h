#pragma once

#include "present/scene/Scene.h"

#include <QFont>
#include <QFontMetricsF>

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

/// Draws a layer in the painter's units. Few lines are drawn smoothly. So many that they run into each other
/// are drawn one device pixel thin, which shows more of them, and is fast.
void PaintLayer(QPainter& painter, const SSceneLayer& layer, const SSceneStyle& style);

/// Lines and circles, to tell a layer that is worth keeping as a picture from one that is quickly drawn.
std::size_t PrimitiveCount(const SSceneLayer& layer);

} // namespace kestrabel
