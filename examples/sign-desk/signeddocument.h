/// @file
/// The pages with the signature on them, as PDF, as a picture or on paper.
#ifndef SIGNEDDOCUMENT_H
#define SIGNEDDOCUMENT_H

#include "pages.h"

#include <QByteArray>
#include <QRectF>

class QPainter;
class QPrinter;

namespace signdesk {

/// A signature and its place on a page.
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

    /// Saves all pages as PDF, or the signed page as a picture, by the path's suffix. Throws a Trouble.
    void save(const QString &path) const;

    /// Prints the pages that the dialog chose, each as large as the paper allows. When printing to a file, it is
    /// written completely or not at all. Throws a Trouble.
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
