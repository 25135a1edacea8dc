/// @file
/// What happens at the counter, without widgets: one document, one pad, signatures one after the other.
#ifndef COUNTER_H
#define COUNTER_H

#include "busywork.h"
#include "deskdocument.h"
#include "fingerprintplacing.h"
#include "signeddocument.h"
#include "signing.h"

#include <QObject>

namespace signdesk {

/// Where the next signature goes.
struct SignaturePlace
{
    int page = 0;
    QRectF field; ///< in points
    QSizeF pageSize; ///< in points
    QString formField; ///< empty for a free place
};

class Counter : public QObject
{
    Q_OBJECT
public:
    explicit Counter(QObject *parent = nullptr);
    ~Counter() override;

    PadSession &session() { return m_session; }
    const PadSession &session() const { return m_session; }
    Signing &signing() { return m_signing; }
    const Signing &signing() const { return m_signing; }
    DeskDocument &document() { return *m_document; }
    const DeskDocument &document() const { return *m_document; }

    /// Replaces the document, and what was signed of the one before.
    void setDocument(std::unique_ptr<Pages> pages);

    /// A confirmed signature is made anew with it.
    void setSignatory(const Signatory &signatory);
    const Signatory &signatory() const { return m_signatory; }

    /// The place may change until the signature is a part of the document.
    void setPlace(const SignaturePlace &place);
    const SignaturePlace &place() const { return m_place; }

    /// Throws a Trouble when the document does not take a signature at this place.
    void needAllowed() const;

    /// Opens the pad. Throws a Trouble.
    void start(const PadFamily &model, const Pen &pen);

    /// Closes it. What is written and not a part of the document is gone.
    void stop();

    /// Brings the ink up to date. False when something was taken away since.
    bool look();
    const documents::Ink &ink() const { return m_ink; }

    /// The fingerprint; null without one. Costs a picture of it.
    QImage print() const { return m_session.fingerprint(); }
    void setFingerprintPlace(FingerprintPlace place);

    /// Where the fingerprint is or will be, in points; empty for pads without a sensor.
    QRectF printPlace() const;

    /// Runs a work that takes a while, elsewhere; false when it was cancelled.
    using RunWork = std::function<bool(const std::function<void(Progress &)> &work)>;

    /// Makes the document with what is confirmed ready for add() and result(). False when it was cancelled, or when the
    /// signer has gone on writing meanwhile. Throws a Trouble.
    bool prepare(const RunWork &run);

    /// What is confirmed becomes a part of the document. Throws a Trouble; everything is as it was then.
    void add();

    /// The pages that were signed here and confirmed.
    std::set<int> signedPages() const;

    /// The last signature that is a part of the document and was not saved.
    bool canUndo() const;
    void undo();

    /// The document with all signatures, also the one that is confirmed. Throws a Trouble.
    SignedDocument result();
    bool hasResult() const;

    /// What would be lost if the program ended now: see UnsavedSignature. Ask only while isUnderstood().
    UnsavedSignature unsaved();

    /// False while ink is there of which only an earlier state was confirmed.
    bool isUnderstood() const { return m_signing.isKept() || m_signing.state() == SigningState::Confirmed; }

    /// Adds what was left to the document, which must be the one that it was taken from, as it was opened. A signature
    /// that was confirmed is made now, with the present signatory. False when the clerk cancelled. Throws a Trouble.
    /// The document is as it was opened after either.
    bool restore(const UnsavedSignature &unsaved, const RunWork &run);

    /// All of the result was saved or printed.
    void keep();

    /// The ink alone was exported.
    void keepInk() { m_signing.keep(); }

    /// Whether nothing confirmed would be lost; and whether nothing written would be.
    bool isKept() const { return m_signing.isKept() && isDocumentKept(); }
    bool isUnsaved() const { return m_signing.isUnsaved() || !isDocumentKept(); }

signals:
    /// Signatures were added to the document or taken from it.
    void documentChanged();
    void keptChanged();

    /// What is confirmed and not a part of the document is to be placed or signed in another way.
    void confirmedChanged();

private:
    bool isDocumentKept() const { return m_kept >= m_document->added(); }
    SignatureWish wish();
    bool prepare(const SignatureWish &wish, const RunWork &run);
    void changeConfirmed();
    void setKept(int kept);

    PadSession m_session;
    Signing m_signing;
    FingerprintPlace m_fingerprintPlace = FingerprintPlace::Centre;
    std::unique_ptr<DeskDocument> m_document;
    int m_kept = 0; ///< added signatures that were saved
    Signatory m_signatory;
    SignaturePlace m_place;
    documents::Ink m_ink;
};

} // namespace signdesk

#endif
