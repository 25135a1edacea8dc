/// @file
/// Shows a widget as ink without paper: what is white on it lets the page through.
#ifndef PAPERLESSEFFECT_H
#define PAPERLESSEFFECT_H

#include <QGraphicsEffect>

namespace signdesk {

class PaperlessEffect : public QGraphicsEffect
{
    Q_OBJECT
public:
    using QGraphicsEffect::QGraphicsEffect;

protected:
    void draw(QPainter *painter) override;
};

} // namespace signdesk

#endif
