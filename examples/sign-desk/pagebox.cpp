#include "pagebox.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

namespace signdesk {

PageBox::PageBox(QWidget *parent)
    : QWidget(parent)
    , m_page(new QSpinBox)
    , m_count(new QLabel)
{
    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 8, 0);
    row->addWidget(new QLabel(tr("Page")));
    row->addWidget(m_page);
    row->addWidget(m_count);
    m_page->setAccessibleName(tr("Page in sight"));
    m_page->setAccessibleDescription(tr("Type a number to see that page; the signature's field stays on its own"));
    m_page->setKeyboardTracking(false);
    m_page->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_page->setAlignment(Qt::AlignRight);
    m_page->setObjectName(QStringLiteral("seenPage"));
    connect(m_page, qOverload<int>(&QSpinBox::valueChanged), this, [this](int page) { emit pageChosen(page - 1); });
    setPageCount(1);
}

void PageBox::setPageCount(int count)
{
    const QSignalBlocker quiet(m_page);
    m_page->setRange(1, count);
    m_count->setText(tr("of %1").arg(count));
    m_page->setEnabled(count > 1);
}

void PageBox::setPage(int page)
{
    const QSignalBlocker quiet(m_page);
    m_page->setValue(page + 1);
}

void PageBox::begin()
{
    m_page->setFocus(Qt::ShortcutFocusReason);
    m_page->selectAll();
}

} // namespace signdesk
