/// @file
/// Where a text was found.
#ifndef FOUNDPLACES_H
#define FOUNDPLACES_H

#include <QRectF>

#include <map>
#include <vector>

namespace signdesk {

struct FoundPlaces
{
    std::map<int, std::vector<QRectF>> places; ///< for each page with any, in points
    int page = 0; ///< of the present place
    size_t index = 0; ///< of the present place on that page

    bool isEmpty() const { return places.empty(); }
    QRectF present() const { return isEmpty() ? QRectF() : places.at(page)[index]; }
};

} // namespace signdesk

#endif
