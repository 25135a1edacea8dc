/// @file
/// The pages of a document as a list with small pictures.
#ifndef THUMBNAILMODEL_H
#define THUMBNAILMODEL_H

#include "pagecache.h"
#include "pagerenderer.h"

#include <QAbstractListModel>

#include <set>

namespace signdesk {

class ThumbnailModel : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role
    {
        PictureRole = Qt::DecorationRole, ///< a QImage; null until it is drawn
        SizeRole = Qt::UserRole, ///< of the page, in points
        SignedRole
    };

    explicit ThumbnailModel(PageRenderer &renderer, QObject *parent = nullptr);

    /// Pages of the same sizes are seen as they were until they are drawn anew.
    void setPages(const Pages &pages);
    void forgetPictures() { m_cache.clear(); }

    /// Marks the pages that bear a signature.
    void setSigned(const std::set<int> &pages);

    /// Has the pictures of these pages drawn, in that many dots at most.
    void want(int first, int last, const QSize &dots);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    void take(const PageDrawing &drawing, const QImage &picture);

    PageRenderer &m_renderer;
    std::vector<QSizeF> m_sizes;
    std::set<int> m_signed;
    mutable PageCache m_cache;
};

} // namespace signdesk

#endif
