#include "signeddocument.h"

#include "memoryfile.h"
#include "safefile.h"
#include "trouble.h"
#include "wholefiles.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSvgRenderer>

#include <algorithm>
#include <utility>

namespace signdesk {

namespace {

struct DocumentWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::SignedDocument)
};

constexpr int kDotsPerInch = 300;
constexpr double kDotsPerPoint = kDotsPerInch / 72.0;

QPageSize pageSizeOf(const QSizeF &points)
{
    return QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch);
}

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

} // namespace

SignedDocument::SignedDocument(const Pages &pages, PlacedSignature signature)
    : m_pages(pages)
    , m_signature(std::move(signature))
{
}

void SignedDocument::save(const QString &path) const
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("pdf"))
        return writeFile(path, [this](QIODevice &file) { return writePdf(file); });
    if (suffix != QLatin1String("png"))
        throw Trouble{
            DocumentWords::tr("%1: a signed page is not written in this format.").arg(QFileInfo(path).fileName()),
            DocumentWords::tr("Let the name end with .pdf or .png.")};
    const QImage page = signedPage();
    writeFile(path, [&](QIODevice &file) { return page.save(&file, "PNG"); });
}

/// Draws the page as a picture and the strokes on it as lines.
void SignedDocument::paint(QPainter &painter, int page, const QRectF &target, double dotsPerPoint) const
{
    const QImage picture = m_pages.render(page, dotsPerPoint);
    if (picture.isNull())
        throw Trouble{DocumentWords::tr("Page %1 cannot be drawn.").arg(page + 1),
            DocumentWords::tr("Open the file anew. The signature itself can still be exported.")};
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
    painter.drawImage(target, picture);
    if (page != m_signature.page)
        return;
    const double scale = target.width() / m_pages.size(page).width();
    const auto placed = [&](const QRectF &field) {
        return QRectF(target.topLeft() + field.topLeft() * scale, field.size() * scale);
    };
    if (!m_signature.fingerprint.isNull())
        painter.drawImage(placed(m_signature.fingerprintField), m_signature.fingerprint);
    if (m_signature.strokes.isEmpty())
        return;
    QSvgRenderer strokes(m_signature.strokes);
    if (!strokes.isValid())
        throw Trouble{DocumentWords::tr("The signature cannot be drawn."),
            DocumentWords::tr("See that the computer has memory to spare. The signature is still here.")};
    strokes.render(&painter, placed(m_signature.field));
}

/// False when something could not be drawn. Whether everything reached the file must be checked on the file.
bool SignedDocument::writePdf(QIODevice &file) const
{
    QPdfWriter writer(&file);
    writer.setResolution(kDotsPerInch);
    writer.setPageSize(pageSizeOf(m_pages.size(0)));
    writer.setPageMargins({});
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    for (int page = 0; page < m_pages.count(); ++page) {
        if (page > 0) {
            writer.setPageSize(pageSizeOf(m_pages.size(page)));
            writer.newPage();
        }
        paint(painter, page, {{}, m_pages.size(page) * kDotsPerPoint}, kDotsPerPoint);
    }
    return painter.end();
}

QImage SignedDocument::signedPage() const
{
    const QSizeF page = m_pages.size(m_signature.page);
    const double dotsPerPoint = affordableDots(page, kDotsPerPoint);
    const QSizeF size = page * dotsPerPoint;
    QImage image(size.toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    const int dotsPerMetre = qRound(dotsPerPoint * 72 / 0.0254);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    QPainter painter(&image);
    paint(painter, m_signature.page, {{}, size}, dotsPerPoint);
    return image;
}

void SignedDocument::print(QPrinter &printer) const
{
    if (!printer.outputFileName().isEmpty())
        return printIntoFile(printer);
    // The pages for a printer are spooled to a temporary file, and nobody reports when the disk is too full for it.
    QByteArray pages;
    QBuffer buffer(&pages);
    buffer.open(QIODevice::WriteOnly);
    if (!printer.isValid() || printer.outputFormat() != QPrinter::NativeFormat || !writePdf(buffer))
        throw noPrinter();
    if (!hasRoomForTemporary(2 * qint64{pages.size()}))
        throw Trouble{DocumentWords::tr("There is no room to print: the disk with the temporary files is full."),
            DocumentWords::tr("Make room on it, or print into a file. The signature is still here.")};
    printPages(printer);
}

/// QPdfWriter does not report write errors, so the file is checked afterwards.
void SignedDocument::printIntoFile(QPrinter &printer) const
{
    const QString path = printer.outputFileName();
    MemoryFile memory;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(memory.path());
    printPages(printer);
    const QByteArray content = memory.content();
    if (!isWholePdf(content))
        throw Trouble{DocumentWords::tr("The page could not be printed whole."),
            DocumentWords::tr("See that the computer has memory to spare. The signature is still here.")};
    writeFile(path, [&](QIODevice &file) { return file.write(content) == content.size(); });
}

void SignedDocument::printPages(QPrinter &printer) const
{
    const int first = std::max(1, printer.fromPage());
    const int last = printer.toPage() == 0 ? m_pages.count() : std::min(printer.toPage(), m_pages.count());
    QPainter painter;
    if (!painter.begin(&printer))
        throw noPrinter();
    for (int page = first; page <= last; ++page) {
        if (page > first)
            printer.newPage();
        const QRectF paper(0, 0, printer.width(), printer.height());
        const QRectF target = fitted(m_pages.size(page - 1), paper);
        const double dots = std::min(kDotsPerPoint, target.width() / m_pages.size(page - 1).width());
        paint(painter, page - 1, target, dots);
    }
}

} // namespace signdesk
