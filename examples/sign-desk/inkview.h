/// @file
/// The ink in the field while the signer writes: as smooth as on the saved page, at any scale of the screen.
#ifndef INKVIEW_H
#define INKVIEW_H

#include "inkpainting.h"

#include <QWidget>

namespace signdesk {

class InkView : public QWidget
{
    Q_OBJECT
public:
    explicit InkView(QWidget *parent = nullptr);

    /// Shows the ink. What it has in common with the ink before is not drawn anew when `isGrown`.
    void show(const documents::Ink &ink, bool isGrown);

    using QWidget::show;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void draw();

    documents::Ink m_ink;
    QImage m_lines; ///< in pixels of the screen
    size_t m_drawn = 0; ///< lines that the picture has
};

} // namespace signdesk

#endif
