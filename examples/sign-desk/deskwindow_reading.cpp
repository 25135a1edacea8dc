// The window as a reader: which page is seen, at any time, whatever happens to the signature.
#include "deskwindow.h"

#include <QKeyEvent>

namespace signdesk {

namespace {

constexpr const char *kThumbnails = "thumbnails";

} // namespace

void DeskWindow::connectReading()
{
    const auto on = [this](QAction *action, auto work) { connect(action, &QAction::triggered, this, work); };
    on(m_actions.zoomIn, [this] { m_view->zoomBy(1.25); });
    on(m_actions.zoomOut, [this] { m_view->zoomBy(0.8); });
    on(m_actions.fitWidth, [this] { m_view->fitWidth(); });
    on(m_actions.nextPage, [this] { m_view->showPage(m_view->seenPage() + 1); });
    on(m_actions.previousPage, [this] { m_view->showPage(m_view->seenPage() - 1); });
    on(m_actions.goToPage, [this] { m_pageBox->begin(); });
    on(m_actions.fieldHere, [this] {
        m_placePanel->setFormField({});
        m_view->setField(m_view->seenPage(), m_view->field());
        m_view->showField();
    });
    m_actions.thumbnails->setChecked(
        m_settings.value(kThumbnails).toBool() || !m_settings.value(kThumbnails).isValid());
    connect(m_actions.thumbnails, &QAction::toggled, this, [this](bool isWanted) {
        m_settings.setValue(kThumbnails, isWanted);
        m_thumbnails->setVisible(isWanted && m_view->pageCount() > 1);
    });
    connect(m_view, &PageView::seenPageChanged, m_thumbnails, &ThumbnailList::setPage);
    connect(m_thumbnails, &ThumbnailList::pageChosen, m_view, &PageView::showPage);
    connect(m_view, &PageView::seenPageChanged, m_pageBox, &PageBox::setPage);
    connect(m_pageBox, &PageBox::pageChosen, m_view, &PageView::showPage);
    connect(m_view, &PageView::fieldChanged, this, &DeskWindow::takePlace);
}

void DeskWindow::connectFinding()
{
    const auto on = [this](QAction *action, auto work) { connect(action, &QAction::triggered, this, work); };
    on(m_actions.find, [this] { m_findBar->begin(); });
    on(m_actions.findNext, [this] { m_findBar->go(true); });
    on(m_actions.findPrevious, [this] { m_findBar->go(false); });
    connect(
        m_findBar, &FindBar::wanted, this, [this](const QString &text) { m_search.begin(text, m_view->seenPage()); });
    connect(m_findBar, &FindBar::closed, this, [this] { m_view->setFocus(); });
    connect(&m_search, &TextSearch::moved, m_view, &PageView::showFound);
    connect(&m_search, &TextSearch::changed, m_view->viewport(), qOverload<>(&QWidget::update));
}

/// Shows the document's pages; what was seen stays in sight where it can.
void DeskWindow::renewPages()
{
    const Pages &pages = m_counter.document().pages();
    m_search.end();
    m_renderer.setPages(pages);
    m_view->setPages(pages);
    m_thumbnails->setPages(pages);
    m_thumbnails->setPage(m_view->seenPage());
    m_thumbnails->setVisible(m_actions.thumbnails->isChecked() && pages.count() > 1);
    m_pageBox->setPageCount(pages.count());
    m_pageBox->setPage(m_view->seenPage());
}

/// Another document comes: nothing of the one before may be seen in it.
void DeskWindow::forgetPages()
{
    m_findBar->end();
    m_view->forgetPictures();
    m_thumbnails->forgetPictures();
}

/// Keys that the focused control has no use for scroll the pages.
void DeskWindow::keyPressEvent(QKeyEvent *event)
{
    if (!m_view->scrollBy(*event))
        QMainWindow::keyPressEvent(event);
}

} // namespace signdesk
