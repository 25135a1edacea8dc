/// @file
/// The pages with the signature on them, as PDF, as a picture or on paper.
#ifndef SIGNEDDOCUMENT_H
#define SIGNEDDOCUMENT_H

#include "pages.h"
#include "safefile.h"
#include "signingwork.h"

#include <QByteArray>

class QPainter;
class QPrinter;

namespace signdesk {

class SignedDocument
{
public:
    /// @param page the signed one, for a picture
    SignedDocument(const DocumentBytes &document, int page);

    /// Saves the document as PDF, or the signed page as a picture, by the path's suffix, and reads the file again.
    /// Throws a Trouble.
    void save(const QString &path, const ShowBytes &show) const;

    /// Prints the pages that the dialog chose, each as large as the paper allows. When printing to a file, it is
    /// written completely or not at all. Throws a Trouble.
    /// @param show is told the pages that are done, and all of them
    void print(QPrinter &printer, const ShowBytes &show) const;

private:
    void printIntoFile(QPrinter &printer, const ShowBytes &show) const;
    void printPages(QPrinter &printer, const ShowBytes &show) const;
    QImage pageAsPicture() const;

    DocumentBytes m_document;
    std::unique_ptr<Pages> m_pages;
    int m_page;
};

} // namespace signdesk

#endif
