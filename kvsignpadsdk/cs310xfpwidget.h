/// @file
/// Shows the S310X fingerprint in a place of its own.
#ifndef CS310XFPWIDGET_H
#define CS310XFPWIDGET_H

#include "fingerprintplace.h"
#include "repaintrequest.h"

#include <QImage>
#include <QRect>
#include <QWidget>

#include <mutex>
#include <vector>

class CS310XFPWidget : public QWidget
{
    Q_OBJECT

public:
    static constexpr FingerprintPlaceRow row{"CS310XFPWidget::"};

    /// What the widget needs to unregister itself from its instance when it is destroyed.
    struct Owner
    {
        std::mutex *lock = nullptr;
        std::vector<CS310XFPWidget *> *widgets = nullptr;
        CS310XFPWidget **newest = nullptr;
    };

    /// Covers its parent. Without a parent (headless instances) it is never shown.
    explicit CS310XFPWidget(QWidget *pParent);
    ~CS310XFPWidget() override;

    /// Places the fingerprint in a rectangle of the widget, in its pixels.
    /// @return ARI_SUCCESS, or ARI_INVALID_PARAMETERS for a rectangle that is not wholly inside.
    int SetDisplayedFPImageAt(QWidget *pParentWidget, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight);

    /// Places it on a new white canvas of the size.
    int SetDisplayedFPImageAt(
        int nCanvasWidth, int nCanvasHeight, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight);

    /// Shows a new fingerprint layer. May be called from any thread while the widget lives.
    void UpdateFPImage(QImage image);
    void Clear();
    void Shutdown();

    /// @return a new text (array new), empty for an unknown type.
    char *EncodeBase64SignImage(
        bool bClipImage, int nClipMarginX, int nClipMarginY, bool bFPImageOnly, int nImageTypeID);
    void CheckSignImageBoundingBox(QRect &rcBoundBox);
    void clearCanvas(QImage &image, int nWidth, int nHeight);

    void paintEvent(QPaintEvent *pEvent) override;

    void setOwner(const Owner &owner) { m_owner = owner; }
    void requestRepaint() { m_repaint.make(*this); }

    QImage m_canvas; ///< what the widget shows
    QImage m_FPOnlyCanvas; ///< the newest fingerprint layer
    QRect m_NewFPRect;
    bool m_bClipImage = false;
    int m_nSaveImageClipMarginX = 0;
    int m_nSaveImageClipMarginY = 0;
    bool m_bFPImageBase64DataOnly = false;
    std::mutex pixelsLock; ///< guards both images and the rectangle

private:
    Owner m_owner;
    RepaintRequest m_repaint;
};

#endif
