/// @file
/// Asks the person at the desk, one question at a time, whether a page may use the pad.
#ifndef CONSENTDESK_H
#define CONSENTDESK_H

#include "consents.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <vector>

class QMessageBox;

namespace bridge {

enum class Consent
{
    Once, ///< for this connection
    Always,
    No
};

class ConsentDesk : public QObject
{
    Q_OBJECT

public:
    using Answer = std::function<void(bool)>;

    /// @param canAsk whether there is a screen to ask on; without one the answer is no
    ConsentDesk(Consents &consents, bool canAsk, QObject *parent = nullptr);
    ~ConsentDesk() override;

    bool needsQuestion(const QByteArray &origin) const { return !m_consents.has(origin); }
    /// Asks for an origin on behalf of `asker`; the answer comes later, and not when the asker has gone. Who was told
    /// no is not asked about again for half a minute.
    void ask(const QByteArray &origin, QObject *asker, Answer answer);

    /// Takes the questions of `asker` back, who hears no answer then.
    void withdraw(const QObject *asker);

    /// The window of the question that stands; null when there is none.
    QMessageBox *window() const;

private:
    struct Question
    {
        QByteArray origin;
        QPointer<QObject> asker;
        Answer answer;
    };

    void showNext();
    void settle(Consent consent);
    bool wasJustDenied(const QByteArray &origin) const;

    Consents &m_consents;
    const bool m_canAsk;
    std::vector<Question> m_questions; ///< the first is on the screen
    std::unique_ptr<QMessageBox> m_window;
    QHash<QByteArray, QElapsedTimer> m_denied;
};

} // namespace bridge

#endif
