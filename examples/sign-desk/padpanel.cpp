#include "padpanel.h"

#include "actionbutton.h"

#include <QAccessible>
#include <QFormLayout>
#include <QGridLayout>
#include <QPainter>

namespace signdesk {

namespace {

struct StateLook
{
    const char *text;
    QRgb colour;
};

StateLook lookOf(SigningState state, bool isPadAway)
{
    if (isPadAway)
        return {QT_TRANSLATE_NOOP("signdesk::PadPanel", "The pad does not answer"), 0xffc0392b};
    static constexpr StateLook looks[] = {
        {QT_TRANSLATE_NOOP("signdesk::PadPanel", "No pad in use"), 0xff8a9099},
        {QT_TRANSLATE_NOOP("signdesk::PadPanel", "The signer may write"), 0xff2667b5},
        {QT_TRANSLATE_NOOP("signdesk::PadPanel", "The signer writes"), 0xffd08700},
        {QT_TRANSLATE_NOOP("signdesk::PadPanel", "Confirmed"), 0xff2e8b57},
        {QT_TRANSLATE_NOOP("signdesk::PadPanel", "Changed since: confirm anew"), 0xffc0392b},
    };
    return looks[static_cast<int>(state)];
}

QPixmap light(QRgb colour, double pixelRatio)
{
    constexpr int kSize = 12;
    QPixmap picture(QSize(kSize, kSize) * pixelRatio);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(colour));
    painter.drawEllipse(QRectF(1, 1, kSize - 2, kSize - 2));
    return picture;
}

} // namespace

PadPanel::PadPanel(const DeskActions &actions, QWidget *parent)
    : QGroupBox(tr("Pad"), parent)
    , m_model(new QComboBox)
    , m_light(new QLabel)
    , m_state(new QLabel)
{
    for (const PadFamily &model : kPadFamilies)
        m_model->addItem(QLatin1String(model.model));
    m_model->setAccessibleDescription(tr("The signature pad that stands on the desk"));
    connect(m_model, qOverload<int>(&QComboBox::currentIndexChanged), this, &PadPanel::modelChanged);
    auto *const name = new QLabel(tr("&Model"));
    name->setBuddy(m_model);
    auto *const start =
        new ActionButton(tr("S&tart signing"), actions.start); // creation order is the order of the tab key
    start->setInviting();
    auto *const confirm = new ActionButton(tr("&Confirm"), actions.confirm);
    confirm->setInviting();
    m_confirm = confirm;

    auto *const grid = new QGridLayout(this);
    grid->addWidget(name, 0, 0);
    grid->addWidget(m_model, 0, 1);
    grid->addWidget(start, 1, 0, 1, 2);
    auto *const state = new QHBoxLayout;
    state->setContentsMargins(0, 4, 0, 4);
    state->addWidget(m_light);
    state->addWidget(m_state, 1);
    grid->addLayout(state, 2, 0, 1, 2);
    grid->addWidget(confirm, 3, 0, 1, 2);
    auto *const ways = new QHBoxLayout;
    ways->addWidget(new ActionButton(tr("C&lear"), actions.clear));
    ways->addWidget(new ActionButton(tr("Ca&ncel"), actions.cancel));
    grid->addLayout(ways, 4, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    follow(SigningState::Closed, false);
}

const PadFamily &PadPanel::model() const
{
    return kPadFamilies[static_cast<std::size_t>(m_model->currentIndex())];
}

void PadPanel::setModel(const PadFamily &model)
{
    m_model->setCurrentText(QLatin1String(model.model));
}

void PadPanel::follow(SigningState state, bool isPadAway)
{
    const StateLook look = lookOf(state, isPadAway);
    m_light->setPixmap(light(look.colour, devicePixelRatioF()));
    m_state->setText(tr(look.text));
    m_model->setEnabled(state == SigningState::Closed);
    QAccessibleEvent said(m_state, QAccessible::NameChanged); // so that a screen reader reads it out
    QAccessible::updateAccessibility(&said);
}

} // namespace signdesk
