#include "pagesheet.h"

#include "signfield.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace signdesk {

namespace {

constexpr int kReach = 8; ///< pixels around the field where the mouse takes hold of it
constexpr int kHandle = 12;
constexpr int kRenderAfter = 120; ///< milliseconds without another change of size
const QColor kAccent(38, 103, 181);

} // namespace

PageSheet::PageSheet(QWidget *parent)
    : QWidget(parent)
    , m_ink(new InkView(this))
{
    m_ink->hide();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName(tr("Page to sign"));
    setAccessibleDescription(tr("The arrow keys move the signature's field by a millimetre, with Ctrl by ten; "
                                "plus and minus change its size."));
    m_renderSoon.setSingleShot(true);
    m_renderSoon.setInterval(kRenderAfter);
    connect(&m_renderSoon, &QTimer::timeout, this, &PageSheet::renderPage);
}

void PageSheet::setPage(const Pages &pages, int page)
{
    m_pages = &pages;
    m_page = page;
    m_pageSize = pages.size(page);
    setScale(m_scale);
    renderPage();
    setField(m_field);
}

void PageSheet::setScale(double pixelsPerPoint)
{
    m_scale = pixelsPerPoint;
    const QSize page = (m_pageSize * m_scale).toSize();
    setFixedSize(page.width() + 2 * kMargin, page.height() + 2 * kMargin);
    m_renderSoon.start();
    placeChildren();
    update();
}

void PageSheet::setField(const QRectF &wish)
{
    const QRectF field = m_formField.isEmpty() ? fieldOnPage(wish, m_pageSize, m_proportions)
                                               : canvasIn(m_formField, QSizeF(m_proportions, 1));
    if (field == m_field)
        return;
    m_field = field;
    placeChildren();
    update();
    emit fieldChanged(m_field);
}

void PageSheet::setFormField(const QRectF &field)
{
    m_formField = field;
    setField(m_field);
    update();
}

void PageSheet::setProportions(double widthToHeight)
{
    m_proportions = widthToHeight;
    setField(m_field);
}

void PageSheet::setInk(const documents::Ink &ink, bool isGrown)
{
    m_ink->show(ink, isGrown);
    if (m_ink->isVisibleTo(this) == ink.canvas.isEmpty()) {
        m_ink->setVisible(!ink.canvas.isEmpty());
        update();
    }
}

void PageSheet::setFingerprint(const QRectF &place, const QImage &picture)
{
    if (place == m_fingerprintPlace && picture == m_fingerprint)
        return;
    m_fingerprintPlace = place;
    m_fingerprint = picture;
    update();
}

/// Keeps the size in pixels when the field is only moved.
QRect PageSheet::pixelsOf(const QRectF &points) const
{
    return {(points.topLeft() * m_scale).toPoint() + QPoint(kMargin, kMargin), (points.size() * m_scale).toSize()};
}

void PageSheet::placeChildren()
{
    m_ink->setGeometry(fieldPixels());
}

void PageSheet::renderPage()
{
    m_renderSoon.stop();
    if (m_pages == nullptr)
        return;
    m_picture = QPixmap::fromImage(m_pages->render(m_page, m_scale * devicePixelRatioF()));
    update();
}

QRect PageSheet::handle() const
{
    return {fieldPixels().bottomRight() - QPoint(kHandle / 2 - 2, kHandle / 2 - 2), QSize(kHandle, kHandle)};
}

PageSheet::Grip PageSheet::gripAt(const QPoint &position) const
{
    if (!m_formField.isEmpty())
        return Grip::None;
    if (handle().contains(position))
        return Grip::Size;
    return fieldPixels().adjusted(-kReach, -kReach, kReach, kReach).contains(position) ? Grip::Move : Grip::None;
}

void PageSheet::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    paintPage(painter);
    paintField(painter);
}

void PageSheet::paintPage(QPainter &painter) const
{
    const QRect page = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    painter.setPen(Qt::NoPen);
    for (int i = 4; i > 0; --i) { // a soft shadow
        painter.setBrush(QColor(0, 0, 0, 12));
        painter.drawRoundedRect(page.adjusted(-i, 2 - i, i, 2 + i), i + 1, i + 1);
    }
    painter.fillRect(page, Qt::white);
    if (!m_picture.isNull()) {
        painter.drawPixmap(page, m_picture);
    } else {
        painter.setPen(Qt::darkGray);
        painter.drawText(page, Qt::AlignCenter, tr("This page cannot be shown."));
    }
}

void PageSheet::paintField(QPainter &painter) const
{
    const bool isEmpty = !m_ink->isVisibleTo(this);
    QColor light = kAccent;
    light.setAlpha(28);
    const QRectF frame = QRectF(fieldPixels()).adjusted(-2, -2, 2, 2);
    painter.setBrush(isEmpty ? QBrush(light) : QBrush(Qt::NoBrush));
    painter.setPen(QPen(kAccent, hasFocus() ? 3 : 1.5, isEmpty ? Qt::DashLine : Qt::SolidLine));
    painter.drawRect(frame);
    if (!m_fingerprintPlace.isEmpty()) {
        if (!m_field.contains(m_fingerprintPlace))
            painter.drawRect(QRectF(pixelsOf(m_fingerprintPlace)).adjusted(-2, -2, 2, 2));
        painter.drawImage(pixelsOf(m_fingerprintPlace), m_fingerprint);
    }
    if (isEmpty) {
        painter.setPen(kAccent.darker(120));
        painter.drawText(frame, Qt::AlignCenter, tr("Signature"));
    }
    if (m_formField.isEmpty()) {
        painter.setPen(QPen(kAccent, 1.5));
        painter.setBrush(Qt::white);
        painter.drawEllipse(handle());
    }
}

void PageSheet::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_grip = gripAt(event->pos());
    m_grippedAt = event->localPos();
    m_grippedField = m_field;
}

void PageSheet::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF moved = (event->localPos() - m_grippedAt) / m_scale;
    if (m_grip == Grip::Move)
        setField(m_grippedField.translated(moved));
    else if (m_grip == Grip::Size)
        setField(m_grippedField.adjusted(0, 0, moved.x(), 0));
    else
        setCursor(gripAt(event->pos()) == Grip::Size ? Qt::SizeFDiagCursor
                : gripAt(event->pos()) == Grip::Move ? Qt::SizeAllCursor
                                                     : Qt::ArrowCursor);
}

void PageSheet::mouseReleaseEvent(QMouseEvent * /*event*/)
{
    m_grip = Grip::None;
}

void PageSheet::keyPressEvent(QKeyEvent *event)
{
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
        QWidget::keyPressEvent(event);
    }
}

} // namespace signdesk
