#include "pages.h"

#include "trouble.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QPainter>

#include <poppler-qt5.h>

#include <algorithm>
#include <cmath>

namespace signdesk {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::Pages)
};

QSize dotsOf(const QSizeF &points, double wishedDotsPerPoint)
{
    const double dotsPerPoint = affordableDots(points, wishedDotsPerPoint);
    return {std::max(1, qRound(points.width() * dotsPerPoint)), std::max(1, qRound(points.height() * dotsPerPoint))};
}

class BlankPages : public Pages
{
public:
    int count() const override { return 1; }
    QSizeF size(int /*page*/) const override { return {595, 842}; }
    QImage render(int page, double dotsPerPoint) const override
    {
        QImage image(dotsOf(size(page), dotsPerPoint), QImage::Format_RGB32);
        image.fill(Qt::white);
        return image;
    }
};

/// Pictures that do not say how large they are, or say nonsense, become a page that a desk has room for.
QSizeF pageSizeOf(const QImage &picture)
{
    constexpr double kDotsPerMetre = 96 / 0.0254;
    constexpr double kLongest = 420 * kPointsPerMillimetre;
    const double dots = picture.dotsPerMeterX() < 1000 ? kDotsPerMetre : picture.dotsPerMeterX();
    const QSizeF size = QSizeF(picture.size()) * (1000 / dots * kPointsPerMillimetre);
    const double longest = std::max(size.width(), size.height());
    return longest <= kLongest ? size : size * (297 * kPointsPerMillimetre / longest);
}

class PicturePages : public Pages
{
public:
    explicit PicturePages(const QImage &picture)
        : m_picture(picture)
    {
    }
    int count() const override { return 1; }
    QSizeF size(int /*page*/) const override { return pageSizeOf(m_picture); }
    QImage render(int page, double dotsPerPoint) const override
    {
        QImage image(dotsOf(size(page), dotsPerPoint), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(image.rect(), m_picture);
        return image;
    }

private:
    QImage m_picture;
};

class PdfPages : public Pages
{
public:
    explicit PdfPages(std::unique_ptr<Poppler::Document> document)
        : m_document(std::move(document))
    {
        m_document->setRenderHint(Poppler::Document::Antialiasing);
        m_document->setRenderHint(Poppler::Document::TextAntialiasing);
    }
    int count() const override { return m_document->numPages(); }
    QSizeF size(int page) const override
    {
        const std::unique_ptr<Poppler::Page> found(m_document->page(page));
        return found == nullptr || found->pageSizeF().isEmpty() ? QSizeF(595, 842) : found->pageSizeF();
    }
    QImage render(int page, double dotsPerPoint) const override
    {
        const std::unique_ptr<Poppler::Page> found(m_document->page(page));
        const double dots = 72 * affordableDots(size(page), dotsPerPoint);
        const QImage image = found == nullptr ? QImage() : found->renderToImage(dots, dots);
        return image.convertToFormat(QImage::Format_RGB32);
    }

private:
    std::unique_ptr<Poppler::Document> m_document;
};

Trouble unreadable(const QString &path, const QString &why)
{
    return {Words::tr("%1 cannot be opened: %2").arg(QDir::toNativeSeparators(path), why),
        Words::tr("Choose another file; the page shown before is still there.")};
}

std::unique_ptr<Pages> openPdf(const QString &path)
{
    std::unique_ptr<Poppler::Document> document(Poppler::Document::load(path));
    if (document == nullptr)
        throw unreadable(path, Words::tr("it is a damaged PDF."));
    if (document->isLocked())
        throw unreadable(path, Words::tr("it is protected by a password."));
    if (document->numPages() < 1)
        throw unreadable(path, Words::tr("it has no page."));
    return std::make_unique<PdfPages>(std::move(document));
}

} // namespace

double affordableDots(const QSizeF &page, double dotsPerPoint)
{
    constexpr double kMost = 40e6; // a sheet of A2 at 300 dots to the inch
    const double area = page.width() * page.height();
    return area * dotsPerPoint * dotsPerPoint <= kMost ? dotsPerPoint : std::sqrt(kMost / area);
}

std::unique_ptr<Pages> blankPages()
{
    return std::make_unique<BlankPages>();
}

std::unique_ptr<Pages> openPages(const QString &path)
{
    QFile file(path);
    if (!file.exists())
        throw unreadable(path, Words::tr("there is no such file."));
    if (!file.open(QIODevice::ReadOnly))
        throw unreadable(path, Words::tr("you may not read it."));
    Poppler::setDebugErrorFunction([](const QString &, const QVariant &) {}, {}); // the window says what is wrong
    if (file.peek(1024).contains("%PDF-"))
        return openPdf(path);
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    if (picture.isNull())
        throw unreadable(path, Words::tr("it is neither a PDF nor a picture."));
    return std::make_unique<PicturePages>(picture);
}

} // namespace signdesk
