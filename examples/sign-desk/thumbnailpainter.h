/// @file
/// Paints a page's small picture on its paper, with its number, and a check mark when it is signed.
#ifndef THUMBNAILPAINTER_H
#define THUMBNAILPAINTER_H

#include <QStyledItemDelegate>

namespace signdesk {

class ThumbnailPainter : public QStyledItemDelegate
{
    Q_OBJECT
public:
    static constexpr QSize kPicture{84, 112}; ///< pixels at most
    static constexpr QSize kCell{116, 148}; ///< of a page in the list

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem & /*option*/, const QModelIndex & /*index*/) const override
    {
        return kCell;
    }
};

} // namespace signdesk

#endif
