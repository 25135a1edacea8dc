/// @file
/// Paints a widget with its white made transparent, so that the page below shows through.
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
