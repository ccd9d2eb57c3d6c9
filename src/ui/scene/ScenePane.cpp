#include "ui/scene/ScenePane.h"

#include "ui/MenuBuilder.h"
#include "ui/scene/ScenePainter.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <utility>

namespace kestrabel {

namespace {

/// Layers of fewer lines are drawn as quickly as copied.
constexpr std::size_t KeptPrimitives = 200;

/// More run into each other, and drawing them smoothly would take longer than a frame may.
constexpr std::size_t SmoothPrimitives = 4000;

constexpr int WheelStep = QWheelEvent::DefaultDeltasPerStep;

std::optional<EViewKey> ViewKeyOf(int nKey)
{
    switch (nKey) {
    case Qt::Key_Left: return EViewKey::Left;
    case Qt::Key_Right: return EViewKey::Right;
    case Qt::Key_Up: return EViewKey::Up;
    case Qt::Key_Down: return EViewKey::Down;
    case Qt::Key_Home: return EViewKey::Home;
    case Qt::Key_End: return EViewKey::End;
    case Qt::Key_Delete: return EViewKey::Delete;
    case Qt::Key_Backspace: return EViewKey::Backspace;
    default: return std::nullopt;
    }
}

std::optional<EScroll> ScrollOf(int nAction)
{
    switch (nAction) {
    case QAbstractSlider::SliderSingleStepAdd: return EScroll::LineOn;
    case QAbstractSlider::SliderSingleStepSub: return EScroll::LineBack;
    case QAbstractSlider::SliderPageStepAdd: return EScroll::PageOn;
    case QAbstractSlider::SliderPageStepSub: return EScroll::PageBack;
    case QAbstractSlider::SliderToMinimum: return EScroll::First;
    case QAbstractSlider::SliderToMaximum: return EScroll::Last;
    case QAbstractSlider::SliderMove: return EScroll::Thumb;
    default: return std::nullopt;
    }
}

SModifiers ModifiersOf(const QInputEvent& event)
{
    return {.bShift = event.modifiers().testFlag(Qt::ShiftModifier),
            .bCtrl = event.modifiers().testFlag(Qt::ControlModifier)};
}

SScenePoint ToScene(const QPointF& point)
{
    return {point.x(), point.y()};
}

} // namespace

CScenePane::CScenePane(CSceneView& view, EPane pane, const QString& strName, CCommandRouter& router,
                       CDesktop& desktop, QWidget* pParent)
    : QAbstractScrollArea(pParent), m_view(view), m_pane(pane), m_router(router), m_desktop(desktop)
{
    setAccessibleName(strName);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(1, 1); // the splitters alone say how large the pane is
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    horizontalScrollBar()->setAccessibleName(strName + ", horizontal");
    verticalScrollBar()->setAccessibleName(strName + ", vertical");
    for (const EScrollBar bar : {EScrollBar::Horizontal, EScrollBar::Vertical})
        FollowScrollBar(bar);
    m_view.SetListener({.onChanged =
                            [this] {
                                ShowScrollBars();
                                viewport()->update();
                            },
                        .onStatus = [this] { m_onStatus(); },
                        .onDelete =
                            [this](bool bBefore) {
                                if (bBefore)
                                    m_router.DeletePointBeforeFocus();
                                else
                                    m_router.CarryOut(ECommand::DeleteTrackPoints, Place());
                            }});
}

CScenePane::~CScenePane()
{
    m_view.SetListener({});
}

// Drawing

SSceneStyle CScenePane::Style() const
{
    constexpr int MediumLightness = 128;
    return {.font = font(), .bDark = palette().color(QPalette::Base).lightness() < MediumLightness};
}

void CScenePane::ForgetPictures()
{
    m_pictures.clear();
    m_view.Refresh();
}

/// The lowest layer has the background.
const QImage& CScenePane::Picture(std::size_t nLayer, const SSceneLayer& layer, const SSceneStyle& style)
{
    SPicture& picture = m_pictures[nLayer];
    const QSize size = viewport()->size() * devicePixelRatio();
    const bool bSameSize =
        picture.image.size() == size && picture.image.devicePixelRatio() == devicePixelRatio();
    if (bSameSize && picture.nVersion == layer.nVersion)
        return picture.image;
    if (!bSameSize) {
        picture.image =
            QImage(size, nLayer == 0 ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
        picture.image.setDevicePixelRatio(devicePixelRatio());
    }
    picture.image.fill(nLayer == 0 ? palette().color(QPalette::Base) : Qt::transparent);
    picture.nVersion = layer.nVersion;
    if (PrimitiveCount(layer) > SmoothPrimitives) {
        PaintDenseLayer(picture.image, layer, style);
    } else {
        QPainter painter(&picture.image);
        PaintLayer(painter, layer, style);
    }
    return picture.image;
}

void CScenePane::paintEvent(QPaintEvent* /*pEvent*/)
{
    const SScene& scene = m_view.Scene(CFontTextSize(font()));
    const SSceneStyle style = Style();
    m_pictures.resize(scene.layers.size());
    QPainter painter(viewport());
    if (scene.layers.empty())
        painter.fillRect(viewport()->rect(), palette().color(QPalette::Base));
    for (std::size_t i = 0; i < scene.layers.size(); ++i) {
        const SSceneLayer& layer = scene.layers[i];
        if (i == 0 || PrimitiveCount(layer) >= KeptPrimitives) {
            painter.drawImage(QPoint(), Picture(i, layer, style));
        } else {
            m_pictures[i] = {};
            PaintLayer(painter, layer, style);
        }
    }
}

void CScenePane::resizeEvent(QResizeEvent* /*pEvent*/)
{
    m_view.OnSize(viewport()->width(), viewport()->height());
}

void CScenePane::changeEvent(QEvent* pEvent)
{
    QAbstractScrollArea::changeEvent(pEvent);
    switch (pEvent->type()) {
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange: ForgetPictures(); break;
    default: break;
    }
}

// Scroll bars

void CScenePane::FollowScrollBar(EScrollBar bar)
{
    QScrollBar* pBar = bar == EScrollBar::Horizontal ? horizontalScrollBar() : verticalScrollBar();
    connect(pBar, &QScrollBar::actionTriggered, this, [this, bar, pBar](int nAction) {
        if (const std::optional<EScroll> scroll = ScrollOf(nAction))
            m_view.OnScroll(bar, *scroll, pBar->sliderPosition());
    });
}

void CScenePane::ShowScrollBars()
{
    // A bar that appears or goes resizes the view, which shows its bars anew.
    if (std::exchange(m_bShowingBars, true))
        return;
    ShowScrollBar(EScrollBar::Horizontal);
    ShowScrollBar(EScrollBar::Vertical);
    m_bShowingBars = false;
}

void CScenePane::ShowScrollBar(EScrollBar bar)
{
    const bool bHorizontal = bar == EScrollBar::Horizontal;
    const Qt::ScrollBarPolicy policy =
        m_view.ScrollBar(bar).bShown ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
    if (bHorizontal && policy != horizontalScrollBarPolicy())
        setHorizontalScrollBarPolicy(policy);
    if (!bHorizontal && policy != verticalScrollBarPolicy())
        setVerticalScrollBarPolicy(policy);
    const SScrollBar shown = m_view.ScrollBar(bar);
    QScrollBar* pBar = bHorizontal ? horizontalScrollBar() : verticalScrollBar();
    const QSignalBlocker quiet(pBar); // its position is rounded, the view's is not
    pBar->setRange(0, shown.nRange - shown.nPage);
    pBar->setPageStep(shown.nPage);
    pBar->setSliderPosition(shown.nPosition);
}

// Keys and mouse

void CScenePane::keyPressEvent(QKeyEvent* pEvent)
{
    const SScenePoint middle = ToScene(QRectF(viewport()->rect()).center());
    const std::optional<EViewKey> key = ViewKeyOf(pEvent->key());
    if (key.has_value() && m_view.OnKeyDown(*key, ModifiersOf(*pEvent)))
        return;
    if (pEvent->key() == Qt::Key_Plus)
        m_view.OnMouseWheel(middle, false);
    else if (pEvent->key() == Qt::Key_Minus)
        m_view.OnMouseWheel(middle, true);
    else
        pEvent->ignore();
}

void CScenePane::mousePressEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::LeftButton)
        m_view.OnLButtonDown(ToScene(pEvent->position()), ModifiersOf(*pEvent));
    else if (pEvent->button() == Qt::RightButton)
        m_view.OnRButtonDown(ToScene(pEvent->position()));
}

