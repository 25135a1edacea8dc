// The signature's field on its page: mouse, keys, ink.
#include "pageview.h"
#include "signfield.h"

#include <QMouseEvent>

namespace signdesk {

namespace {

constexpr int kReach = 8; ///< pixels around the field where the mouse takes hold of it
constexpr int kHandle = 12;

} // namespace

void PageView::setField(int page, const QRectF &wish)
{
    const QRectF field = m_formField.isEmpty() ? fieldOnPage(wish, m_layout.pageSize(page), m_proportions)
                                               : canvasIn(m_formField, QSizeF(m_proportions, 1));
    if (field == m_field && page == m_fieldPage)
        return;
    m_fieldPage = page;
    m_field = field;
    follow();
    emit fieldChanged();
}

void PageView::setFormField(int page, const QRectF &field)
{
    m_formField = field;
    setField(field.isEmpty() ? m_fieldPage : page, m_field);
    viewport()->update();
}

void PageView::setProportions(double widthToHeight)
{
    m_proportions = widthToHeight;
    setField(m_field);
}

void PageView::setInk(const documents::Ink &ink, bool isGrown)
{
    m_ink->show(ink, isGrown);
    if (m_ink->isVisibleTo(this) == ink.canvas.isEmpty()) {
        m_ink->setVisible(!ink.canvas.isEmpty());
        viewport()->update();
    }
}

void PageView::setFingerprint(const QRectF &place, const QImage &picture)
{
    if (place == m_fingerprintPlace && picture == m_fingerprint)
        return;
    m_fingerprintPlace = place;
    m_fingerprint = picture;
    viewport()->update();
}

QRect PageView::handle() const
{
    return {fieldPixels().bottomRight() - QPoint(kHandle / 2 - 2, kHandle / 2 - 2), QSize(kHandle, kHandle)};
}

PageView::Grip PageView::gripAt(const QPoint &position) const
{
    if (!m_formField.isEmpty())
        return Grip::None;
    if (handle().contains(position))
        return Grip::Size;
    return fieldPixels().adjusted(-kReach, -kReach, kReach, kReach).contains(position) ? Grip::Move : Grip::None;
}

/// A place in the viewport, in points of that page.
QPointF PageView::onPage(int page, const QPointF &pixels) const
{
    return (pixels - pagePixels(page).topLeft()) / scale();
}

void PageView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_grip = gripAt(event->pos());
    m_grippedAt = onPage(m_fieldPage, event->localPos()) - m_field.topLeft();
    m_grippedField = m_field;
}

/// The field goes with the mouse, also to another page.
void PageView::mouseMoveEvent(QMouseEvent *event)
{
    if (m_grip == Grip::Move) {
        const int page = m_isPageLocked ? m_fieldPage : m_layout.pageAt(event->localPos().y() + offset().y());
        setField(page, QRectF(onPage(page, event->localPos()) - m_grippedAt, m_grippedField.size()));
    } else if (m_grip == Grip::Size) {
        const QPointF at = onPage(m_fieldPage, event->localPos()) - m_grippedField.topLeft();
        setField(m_grippedField.adjusted(0, 0, at.x() - m_grippedAt.x(), 0));
    } else {
        const Grip grip = gripAt(event->pos());
        viewport()->setCursor(grip == Grip::Size ? Qt::SizeFDiagCursor
                : grip == Grip::Move             ? Qt::SizeAllCursor
                                                 : Qt::ArrowCursor);
    }
}

void PageView::mouseReleaseEvent(QMouseEvent * /*event*/)
{
    m_grip = Grip::None;
}

void PageView::keyPressEvent(QKeyEvent *event)
{
    if (scrollBy(*event))
        return;
    const double step = (event->modifiers().testFlag(Qt::ControlModifier) ? 10 : 1) * kPointsPerMillimetre;
    switch (event->key()) {
    case Qt::Key_Left:
        return setField(m_field.translated(-step, 0));
    case Qt::Key_Right:
        return setField(m_field.translated(step, 0));
    case Qt::Key_Up:
        return setField(m_field.translated(0, -step));
    case Qt::Key_Down:
        return setField(m_field.translated(0, step));
    case Qt::Key_Plus:
        return setField(m_field.adjusted(0, 0, step, 0));
    case Qt::Key_Minus:
        return setField(m_field.adjusted(0, 0, -step, 0));
    default:
        event->ignore(); // not to the base class: the arrow keys move the field, not the view
    }
}

} // namespace signdesk
