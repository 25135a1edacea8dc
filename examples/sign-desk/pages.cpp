#include "pages.h"

#include "pagefile.h"
#include "pagepicture.h"
#include "trouble.h"

#include <QCoreApplication>
#include <QPainter>

#include <poppler-qt5.h>

#include <algorithm>
#include <cmath>

namespace signdesk {

namespace {

struct PagesWords
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

/// The size of a picture as a page, in points. A picture with no resolution, or with one that makes it larger than a
/// desk, gets a sensible size instead.
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
    explicit PicturePages(PageFile file)
        : m_picture(readPicture(file))
        , m_file(std::move(file))
    {
        m_file.content.clear();
    }
    bool isOutdated() const override { return m_file.hasChanged(); }
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
    PageFile m_file;
};

class PdfPages : public Pages
{
public:
    explicit PdfPages(PageFile file)
        : m_file(std::move(file))
        , m_document(opened(m_file))
    {
        m_document->setRenderHint(Poppler::Document::Antialiasing);
        m_document->setRenderHint(Poppler::Document::TextAntialiasing);
    }
    bool isOutdated() const override { return m_file.hasChanged(); }
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
    static std::unique_ptr<Poppler::Document> opened(const PageFile &file)
    {
        // Poppler gets the bytes: it would read pages from the file later, when that may have changed.
        std::unique_ptr<Poppler::Document> document(Poppler::Document::loadFromData(file.content));
        if (document == nullptr)
            throw unreadable(file.path, PagesWords::tr("it is a damaged PDF."));
        if (document->isLocked())
            throw unreadable(file.path, PagesWords::tr("it is protected by a password."));
        if (document->numPages() < 1)
            throw unreadable(file.path, PagesWords::tr("it has no page."));
        return document;
    }

    PageFile m_file;
    std::unique_ptr<Poppler::Document> m_document;
};

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
    PageFile file = readPageFile(path);
    Poppler::setDebugErrorFunction(
        [](const QString &, const QVariant &) {}, {}); // errors are shown in the window instead
    if (file.content.left(1024).contains("%PDF-"))
        return std::make_unique<PdfPages>(std::move(file));
    return std::make_unique<PicturePages>(std::move(file));
}

} // namespace signdesk
