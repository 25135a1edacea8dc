/// @file
/// A PDF that is signed or looked at. This is the library's face, with signing.h and verify.h.
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
    int page; ///< from 0; -1 where it is on none
    QRectF place; ///< millimetres from the shown page's top left; empty where it shows nothing
    bool isSigned;
};

/// The bytes of a document, and what messages call it.
struct Content
{
    QByteArray bytes;
    QString name;
};

/// An open document. One thread at a time. What fails throws a Problem.
class Document
{
public:
    /// The file is held open: it may be renamed or removed meanwhile.
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

    /// Why it would be written anew instead of appended to, in words; empty where it is appended to.
    QString rewriteReason() const;

    struct Inside;
    Inside &inside() const { return *m_inside; }

private:
    const std::unique_ptr<Inside> m_inside;
};

} // namespace documents

#endif
