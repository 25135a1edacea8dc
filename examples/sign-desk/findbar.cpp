#include "findbar.h"

#include <QHBoxLayout>
#include <QKeyEvent>

namespace signdesk {

namespace {

constexpr int kFindAfter = 300; ///< milliseconds after the last letter

} // namespace

FindBar::FindBar(TextSearch &search, QWidget *parent)
    : QWidget(parent)
    , m_search(search)
    , m_text(new QLineEdit)
    , m_outcome(new QLabel)
{
    m_text->setAccessibleName(tr("Find text"));
    m_text->setAccessibleDescription(tr("The text to be found on the pages; Return goes to the next place"));
    m_text->setPlaceholderText(tr("Text to be found"));
    m_text->setClearButtonEnabled(true);
    m_text->setMaxLength(200);
    m_outcome->setObjectName(QStringLiteral("found"));
    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(14, 6, 14, 0);
    row->addWidget(m_text, 2);
    QToolButton *const before = addButton(Qt::UpArrow, tr("Place before"), tr("To the place before, Shift+F3"));
    QToolButton *const next = addButton(Qt::DownArrow, tr("Next place"), tr("To the next place, F3"));
    row->addWidget(m_outcome, 1);
    connect(before, &QToolButton::clicked, this, [this] { go(false); });
    connect(next, &QToolButton::clicked, this, [this] { go(true); });
    m_typed.setSingleShot(true);
    m_typed.setInterval(kFindAfter);
    connect(m_text, &QLineEdit::textEdited, &m_typed, qOverload<>(&QTimer::start));
    connect(&m_typed, &QTimer::timeout, this, &FindBar::want);
    connect(&m_search, &TextSearch::changed, this, &FindBar::tell);
    hide();
}

QToolButton *FindBar::addButton(Qt::ArrowType arrow, const QString &name, const QString &description)
{
    auto *const button = new QToolButton;
    button->setArrowType(arrow);
    button->setAccessibleName(name);
    button->setAccessibleDescription(description);
    button->setToolTip(description);
    button->setFocusPolicy(Qt::TabFocus);
    layout()->addWidget(button);
    return button;
}

void FindBar::begin()
{
    show();
    m_text->selectAll();
    m_text->setFocus(Qt::ShortcutFocusReason);
}

void FindBar::want()
{
    m_typed.stop();
    emit wanted(m_text->text().trimmed());
}

void FindBar::go(bool isForward)
{
    const QString text = m_text->text().trimmed();
    if (!isVisible() || text.isEmpty())
        return begin();
    if (text != m_search.text())
        want();
    else
        m_search.go(isForward);
}

void FindBar::tell()
{
    const QString many = tr("more than %1").arg(TextSearch::kMostPlaces);
    if (m_search.text().isEmpty())
        m_outcome->clear();
    else if (m_search.number() > 0)
        m_outcome->setText(
            tr("%1 of %2")
                .arg(m_search.number())
                .arg(m_search.count() > TextSearch::kMostPlaces ? many : QString::number(m_search.count())));
    else
        m_outcome->setText(m_search.isRunning() ? tr("Searching...") : tr("Not found"));
}

void FindBar::end()
{
    if (!isVisible())
        return;
    m_typed.stop();
    hide();
    m_search.end();
    emit closed();
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn)
        go(!event->modifiers().testFlag(Qt::ShiftModifier));
    else if (event->key() == Qt::Key_Escape)
        end();
    else
        QWidget::keyPressEvent(event);
}

} // namespace signdesk