void CScenePane::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::LeftButton)
        m_view.OnLButtonUp();
}

void CScenePane::mouseMoveEvent(QMouseEvent* pEvent)
{
    if (m_view.OnMouseMove(ToScene(pEvent->position()), pEvent->buttons().testFlag(Qt::LeftButton)))
        setFocus(Qt::MouseFocusReason);
}

void CScenePane::wheelEvent(QWheelEvent* pEvent)
{
    // Fine wheels and touch pads turn by parts of a step.
    m_nWheel += pEvent->angleDelta().y();
    for (; m_nWheel >= WheelStep; m_nWheel -= WheelStep)
        m_view.OnMouseWheel(ToScene(pEvent->position()), true);
    for (; m_nWheel <= -WheelStep; m_nWheel += WheelStep)
        m_view.OnMouseWheel(ToScene(pEvent->position()), false);
    pEvent->accept();
}

// Commands

SCommandPlace CScenePane::Place()
{
    SCommandPlace place;
    place.pane = m_pane;
    place.placeForNewPoint = [this] { return m_view.PlaceForNewPoint(); };
    return place;
}

void CScenePane::contextMenuEvent(QContextMenuEvent* pEvent)
{
    QPoint position = pEvent->globalPos();
    if (pEvent->reason() == QContextMenuEvent::Keyboard) {
        const QPoint middle = viewport()->rect().center();
        m_view.OnRButtonDown(ToScene(middle));
        position = viewport()->mapToGlobal(middle);
    }
    ShowContextMenu(*this, m_pane == EPane::Map ? EContextMenu::Map : EContextMenu::Graph, m_router, Place(),
                    position);
}

void CScenePane::ChooseFields()
{
    SGridFieldsDialog dialog = m_view.FieldsDialog();
    if (m_desktop.Run(dialog))
        m_view.ApplyFields(dialog);
}

} // namespace kestrabel
