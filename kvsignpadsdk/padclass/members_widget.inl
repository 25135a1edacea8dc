// The members that all widget hosts forward in the same way.
#ifndef KV_PAD // so that an editor can parse this file by itself
#include "cs300signwidget.h"
#include "defined.h"
#define KV_PAD CS300SignWidget
#endif

KV_PAD::KV_PAD(QWidget *pParent)
    : QWidget(pParent)
{
    canvashost::beginWidget(*this);
}

KV_PAD::~KV_PAD() { openinstance::destroyed(*this); }

void KV_PAD::mousePressEvent(QMouseEvent *pEvent) { canvashost::mouse(*this, *pEvent, "mousePressEvent()"); }
void KV_PAD::mouseMoveEvent(QMouseEvent *pEvent) { canvashost::mouse(*this, *pEvent, "mouseMoveEvent()"); }
void KV_PAD::paintEvent(QPaintEvent *pEvent)
{
    canvashost::paint(*this, [&] { QWidget::paintEvent(pEvent); });
}
void KV_PAD::resizeEvent(QResizeEvent *) { canvashost::resize(*this); }
