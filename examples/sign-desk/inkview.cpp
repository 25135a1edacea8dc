#include "inkview.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace signdesk {

namespace {

constexpr double kMostInkDots = 24e6; ///< in a field much larger than the screen the lines are a little less sharp

} // namespace

InkView::InkView(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents); // the page below moves the field
    setAccessibleName(tr("Signature"));
    setAccessibleDescription(tr("Grows while the signer writes on the pad"));
}

void InkView::show(const documents::Ink &ink, bool isGrown)
{
    const bool isSame = isGrown && ink.lines.size() == m_ink.lines.size() && ink.colour == m_ink.colour
        && ink.picture == m_ink.picture && ink.picturePlace == m_ink.picturePlace;
    if (isSame)
        return;
    if (!isGrown || ink.colour != m_ink.colour)
        m_drawn = 0;
    m_ink = ink;
    update();
}

/// Brings the picture of the lines up to date.
void InkView::draw()
{
    const double dots = QSizeF(this->size()).width() * this->size().height();
    const double scale = std::min(devicePixelRatioF(), std::sqrt(kMostInkDots / dots));
    const QSize size = (QSizeF(this->size()) * scale).toSize().expandedTo({1, 1});
    if (m_lines.size() != size || m_drawn == 0 || m_drawn > m_ink.lines.size()) {
        m_lines = QImage(size, QImage::Format_ARGB32_Premultiplied);
        m_lines.fill(Qt::transparent);
        m_drawn = 0;
    }
    QPainter painter(&m_lines);
    paintLines(painter, m_ink, canvasIn(QRectF(m_lines.rect()), m_ink.canvas), m_drawn);
    m_drawn = m_ink.lines.size();
}

void InkView::paintEvent(QPaintEvent * /*event*/)
{
    if (m_ink.canvas.isEmpty() || size().isEmpty())
        return;
    draw();
    QPainter painter(this);
    paintPicture(painter, m_ink, canvasIn(QRectF(rect()), m_ink.canvas));
    painter.drawImage(rect(), m_lines);
}

} // namespace signdesk
