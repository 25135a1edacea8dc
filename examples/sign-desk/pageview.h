/// @file
/// The pages, one below the other, with the signature's field on one of them. They scroll and zoom at any time; mouse
/// and keys move the field; the ink lies in it.
#ifndef PAGEVIEW_H
#define PAGEVIEW_H

#include "foundplaces.h"
#include "inkview.h"
#include "pagecache.h"
#include "pagelayout.h"
#include "pagerenderer.h"

#include <QAbstractScrollArea>
#include <QTimer>

#include <optional>

namespace signdesk {

class PageView : public QAbstractScrollArea
{
    Q_OBJECT
public:
    /// The renderer and the found places live as long as this view.
    PageView(PageRenderer &renderer, const FoundPlaces &found, QWidget *parent = nullptr);

    /// Shows these pages, which the renderer has too. Pages of the same sizes stay where they are, and are seen as they
    /// were until they are drawn anew.
    void setPages(const Pages &pages);

    /// Another document comes: nothing of this one is shown any more.
    void forgetPictures() { m_cache.clear(); }
    int pageCount() const { return m_layout.count(); }

    /// The page that the clerk sees, and showing another one from its top.
    int seenPage() const;
    void showPage(int page);

    /// Scrolls when it is a key for that. The arrow keys are not: they move the field.
    bool scrollBy(const QKeyEvent &key);

    void zoomBy(double factor);

    /// Makes the pages as wide as the view and keeps them so.
    void fitWidth();
    double scale() const { return m_layout.scale(); } ///< pixels to the point

    /// The field, in points of its page.
    int fieldPage() const { return m_fieldPage; }
    QRectF field() const { return m_field; }
    QSizeF pageSize() const { return m_layout.pageSize(m_fieldPage); }
    void setField(int page, const QRectF &wish);
    void setField(const QRectF &wish) { setField(m_fieldPage, wish); }
    void setProportions(double widthToHeight);

    /// Keeps the field there, in the pad's proportions, until the rectangle is empty: a field of the document's form.
    void setFormField(int page, const QRectF &field);

    /// While there is ink the field stays on its page.
    void setPageLocked(bool isLocked) { m_isPageLocked = isLocked; }

    /// In pixels of the viewport.
    QRect fieldPixels() const { return pixelsOf(m_fieldPage, m_field); }
    QRectF pagePixels(int page) const;

    void showField();

    /// Shows ink in the field; without a canvas the field waits for a signature.
    void setInk(const documents::Ink &ink, bool isGrown);
    InkView &inkView() { return *m_ink; }

    /// Shows the fingerprint, or where it will be, at that place in points; an empty place removes it.
    void setFingerprint(const QRectF &place, const QImage &picture);

    /// The found places have changed; the present one is brought into sight.
    void showFound();

    /// Whether everything in sight is drawn as it is.
    bool isDrawn();
    qint64 bytes() const { return m_cache.bytes(); } ///< of the pages' pictures

signals:
    void fieldChanged();
    void seenPageChanged(int page);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent *event) override;
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

    /// A sharp picture of what is in sight of a page that is too large to be drawn as a whole.
    struct Part
    {
        PageDrawing drawing;
        QImage picture;
    };

    QRect pixelsOf(int page, const QRectF &points) const;
    QPointF offset() const;
    std::pair<int, int> visiblePages() const;
    QPointF anchor() const;
    void applyFit();
    void setScale(double pixelsPerPoint, const QPointF &anchor);
    void updateBars();
    void follow();
    void bringIntoSight(const QRect &pixels);

    double dotsPerPoint() const;
    double wholeDots(int page) const;
    QRect visibleDots(int page) const;
    const Part *partFor(int page) const;
    std::vector<PageDrawing> missing();
    void wantPages();
    void takePage(const PageDrawing &drawing, const QImage &picture);

    Grip gripAt(const QPoint &position) const;
    QRect handle() const;
    QPointF onPage(int page, const QPointF &pixels) const;

    void paintPage(QPainter &painter, int page);
    void paintPicture(QPainter &painter, int page, const QRect &paper);
    void paintFound(QPainter &painter, int page) const;
    void paintField(QPainter &painter) const;
    void paintFingerprint(QPainter &painter) const;

    PageRenderer &m_renderer;
    const FoundPlaces &m_found;
    PageLayout m_layout;
    PageCache m_cache;
    std::vector<Part> m_parts;
    QTimer m_renderSoon;
    bool m_fitsWidth = true;
    int m_seenPage = 0;
    std::optional<int> m_shownPage; ///< until something else is scrolled to
    bool m_keepsField = true; ///< it was in sight, so it stays there when the view gets another size

    int m_fieldPage = 0;
    QRectF m_field;
    QRectF m_formField;
    double m_proportions = 2;
    bool m_isPageLocked = false;
    InkView *m_ink;
    QRectF m_fingerprintPlace;
    QImage m_fingerprint;

    Grip m_grip = Grip::None;
    QPointF m_grippedAt; ///< in points from the field's top left
    QRectF m_grippedField;
};

} // namespace signdesk

#endif
