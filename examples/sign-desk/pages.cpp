#include "pages.h"

#include "pagefile.h"
#include "pagepicture.h"
#include "trouble.h"
#include "wholefiles.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QPainter>
#include <QPdfWriter>

#include <poppler-qt5.h>

#include <algorithm>
#include <cmath>
#include <mutex>

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

/// A PDF of one page that shows the picture, or of a blank page when the picture is null. Throws a Trouble.
QByteArray onePage(const QSizeF &size, const QImage &picture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kFineDotsPerInch);
    writer.setPageSize(QPageSize(size, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins({});
    QPainter painter(&writer);
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
    if (!picture.isNull())
        painter.drawImage(QRectF({}, size * kFineDots), picture);
    painter.end();
    if (!isWholePdf(buffer.data()))
        throw Trouble{PagesWords::tr("The page cannot be made into a PDF."),
            PagesWords::tr("See that the computer has memory to spare. The signature is still here.")};
    return buffer.data();
}

class BlankPages : public Pages
{
public:
    int count() const override { return 1; }
    QSizeF size(int /*page*/) const override { return {595, 842}; }
    QString identity() const override { return QStringLiteral("blank"); }
    Open opener() const override
    {
        return [] { return blankPages(); };
    }
    QByteArray pdf() const override { return onePage(size(0), {}); }
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
    explicit PicturePages(const PageFile &file)
        : PicturePages(readPicture(file), file)
    {
    }
    PicturePages(QImage picture, PageFile file)
        : m_picture(std::move(picture))
        , m_file(std::move(file))
    {
        m_file.content.clear();
    }
    Open opener() const override
    {
        return [picture = m_picture, file = m_file] { return std::make_unique<PicturePages>(picture, file); };
    }
    const PageFile *file() const override { return &m_file; }
    QString identity() const override
    {
        return QStringLiteral("picture %1x%2").arg(m_picture.width()).arg(m_picture.height());
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
    PageFile m_file;
};

class PdfPages : public Pages
{
public:
    PdfPages(PageFile file, const QByteArray &password)
        : m_file(std::move(file))
        , m_password(password)
        , m_document(opened(m_file, password))
        , m_sizes(sizesOf(*m_document, m_file.path))
    {
        m_document->setRenderHint(Poppler::Document::Antialiasing);
        m_document->setRenderHint(Poppler::Document::TextAntialiasing);
    }
    const PageFile *file() const override { return &m_file; }
    QByteArray pdf() const override { return m_file.content; }
    bool isPdf() const override { return true; }
    QByteArray password() const override { return m_password; }
    QString identity() const override
    {
        QByteArray permanent, update;
        if (m_document->getPdfId(&permanent, &update) && permanent.count('0') < permanent.size())
            return QString::fromLatin1(permanent);
        const QSizeF first = size(0);
        const QString look = QStringLiteral("%1 %2x%3")
                                 .arg(m_document->info(QStringLiteral("Title")))
                                 .arg(first.width(), 0, 'f', 1)
                                 .arg(first.height(), 0, 'f', 1);
        return QString::fromLatin1(QCryptographicHash::hash(look.toUtf8(), QCryptographicHash::Sha1).toHex());
    }
    int count() const override { return static_cast<int>(m_sizes.size()); }
    QSizeF size(int page) const override { return m_sizes[static_cast<size_t>(page)]; }
    QImage render(int page, double dotsPerPoint) const override
    {
        return draw({page, dotsPerPoint, {}}, [] { return false; });
    }
    QImage renderPart(int page, double dotsPerPoint, const QRect &part) const override
    {
        return draw({page, dotsPerPoint, part}, [] { return false; });
    }
    QImage draw(const PageDrawing &drawing, const std::function<bool()> &isUnwanted) const override
    {
        const std::unique_ptr<Poppler::Page> found(m_document->page(drawing.page));
        if (found == nullptr)
            return {};
        const bool isWhole = drawing.part.isNull();
        const double dotsPerPoint =
            isWhole ? affordableDots(size(drawing.page), drawing.dotsPerPoint) : drawing.dotsPerPoint;
        const QRect part = isWhole ? QRect(-1, -1, -1, -1) : drawing.part; // as Poppler calls the whole page
        const auto mayStop = [](const QVariant &asked) {
            return (*static_cast<const std::function<bool()> *>(asked.value<void *>()))();
        };
        return found
            ->renderToImage(72 * dotsPerPoint, 72 * dotsPerPoint, part.x(), part.y(), part.width(), part.height(),
                Poppler::Page::Rotate0, nullptr, nullptr, mayStop,
                QVariant::fromValue(const_cast<void *>(static_cast<const void *>(&isUnwanted))))
            .convertToFormat(QImage::Format_RGB32);
    }
    std::vector<QRectF> find(int page, const QString &text) const override
    {
        const std::unique_ptr<Poppler::Page> searched(m_document->page(page));
        const QList<QRectF> places =
            searched == nullptr ? QList<QRectF>() : searched->search(text, Poppler::Page::IgnoreCase);
        return {places.begin(), places.end()};
    }
    Open opener() const override
    {
        return [file = m_file, password = m_password] { return pagesOf(file, password); };
    }

private:
    static std::unique_ptr<Poppler::Document> opened(const PageFile &file, const QByteArray &password)
    {
        // Poppler gets the bytes: it would read pages from the file later, when that may have changed.
        std::unique_ptr<Poppler::Document> document(Poppler::Document::loadFromData(file.content, password, password));
        if (document == nullptr)
            throw unreadable(file.path, PagesWords::tr("it is a damaged PDF."));
        if (document->isLocked())
            throw PasswordNeeded{!password.isEmpty()};
        if (document->numPages() < 1)
            throw unreadable(file.path, PagesWords::tr("it has no page."));
        return document;
    }

    /// A page without a size can be neither shown nor signed.
    static std::vector<QSizeF> sizesOf(const Poppler::Document &document, const QString &path)
    {
        std::vector<QSizeF> sizes;
        for (int i = 0; i < document.numPages(); ++i) {
            const std::unique_ptr<Poppler::Page> page(document.page(i));
            if (page == nullptr || page->pageSizeF().isEmpty())
                throw unreadable(path, PagesWords::tr("its page %1 has no size.").arg(i + 1));
            sizes.push_back(page->pageSizeF());
        }
        return sizes;
    }

    PageFile m_file;
    QByteArray m_password;
    std::unique_ptr<Poppler::Document> m_document;
    std::vector<QSizeF> m_sizes;
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

std::vector<QSizeF> Pages::sizes() const
{
    std::vector<QSizeF> all;
    all.reserve(static_cast<size_t>(count()));
    for (int page = 0; page < count(); ++page)
        all.push_back(size(page));
    return all;
}

QImage Pages::renderPart(int page, double dotsPerPoint, const QRect &part) const
{
    return render(page, dotsPerPoint).copy(part);
}

QImage Pages::draw(const PageDrawing &drawing, const std::function<bool()> & /*isUnwanted*/) const
{
    return drawing.part.isNull() ? render(drawing.page, drawing.dotsPerPoint)
                                 : renderPart(drawing.page, drawing.dotsPerPoint, drawing.part);
}

std::vector<QRectF> Pages::find(int /*page*/, const QString & /*text*/) const
{
    return {};
}

QByteArray Pages::pdf() const
{
    return onePage(size(0), render(0, kFineDots));
}

bool Pages::isOutdated() const
{
    return file() != nullptr && file()->hasChanged();
}

std::unique_ptr<Pages> openPages(const QString &path, const QByteArray &password)
{
    return pagesOf(readPageFile(path), password);
}

std::unique_ptr<Pages> pagesOf(PageFile file, const QByteArray &password)
{
    static std::once_flag once; // pages are opened on several threads
    std::call_once(once, [] { // errors are shown in the window instead
        Poppler::setDebugErrorFunction([](const QString &, const QVariant &) {}, {});
    });
    if (file.content.left(1024).contains("%PDF-"))
        return std::make_unique<PdfPages>(std::move(file), password);
    return std::make_unique<PicturePages>(std::move(file));
}

} // namespace signdesk
