#include "signeddocument.h"

#include "memoryfile.h"
#include "pagefile.h"
#include "trouble.h"
#include "wholefiles.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace signdesk {

namespace {

struct DocumentWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::SignedDocument)
};

/// Scales the page to the paper and centres it.
QRectF fitted(const QSizeF &page, const QRectF &paper)
{
    QRectF target({}, page.scaled(paper.size(), Qt::KeepAspectRatio));
    target.moveCenter(paper.center());
    return target;
}

Trouble noPrinter()
{
    return {DocumentWords::tr("The printer does not take the page."),
        DocumentWords::tr(
            "See that it is switched on and has paper, or print into a file. The signature is still here.")};
}

Trouble notDrawn(int page)
{
    return {DocumentWords::tr("Page %1 cannot be drawn.").arg(page + 1),
        DocumentWords::tr("Open the file anew. The signature itself can still be exported.")};
}

} // namespace

SignedDocument::SignedDocument(const DocumentBytes &document, int page)
    : m_document(document)
    , m_pages(pagesOf({{}, document.content, {}, 0}, document.password))
    , m_page(page)
{
}

void SignedDocument::save(const QString &path, const ShowBytes &show) const
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("pdf"))
        return writeFile(path, m_document.content, show);
    if (suffix != QLatin1String("png"))
        throw Trouble{
            DocumentWords::tr("%1: a signed page is not written in this format.").arg(QFileInfo(path).fileName()),
            DocumentWords::tr("Let the name end with .pdf or .png.")};
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    if (!pageAsPicture().save(&buffer, "PNG"))
        throw notDrawn(m_page);
    writeFile(path, content);
}

QImage SignedDocument::pageAsPicture() const
{
    const double dotsPerPoint = affordableDots(m_pages->size(m_page), kFineDots);
    QImage image = m_pages->render(m_page, dotsPerPoint);
    if (image.isNull())
        throw notDrawn(m_page);
    const int dotsPerMetre = qRound(dotsPerPoint * 72 / 0.0254);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    return image;
}

void SignedDocument::print(QPrinter &printer, const ShowBytes &show) const
{
    if (!printer.outputFileName().isEmpty())
        return printIntoFile(printer, show);
    if (!printer.isValid() || printer.outputFormat() != QPrinter::NativeFormat)
        throw noPrinter();
    // The pages for a printer are spooled to a temporary file, and nobody reports when the disk is too full for it.
    MemoryFile memory;
    QPrinter tried(QPrinter::HighResolution);
    tried.setOutputFormat(QPrinter::PdfFormat);
    tried.setOutputFileName(memory.path());
    printPages(tried, show);
    const QByteArray pages = memory.content();
    if (!hasRoomForTemporary(2 * qint64{pages.size()}))
        throw Trouble{DocumentWords::tr("There is no room to print: the disk with the temporary files is full."),
            DocumentWords::tr("Make room on it, or print into a file. The signature is still here.")};
    printPages(printer, show);
}

/// QPdfWriter does not report write errors, so the file is checked afterwards.
void SignedDocument::printIntoFile(QPrinter &printer, const ShowBytes &show) const
{
    const QString path = printer.outputFileName();
    MemoryFile memory;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(memory.path());
    printPages(printer, show);
    const QByteArray content = memory.content();
    if (!isWholePdf(content))
        throw Trouble{DocumentWords::tr("The page could not be printed whole."),
            DocumentWords::tr("See that the computer has memory to spare. The signature is still here.")};
    writeFile(path, content);
}

void SignedDocument::printPages(QPrinter &printer, const ShowBytes &show) const
{
    const int first = std::max(1, printer.fromPage());
    const int last = printer.toPage() == 0 ? m_pages->count() : std::min(printer.toPage(), m_pages->count());
    QPainter painter;
    if (!painter.begin(&printer))
        throw noPrinter();
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
    for (int page = first; page <= last; ++page) {
        show(page - first, last - first + 1);
        if (page > first)
            printer.newPage();
        const QRectF target = fitted(m_pages->size(page - 1), QRectF(0, 0, printer.width(), printer.height()));
        const double dots = std::min(kFineDots, target.width() / m_pages->size(page - 1).width());
        const QImage picture = m_pages->render(page - 1, dots);
        if (picture.isNull())
            throw notDrawn(page - 1);
        painter.drawImage(target, picture);
    }
}

} // namespace signdesk
