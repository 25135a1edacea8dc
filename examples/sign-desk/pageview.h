/// @file
/// The page in its frame, as large as the clerk wants it.
#ifndef PAGEVIEW_H
#define PAGEVIEW_H

#include "pagesheet.h"

#include <QScrollArea>

namespace signdesk {

class PageView : public QScrollArea
{
    Q_OBJECT
public:
    explicit PageView(QWidget *parent = nullptr);

    PageSheet &sheet() { return *m_sheet; }

    /// Shows that page with the field in sight.
    void setPage(const Pages &pages, int page);

    void zoomBy(double factor);

    /// Makes the page as wide as the view and keeps it so.
    void fitWidth();

    void showField();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void applyFit();

    PageSheet *m_sheet;
    bool m_fitsWidth = true;
};

} // namespace signdesk

#endif
