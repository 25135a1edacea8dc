#include "signatorypanel.h"

#include "actionbutton.h"

#include <QVBoxLayout>

namespace signdesk {

SignatoryPanel::SignatoryPanel(const DeskActions &actions, QWidget *parent)
    : QGroupBox(tr("Certificate"), parent)
    , m_owner(new QLabel)
{
    m_owner->setWordWrap(true);
    m_owner->setTextFormat(Qt::PlainText);
    m_owner->setObjectName(QStringLiteral("signatory"));
    auto *const column = new QVBoxLayout(this);
    column->addWidget(m_owner);
    column->addWidget(new ActionButton(tr("Digital signat&ure..."), actions.signatory));
    show({});
}

void SignatoryPanel::show(const Signatory &signatory)
{
    m_owner->setText(signatory.key == nullptr ? tr("None: ink alone") : tr("Signed as %1").arg(signatory.key->owner()));
}

} // namespace signdesk
