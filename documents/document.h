/// @file
/// A PDF to be signed or verified. Start reading here, then go on with signing.h and verify.h.
#ifndef DOCUMENTS_DOCUMENT_H
#define DOCUMENTS_DOCUMENT_H

#include <QByteArray>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <memory>
#include <vector>

namespace documents {

struct PageFacts
{
    QSizeF size; ///< millimetres, as shown
    int rotation; ///< clockwise, degrees
};

/// A field of the form that takes a signature.
struct SignatureFieldFacts
{
    QString name;
    int page; ///< from 0; -1 when it is on no page
    QRectF place; ///< millimetres from the shown page's top left; empty for a field that shows nothing
    bool isSigned;
};

/// The bytes of a document, and what messages call it.
struct Content
{
    QByteArray bytes;
    QString name;
};

/// An open document, for one thread at a time. Its functions throw a Problem when they fail.
/// A few hostile bytes can make the reader behind it take gigabytes of memory. A program that opens documents of
/// strangers limits its memory, see limitMemory(): running out of it is a Problem like any other.
class Document
{
public:
    /// Keeps the file open, so it may be renamed or removed meanwhile.
    /// @param password of an encrypted document, as its readers have it
    explicit Document(const QString &path, const QByteArray &password = {});

    /// A document in memory.
    explicit Document(const Content &content, const QByteArray &password = {});
    ~Document();
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;

    int pageCount() const;
    PageFacts page(int index) const;
    std::vector<SignatureFieldFacts> signatureFields() const;
    bool isSigned() const;

    /// Why signing would write the file anew instead of appending to it, in words; empty when it appends.
    QString rewriteReason() const;

    struct Inside;
    Inside &inside() const { return *m_inside; }

private:
    const std::unique_ptr<Inside> m_inside;
};

} // namespace documents

#endif
