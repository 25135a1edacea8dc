#include "penpackets.h"

namespace penpackets {

namespace {

bool isTooHard(MoveLimit limit, int maxPressure, int pressure)
{
    switch (limit) {
    case MoveLimit::None:
        return false;
    case MoveLimit::OwnMaximum:
        return pressure > maxPressure;
    case MoveLimit::Fixed2048:
        return pressure > 2048;
    }
    return false;
}

} // namespace

Action actionFor(const PadRow &row, bool inStroke, int maxPressure, int pressure, int status)
{
    switch (status) {
    case KVSPDARI_PS_PEN_DOWN:
        return Action::StartStroke;
    case KVSPDARI_PS_PEN_MOVE:
        if (!inStroke)
            return Action::None;
        return isTooHard(row.moveLimit, maxPressure, pressure) ? Action::SkipMove : Action::DrawMove;
    case KVSPDARI_PS_PEN_UP:
        return inStroke ? Action::EndStroke : Action::None;
    case KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON:
        return Action::Cancel;
    case KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON:
        return Action::Confirm;
    default:
        return Action::None;
    }
}

} // namespace penpackets
