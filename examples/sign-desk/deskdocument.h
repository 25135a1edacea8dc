/// @file
/// The document on the desk: as it was opened, and with the signatures that were added since. No widgets.
#ifndef DESKDOCUMENT_H
#define DESKDOCUMENT_H

#include "pages.h"
#include "unsavedsignature.h"

#include <optional>
#include <set>
#include <vector>

namespace signdesk {

class DeskDocument
{
public:
    explicit DeskDocument(std::unique_ptr<Pages> opened);

    /// With the signatures that were added.
    const Pages &pages() const { return m_signed == nullptr ? *m_opened : *m_signed; }
    const Pages &opened() const { return *m_opened; }

    /// The same as a PDF. Throws a Trouble when a picture cannot be made into one.
    const DocumentBytes &bytes() const;

    /// Without the form's fields that were signed here, with a certificate or not. Throws a Trouble.
    const DocumentFacts &facts() const;

    /// Whether with() can answer without any work; and an answer that was worked out on another thread.
    bool knows(const SignatureWish &wish) const;
    void learn(const SignatureWish &wish, const SignedBytes &outcome);

    /// The document with this signature too; asked again for the same one, it answers the same bytes. Throws a Trouble.
    const SignedBytes &with(const SignatureWish &wish);

    /// From now on the signature is a part of the document. Throws a Trouble.
    void add(const SignatureWish &wish);

    /// The pages of the signatures that were written and added here.
    std::set<int> signedPages() const;

    int added() const { return static_cast<int>(m_steps.size()); }

    /// Takes the last added signature away.
    void undo();

    /// As it was opened.
    void reset();

    /// What restore() needs to add the same signatures again, byte by byte: they themselves, and what the first one was
    /// added to, empty when that is the opened file.
    std::vector<AddedSignature> signatures() const;
    QByteArray base() const;

    /// Adds them to the document as it was opened. Throws a Trouble; the document is as it was opened then.
    void restore(const UnsavedSignature &unsaved);

private:
    /// What was there before a signature was added.
    struct Step
    {
        qint64 size; ///< of the document, in bytes
        QByteArray rewritten; ///< the document, when the signature was not appended to it; else empty
        std::optional<int> page; ///< with the signature, when it was written in this window
        QString formField; ///< the form's field with the signature; empty for none
    };

    void setContent(const QByteArray &content);
    void addStep(const AddedSignature &signature, std::optional<int> page);
    void forget();

    std::unique_ptr<Pages> m_opened;
    std::unique_ptr<Pages> m_signed; ///< null: as it was opened
    mutable DocumentBytes m_bytes; ///< empty until they are asked for
    mutable std::unique_ptr<DocumentFacts> m_facts;
    std::vector<Step> m_steps;
    SignatureWish m_wish; ///< the signature that led to m_outcome
    SignedBytes m_outcome;
};

} // namespace signdesk

#endif
