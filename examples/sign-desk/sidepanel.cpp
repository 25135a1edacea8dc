#include "sidepanel.h"

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
    alignLabels(*content);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidget(content);
    setFixedWidth(content->sizeHint().width() + verticalScrollBar()->sizeHint().width());
}

} // namespace signdesk
