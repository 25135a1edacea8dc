#include "outputpanel.h"

#include "actionbutton.h"

#include <QFormLayout>
#include <QGridLayout>

namespace signdesk {

ResultPanel::ResultPanel(const DeskActions &actions, QWidget *parent)
    : QGroupBox(tr("Result"), parent)
{
    auto *const grid = new QGridLayout(this);
    auto *const save = new ActionButton(tr("Sa&ve page..."), actions.savePage);
    save->setInviting();
    grid->addWidget(save, 0, 0);
    grid->addWidget(new ActionButton(tr("P&rint..."), actions.print), 0, 1);
    grid->addWidget(new ActionButton(tr("&Done, next customer"), actions.done), 1, 0, 1, 2);
}

OutputPanel::OutputPanel(const DeskActions &actions, QWidget *parent)
    : QGroupBox(tr("Signature alone"), parent)
    , m_cutsToInk(new QCheckBox(tr("Cut exports to the in&k")))
    , m_resolution(new QComboBox)
{
    m_cutsToInk->setChecked(true);
    m_cutsToInk->setAccessibleDescription(tr("Off: an exported signature shows the whole field"));
    m_resolution->addItem(tr("300 dpi"), true);
    m_resolution->addItem(tr("150 dpi"), false);
    m_resolution->setAccessibleDescription(tr("Of an exported signature, in dots per inch"));

    auto *const form = new QFormLayout(this);
    auto *const exported = new ActionButton(tr("E&xport signature..."), actions.exportSignature);
    form->addRow(exported);
    form->addRow(tr("&Quality"), m_resolution);
    form->addRow(m_cutsToInk);
}

OutputOptions OutputPanel::options() const
{
    return {m_cutsToInk->isChecked(), m_resolution->currentData().toBool()};
}

} // namespace signdesk
