#include "consentlist.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace bridge {

ConsentList::ConsentList(Consents &consents)
    : m_consents(consents)
    , m_list(new QListWidget)
{
    setWindowTitle(tr("Signature pad"));
    auto *label = new QLabel(tr("&Pages that may use the signature pad without asking:"));
    label->setBuddy(m_list);
    m_list->setAccessibleName(tr("Pages that may use the signature pad"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    m_revoke = buttons->addButton(tr("&Revoke"), QDialogButtonBox::ActionRole);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_revoke, &QPushButton::clicked, this, &ConsentList::revokeChosen);
    connect(m_list, &QListWidget::itemSelectionChanged, this,
        [this] { m_revoke->setEnabled(m_list->currentItem() != nullptr); });
    connect(&m_consents, &Consents::revoked, this, &ConsentList::fill, Qt::QueuedConnection);
    fill();
}

void ConsentList::fill()
{
    m_list->clear();
    for (const QByteArray &origin : m_consents.all())
        m_list->addItem(QString::fromLatin1(origin));
    m_revoke->setEnabled(m_list->currentItem() != nullptr);
}

void ConsentList::revokeChosen()
{
    if (const QListWidgetItem *item = m_list->currentItem())
        m_consents.revoke(item->text().toLatin1());
}

} // namespace bridge
