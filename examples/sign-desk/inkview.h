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

    /// Shows the ink. `isGrown`: it begins with the ink that was shown before, which is not drawn again.
    void show(const documents::Ink &ink, bool isGrown);

    using QWidget::show;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void draw();

    documents::Ink m_ink;
    QImage m_lines; ///< in pixels of the screen
    size_t m_drawn = 0; ///< the number of lines in the picture
};

} // namespace signdesk

#endif
