/// @file
/// The page on the screen with the signature's field, which mouse and keys move; the signing widget lies in it.
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

    /// The pages belong to the caller and stay until others are set. The field keeps its size where it can.
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

    /// The field lies where it is and may be moved, but keeps its size: a canvas with ink does not grow.
    void setSizeLocked(bool isLocked);
    bool isSizeLocked() const { return m_isSizeLocked; }

    /// A child that lies in the field from now on.
    void setSignWidget(QWidget *widget);

    /// A child that lies in the fingerprint's own field; null: there is no such field.
    void setFingerprintWidget(QWidget *widget);

    static constexpr int kMargin = 20; ///< pixels around the page

signals:
    void fieldChanged(const QRectF &field);

    /// The field has another size in pixels.
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
