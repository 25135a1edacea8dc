/// @file
/// An instance of any of the ten classes without a driver, but with point lists, for tests of its members.
#ifndef DIRECTPAD_H
#define DIRECTPAD_H

#include "exported/frame.h"
#include "inkpoints.h"

#include <QImage>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

using AllPadClasses = testing::Types<CS210SignWidget, CS210SignObj, CS300SignWidget, CS300SignObj, CS310XSignWidget,
    CS310XSignObj, CR800SignWidget, CR800SignObj, CM450SignWidget, CM450SignObj>;

struct PadClassName
{
    template <class Pad>
    static std::string GetName(int)
    {
        const std::string scope = Pad::row.scope;
        return scope.substr(0, scope.find(':'));
    }
};

/// The canvas of a headless instance is `width` by `height`; a widget has the size of a window that was never shown.
template <class Pad>
class DirectPad
{
public:
    explicit DirectPad(int width = 60, int height = 40)
        : m_pad(make(width, height))
    {
        inkpoints::createLists(*m_pad);
    }
    ~DirectPad() { inkpoints::deleteLists(*m_pad); }
    DirectPad(const DirectPad &) = delete;
    DirectPad &operator=(const DirectPad &) = delete;

    Pad *operator->() const { return m_pad.get(); }
    Pad &operator*() const { return *m_pad; }

    /// Stores a point made of the given fields, with a reserved byte of 0.
    void store(int x, int y, int pressure, bool strokeEnd, uint64_t tick, time_t time)
    {
        _POINTDATA point;
        std::memset(static_cast<void *>(&point), 0, sizeof point);
        point.nX = static_cast<int16_t>(x);
        point.nY = static_cast<int16_t>(y);
        point.nPressureValue = static_cast<int16_t>(pressure);
        point.bStrokeEnd = strokeEnd;
        point.ulTickCount = tick;
        point.pointTime = time;
        m_pad->m_pPointDataList->push_back(point);
    }

private:
    static std::unique_ptr<Pad> make(int width, int height)
    {
        if constexpr (Pad::row.host == Host::Headless)
            return std::make_unique<Pad>(width, height);
        else
            return std::make_unique<Pad>(nullptr);
    }

    std::unique_ptr<Pad> m_pad;
};

#endif
