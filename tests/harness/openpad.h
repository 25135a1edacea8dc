/// @file
/// A pad opened through its exported functions on the simulated driver, headless or in a widget.
#ifndef OPENPAD_H
#define OPENPAD_H

#include "families.h"
#include "simulatorcontrol.h"

#include <QApplication>
#include <QImage>
#include <QString>
#include <QWidget>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// The simulated driver of the working directory. It sends nothing by itself. The process keeps a handle of it, so that
/// settings made before a pad is opened persist. Each object of this class resets it.
class SimulatedDriver
{
public:
    SimulatedDriver();

    void send(const std::vector<KVSIM_PACKET> &packets);
    void send(int x, int y, int pressure, int status) { send({{x, y, pressure, status}}); }
    void sendFingerprint(const std::vector<unsigned char> &image, int score);
    void setResult(const char *operation, int result);
    void setText(const char *operation, const char *text);
    std::string calls();
    void forgetCalls();
    bool isOpen();

    /// Any other function of the simulator's control interface.
    void *control(const char *name);
};

/// A pad: a family, in a widget or headless.
struct PadCase
{
    const Family *family;
    bool headless;

    const char *className() const { return headless ? family->headlessClass : family->widgetClass; }
};

void PrintTo(const PadCase &pad, std::ostream *out);
std::string padCaseName(const testing::TestParamInfo<PadCase> &info);

/// All ten pads.
std::vector<PadCase> allPads();

/// Opened in the constructor, closed in the destructor. The canvas is `width` by `height`.
class OpenPad
{
public:
    explicit OpenPad(const PadCase &pad, int width = 400, int height = 200);
    ~OpenPad();
    OpenPad(const OpenPad &) = delete;
    OpenPad &operator=(const OpenPad &) = delete;

    const Family *operator->() const { return m_pad.family; }
    int type() const { return m_pad.family->type; }
    bool isOpen() const { return m_open; }

    /// The parent window and, in it, the signing widget; null for headless pads.
    QWidget *window() const { return m_window.get(); }
    QWidget *widget() const;

    /// The shown canvas, taken from the opaque BMP text. Needs at least one stored point.
    QImage canvas() const;

    SimulatedDriver driver;

private:
    PadCase m_pad;
    std::unique_ptr<QWidget> m_window;
    bool m_open = false;
};

/// The raw constants of a model, typed in again here, independently of the library's table.
struct RawArea
{
    int offsetX;
    int offsetY;
    int spanX;
    int spanY;
    int maxPressure;
};
RawArea rawArea(int deviceType);

/// A stroke through the given positions: pen down at the first, moves, pen up at the last. Positions are shares (0 to
/// 1) of the writing area, pressures of the largest pressure.
struct Share
{
    double x;
    double y;
    double pressure;
};
std::vector<KVSIM_PACKET> stroke(int deviceType, const std::vector<Share> &shares);

/// Processes events until none is left, so that everything is painted.
void settle();

#endif
