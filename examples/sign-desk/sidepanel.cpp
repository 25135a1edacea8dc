#include "sidepanel.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace signdesk {

namespace {

/// Makes the labels of all panels as wide as the widest, so that the fields beside them line up.
void alignLabels(const QWidget &panels)
{
    int widest = 0;
    for (const QLabel *label : panels.findChildren<QLabel *>())
        widest = label->buddy() == nullptr ? widest : std::max(widest, label->sizeHint().width());
    for (QLabel *label : panels.findChildren<QLabel *>()) {
        if (label->buddy() != nullptr)
            label->setMinimumWidth(widest);
    }
}

} // namespace

SidePanel::SidePanel(const QList<QWidget *> &panels, QWidget *parent)
    : QScrollArea(parent)
{
    auto *const content = new QWidget;
    auto *const column = new QVBoxLayout(content);
    column->setContentsMargins(14, 14, 14, 14);
    column->setSpacing(12);
    for (QWidget *panel : panels)
        column->addWidget(panel);
    column->addStretch(1);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidget(content);
    content->installEventFilter(this);
    fit();
}

void SidePanel::fit()
{
    alignLabels(*widget());
    m_widest = std::max(m_widest, widget()->sizeHint().width());
    setFixedWidth(m_widest + verticalScrollBar()->sizeHint().width());
}

/// The panel scrolls to what has the focus; keys that scroll are the pages'.
void SidePanel::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}

bool SidePanel::eventFilter(QObject *watched, QEvent *event)
{
    const bool isResult = QScrollArea::eventFilter(watched, event);
    if (watched == widget() && (event->type() == QEvent::LayoutRequest || event->type() == QEvent::FontChange))
        fit();
    return isResult;
}

} // namespace signdesk
