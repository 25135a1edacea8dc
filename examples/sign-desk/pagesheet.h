/// @file
/// The page on the screen with the signature's field. Mouse and keys move the field; the signing widget lies in it.
#ifndef PAGESHEET_H
#define PAGESHEET_H

#include "pages.h"

#include <QPixmap>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace signdesk {

class PageSheet : public QWidget
{
    Q_OBJECT
public:
    explicit PageSheet(QWidget *parent = nullptr);

    /// The caller owns the pages and keeps them until it sets others. The field keeps its size where possible.
    void setPage(const Pages &pages, int page);
    void setScale(double pixelsPerPoint);
    double scale() const { return m_scale; }
    QSizeF pageSize() const { return m_pageSize; }

    void setField(const QRectF &wish);
    QRectF field() const { return m_field; }
    void setProportions(double widthToHeight);

    /// In pixels of this widget.
    QRect fieldPixels() const { return pixelsOf(m_field); }
    QRect fingerprintPixels() const;

    /// When locked, the field can be moved but not resized, because a canvas with ink cannot grow.
    void setSizeLocked(bool isLocked);
    bool isSizeLocked() const { return m_isSizeLocked; }

    /// Puts a child widget into the field.
    void setSignWidget(QWidget *widget);

    /// Puts a child widget into the fingerprint's own field; null removes the field.
    void setFingerprintWidget(QWidget *widget);

    static constexpr int kMargin = 20; ///< pixels around the page

signals:
    void fieldChanged(const QRectF &field);

    /// The field's size in pixels has changed.
    void sizeChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class Grip
    {
        None,
        Move,
        Size
    };

    QRect pixelsOf(const QRectF &points) const;
    Grip gripAt(const QPoint &position) const;
    QRect handle() const;
    void placeChildren();
    void renderPage();
    void paintPage(QPainter &painter) const;
    void paintField(QPainter &painter) const;

    const Pages *m_pages = nullptr;
    int m_page = 0;
    QSizeF m_pageSize{595, 842};
    QPixmap m_picture;
    QTimer m_renderSoon;
    double m_scale = 1;
    double m_proportions = 2;
    QRectF m_field;
    QSize m_fieldSize;
    bool m_isSizeLocked = false;
    QPointer<QWidget> m_signWidget;
    QPointer<QWidget> m_fingerprintWidget;
    Grip m_grip = Grip::None;
    QPointF m_grippedAt;
    QRectF m_grippedField;
};

} // namespace signdesk

#endif
