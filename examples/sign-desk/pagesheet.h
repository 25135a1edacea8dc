/// @file
/// The page on the screen with the signature's field. Mouse and keys move the field; the signing widget lies in it.
#ifndef PAGESHEET_H
#define PAGESHEET_H

#include "inkview.h"
#include "pages.h"

#include <QPixmap>
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

    /// Keeps the field there, in these proportions, until the rectangle is empty: a field of the document's form.
    void setFormField(const QRectF &field);

    /// Shows ink in the field; without a canvas the field waits for a signature.
    void setInk(const documents::Ink &ink, bool isGrown);

    /// Shows the fingerprint, or where it will be, at that place in points; an empty place removes it.
    void setFingerprint(const QRectF &place, const QImage &picture);

    InkView &inkView() { return *m_ink; }

    static constexpr int kMargin = 20; ///< pixels around the page

signals:
    void fieldChanged(const QRectF &field);

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
    QRectF m_formField;
    InkView *m_ink;
    QRectF m_fingerprintPlace;
    QImage m_fingerprint;
    Grip m_grip = Grip::None;
    QPointF m_grippedAt;
    QRectF m_grippedField;
};

} // namespace signdesk

#endif
