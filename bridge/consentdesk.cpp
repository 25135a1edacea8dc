#include "consentdesk.h"

#include "journal.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace bridge {

namespace {

constexpr qint64 kDeniedMs = 30000;
constexpr int kDeafMs = 400;
constexpr int kLongWord = 32;

/// A name may have 253 letters, and what counts is its end: it can be broken into lines anywhere.
QString breakable(const QString &name)
{
    QString text = name;
    for (int at = kLongWord; at < text.size(); at += kLongWord + 1)
        text.insert(at, QChar(0x200b));
    return text;
}

} // namespace

ConsentDesk::ConsentDesk(Consents &consents, bool canAsk, QObject *parent)
    : QObject(parent)
    , m_consents(consents)
    , m_canAsk(canAsk)
{
}

ConsentDesk::~ConsentDesk() = default;

QMessageBox *ConsentDesk::window() const
{
    return m_window.get();
}

void ConsentDesk::ask(const QByteArray &origin, QObject *asker, Answer answer)
{
    if (!m_canAsk || wasJustDenied(origin)) {
        QTimer::singleShot(0, asker, [answer = std::move(answer)] { answer(false); });
        return;
    }
    m_questions.push_back({origin, asker, std::move(answer)});
    connect(asker, &QObject::destroyed, this, &ConsentDesk::showNext, Qt::QueuedConnection);
    showNext();
}

void ConsentDesk::withdraw(const QObject *asker)
{
    for (Question &question : m_questions) {
        if (question.asker == asker)
            question.asker.clear();
    }
    showNext();
}

bool ConsentDesk::wasJustDenied(const QByteArray &origin) const
{
    const auto denied = m_denied.constFind(origin);
    return denied != m_denied.constEnd() && denied->elapsed() < kDeniedMs;
}

void ConsentDesk::showNext()
{
    if (m_window && !m_questions.front().asker)
        m_window.reset();
    while (!m_questions.empty() && !m_questions.front().asker && !m_window)
        m_questions.erase(m_questions.begin());
    if (m_window || m_questions.empty())
        return;
    const QString page = breakable(QString::fromLatin1(m_questions.front().origin));
    m_window = std::make_unique<QMessageBox>(
        QMessageBox::Question, tr("Signature pad"), tr("%1 wants to use the signature pad.").arg(page));
    m_window->setTextFormat(Qt::PlainText);
    m_window->setInformativeText(
        tr("It will see what is written on the pad, as it is written. Allow only pages that you know."));
    m_window->setWindowFlag(Qt::WindowStaysOnTopHint);
    QPushButton *no = m_window->addButton(tr("&Do not allow"), QMessageBox::RejectRole);
    QPushButton *once = m_window->addButton(tr("Allow &once"), QMessageBox::AcceptRole);
    QPushButton *always = m_window->addButton(tr("Allow al&ways"), QMessageBox::AcceptRole);
    once->setObjectName(QStringLiteral("once"));
    always->setObjectName(QStringLiteral("always"));
    no->setObjectName(QStringLiteral("no"));
    // Whoever is typing when the window appears says nothing with it.
    m_window->setDefaultButton(no);
    m_window->setEscapeButton(no);
    // Nor does a click that was meant for what was there before.
    for (QPushButton *button : {once, always}) {
        button->setEnabled(false);
        QTimer::singleShot(kDeafMs, button, [button] { button->setEnabled(true); });
    }
    connect(m_window.get(), &QMessageBox::finished, this, [this, once, always] {
        const QAbstractButton *clicked = m_window->clickedButton();
        settle(clicked == always ? Consent::Always : clicked == once ? Consent::Once : Consent::No);
    });
    m_window->show();
}

void ConsentDesk::settle(Consent consent)
{
    const Question question = m_questions.front();
    m_questions.erase(m_questions.begin());
    m_window.release()->deleteLater();
    if (consent == Consent::Always && !m_consents.add(question.origin))
        Journal::say(tr("the consent cannot be stored"));
    if (consent == Consent::No)
        m_denied[question.origin].start();
    if (question.asker)
        question.answer(consent != Consent::No);
    showNext();
}

} // namespace bridge
