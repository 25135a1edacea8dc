#include "inkpoints.h"

#include <cstdio>
#include <cstring>
#include <ctime>

namespace inkpoints {

_POINTDATA pointNow(int nX, int nY, int nP, bool bStrokeEnd)
{
    static_assert(sizeof(_POINTDATA) == 24, "the ink record is made of the stored points as they are");
    _POINTDATA point;
    std::memset(&point, 0, sizeof point);
    point.nX = static_cast<int16_t>(nX);
    point.nY = static_cast<int16_t>(nY);
    point.nPressureValue = static_cast<int16_t>(nP);
    point.bStrokeEnd = bStrokeEnd;
    point.ulTickCount = GetTickCount();
    point.pointTime = std::time(nullptr);
    return point;
}

char *newTimeText(const _POINTDATA &point)
{
    constexpr size_t kSize = 100;
    // localtime_r() does not read the time zone by itself; localtime() does.
    tzset();
    tm local{};
    localtime_r(&point.pointTime, &local);
    char *text = new char[kSize]();
    std::snprintf(text, kSize, "%04d-%02d-%02d %02d:%02d:%02d.%03d", local.tm_year + 1900, local.tm_mon + 1,
        local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec, static_cast<int>(point.ulTickCount % 1000));
    return text;
}

} // namespace inkpoints
