/// @file
/// The pages with the signature on them: as PDF, as picture, on paper.
#ifndef SIGNEDDOCUMENT_H
#define SIGNEDDOCUMENT_H

#include "pages.h"

#include <QByteArray>
#include <QRectF>

class QPainter;
class QPrinter;

namespace signdesk {

/// A signature where it belongs.
struct PlacedSignature
{
    int page = 0;
    QByteArray strokes; ///< SVG; empty for a fingerprint alone
    QRectF field; ///< in points
    QImage fingerprint; ///< null without one
    QRectF fingerprintField;
};

class SignedDocument
{
public:
    SignedDocument(const Pages &pages, PlacedSignature signature);

    /// All pages as PDF, or the signed one as a picture, by the path's suffix. Throws a Trouble.
    void save(const QString &path) const;

    /// All pages, each as large as the paper allows; those that the print dialog chose. A file comes to be whole or
    /// not at all. Throws a Trouble.
    void print(QPrinter &printer) const;

private:
    void printIntoFile(QPrinter &printer) const;
    void printPages(QPrinter &printer) const;
    void paint(QPainter &painter, int page, const QRectF &target, double dotsPerPoint) const;
    bool writePdf(QIODevice &file) const;
    QImage signedPage() const;

    const Pages &m_pages;
    PlacedSignature m_signature;
};

} // namespace signdesk

#endif
