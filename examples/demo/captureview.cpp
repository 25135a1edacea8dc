#include "captureview.h"

#include <QCloseEvent>
#include <QLabel>
#include <QStringList>

namespace {

constexpr int kMargin = 24;
constexpr int kLine = 56;

QLabel *label(QWidget *parent, const QRect &place, int points, const char *colour)
{
    auto *text = new QLabel(parent);
    text->setGeometry(place);
    text->setAlignment(Qt::AlignVCenter | Qt::AlignLeft);
    text->setStyleSheet(QString("font-size: %1pt; color: %2").arg(points).arg(colour));
    return text;
}

} // namespace

CaptureView::CaptureView(const PadFamily &pad, const QString &title)
{
    setWindowTitle(QString("%1 - %2").arg(pad.model, title));
    const int height = canvasHeight(pad.row, kCanvasWidth);
    setFixedSize(kCanvasWidth + 2 * kMargin, height + 2 * kLine);
    setStyleSheet("background: #e9ecef");
    label(this, {kMargin, 0, kCanvasWidth, kLine}, 15, "#212529")
        ->setText(QString("<b>%1</b>&nbsp;&nbsp; %2").arg(pad.model, title));
    m_status = label(this, {kMargin, kLine + height, kCanvasWidth, kLine}, 12, "#495057");
}

QPoint CaptureView::signingPosition() const
{
    return {kMargin, kLine};
}

void CaptureView::setStatus(const QString &text)
{
    QStringList parts;
    for (const QString &part : text.split("  ", Qt::SkipEmptyParts))
        parts += part.trimmed();
    m_status->setText(parts.join(QString::fromUtf8("  \u00b7  ")));
}

void CaptureView::closeEvent(QCloseEvent *event)
{
    m_closed = true;
    event->accept();
}
