#include "thumbnailmodel.h"

#include <algorithm>

namespace signdesk {

namespace {

constexpr qint64 kMostThumbnailBytes = 24 << 20;

} // namespace

ThumbnailModel::ThumbnailModel(PageRenderer &renderer, QObject *parent)
    : QAbstractListModel(parent)
    , m_renderer(renderer)
    , m_cache(kMostThumbnailBytes)
{
    connect(&m_renderer, &PageRenderer::drawn, this,
        [this](PageUse use, const PageDrawing &drawing, const QImage &picture) {
            if (use == PageUse::Thumbnail)
                take(drawing, picture);
        });
}

void ThumbnailModel::setPages(const Pages &pages)
{
    std::vector<QSizeF> sizes = pages.sizes();
    if (sizes == m_sizes)
        return m_cache.setOutdated();
    beginResetModel();
    m_sizes = std::move(sizes);
    m_cache.clear();
    endResetModel();
}

void ThumbnailModel::setSigned(const std::set<int> &pages)
{
    if (pages == m_signed)
        return;
    m_signed = pages;
    if (!m_sizes.empty())
        emit dataChanged(index(0), index(rowCount() - 1));
}

void ThumbnailModel::want(int first, int last, const QSize &dots)
{
    std::vector<PageDrawing> wanted;
    for (int page = std::max(0, first); page <= std::min(last, rowCount() - 1); ++page) {
        const QSizeF &size = m_sizes[static_cast<size_t>(page)];
        const double dotsPerPoint = std::min(dots.width() / size.width(), dots.height() / size.height());
        if (!m_cache.holds(page, dotsPerPoint))
            wanted.push_back({page, dotsPerPoint, {}});
    }
    m_renderer.want(PageUse::Thumbnail, wanted);
}

void ThumbnailModel::take(const PageDrawing &drawing, const QImage &picture)
{
    m_cache.put({drawing.page, drawing.dotsPerPoint, picture});
    emit dataChanged(index(drawing.page), index(drawing.page), {PictureRole});
}

int ThumbnailModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_sizes.size());
}

QVariant ThumbnailModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const int page = index.row();
    const bool isSigned = m_signed.count(page) > 0;
    const PageCache::Entry *entry = nullptr;
    switch (role) {
    case Qt::DisplayRole:
        return QString::number(page + 1);
    case Qt::AccessibleTextRole:
        return isSigned ? tr("Page %1, signed here").arg(page + 1) : tr("Page %1").arg(page + 1);
    case PictureRole:
        entry = m_cache.find(page);
        return entry == nullptr ? QImage() : entry->picture;
    case SizeRole:
        return m_sizes[static_cast<size_t>(page)];
    case SignedRole:
        return isSigned;
    default:
        return {};
    }
}

} // namespace signdesk
