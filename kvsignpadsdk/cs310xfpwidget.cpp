#include "cs310xfpwidget.h"

#include "canvashost.h"

#include <algorithm>

CS310XFPWidget::CS310XFPWidget(QWidget *pParent)
    : QWidget(pParent)
{
    static constexpr logging::Key key{row.scope, "CS310XFPWidget()"};
    KV_LOG(key, "<%ld>-Enter...");
    if (pParent != nullptr)
        setGeometry(0, 0, pParent->width(), pParent->height());
    fingerprintplace::begin(*this, size());
    KV_LOG(key, "<%ld>-leave !");
}

CS310XFPWidget::~CS310XFPWidget()
{
    if (m_owner.lock == nullptr)
        return;
    const std::lock_guard<std::mutex> writing(*m_owner.lock);
    auto &widgets = *m_owner.widgets;
    widgets.erase(std::remove(widgets.begin(), widgets.end(), this), widgets.end());
    if (*m_owner.newest == this)
        *m_owner.newest = nullptr;
}

int CS310XFPWidget::SetDisplayedFPImageAt(QWidget *pParentWidget, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight)
{
    static constexpr logging::Key key{row.scope, "SetDisplayedFPImageAt()"};
    KV_LOG(key, "<%ld>-Enter, pParentWidget=%lx, nFPLeft=%d, nFPTop=%d, nFPWidth=%d, nFPHeight=%d",
        logging::address(pParentWidget), nFPLeft, nFPTop, nFPWidth, nFPHeight);
    return fingerprintplace::placeAt(
        *this, key, fingerprintplace::rectangle(nFPLeft, nFPTop, nFPWidth, nFPHeight), rect());
}

int CS310XFPWidget::SetDisplayedFPImageAt(
    int nCanvasWidth, int nCanvasHeight, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight)
{
    return fingerprintplace::placeOnCanvas(*this, nCanvasWidth, nCanvasHeight, nFPLeft, nFPTop, nFPWidth, nFPHeight);
}

void CS310XFPWidget::UpdateFPImage(QImage image)
{
    fingerprintplace::updateImage(*this, image);
}

void CS310XFPWidget::Clear()
{
    fingerprintplace::clear(*this);
}

void CS310XFPWidget::Shutdown()
{
    fingerprintplace::shutdown(*this);
}

char *CS310XFPWidget::EncodeBase64SignImage(
    bool bClipImage, int nClipMarginX, int nClipMarginY, bool bFPImageOnly, int nImageTypeID)
{
    return fingerprintplace::imageText(*this, {bClipImage, nClipMarginX, nClipMarginY, bFPImageOnly, nImageTypeID});
}

void CS310XFPWidget::CheckSignImageBoundingBox(QRect &rcBoundBox)
{
    const std::lock_guard<std::mutex> reading(pixelsLock);
    rcBoundBox = inkbounds::clipRect(*this, m_canvas);
}

void CS310XFPWidget::clearCanvas(QImage &image, int nWidth, int nHeight)
{
    canvashost::clearCanvas(image, nWidth, nHeight);
}

void CS310XFPWidget::paintEvent(QPaintEvent *pEvent)
{
    static constexpr logging::Key key{row.scope, "paintEvent()"};
    KV_LOG_INSIDE_THREAD(key, "<%ld>-Enter...");
    m_repaint.painted();
    QWidget::paintEvent(pEvent);
    const std::lock_guard<std::mutex> reading(pixelsLock);
    canvashost::show(*this, m_canvas);
    KV_LOG_INSIDE_THREAD(key, "<%ld>-leave !");
}
