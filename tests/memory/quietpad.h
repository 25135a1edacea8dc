/// @file
/// A pad of the exported functions on a driver that has no thread and asks for no memory: packets come on the caller's
/// own thread. It needs that driver in the working directory.
#ifndef QUIETPAD_H
#define QUIETPAD_H

#include "openpad.h"

#include <string>

class QuietPad
{
public:
    explicit QuietPad(const PadCase &pad);
    ~QuietPad() { close(); }
    QuietPad(const QuietPad &) = delete;
    QuietPad &operator=(const QuietPad &) = delete;

    const Family *operator->() const { return m_pad.family; }
    int type() const { return m_pad.family->type; }
    bool isHeadless() const { return m_pad.headless; }
    QWidget *window() { return m_window.get(); }

    bool open();
    void close();

    /// Takes everything off the open pad and signs anew, with the settings of the start.
    void signAnew();

    void packet(int x, int y, int pressure, int status);

    /// Only pads with a sensor have it.
    void fingerprint(int score);

    /// The canvas as a BMP text.
    std::string picture() const;

private:
    PadCase m_pad;
    std::unique_ptr<QWidget> m_window;
};

#endif
