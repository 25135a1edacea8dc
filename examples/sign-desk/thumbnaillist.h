/// @file
/// The pages as small pictures, to go to one of them.
#ifndef THUMBNAILLIST_H
#define THUMBNAILLIST_H

#include "thumbnailmodel.h"

#include <QListView>
#include <QTimer>

namespace signdesk {

class ThumbnailList : public QListView
{
    Q_OBJECT
public:
    /// The renderer lives as long as this list. Pictures are drawn when they come into sight.
    explicit ThumbnailList(PageRenderer &renderer, QWidget *parent = nullptr);

    void setPages(const Pages &pages);
    void forgetPictures() { m_model.forgetPictures(); }
    void setSigned(const std::set<int> &pages) { m_model.setSigned(pages); }

    /// Marks the page that is seen in the large.
    void setPage(int page);

signals:
    void pageChosen(int page);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void wantPages();

    PageRenderer &m_renderer;
    ThumbnailModel m_model;
    QTimer m_renderSoon;
    bool m_isQuiet = false;
};

} // namespace signdesk

#endif
