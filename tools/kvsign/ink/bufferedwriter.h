/// @file
/// Writes to a device in large pieces; what cannot be written throws.
#ifndef BUFFEREDWRITER_H
#define BUFFEREDWRITER_H

#include "../unwritable.h"

#include <QByteArray>

class BufferedWriter
{
public:
    explicit BufferedWriter(QIODevice &device)
        : m_device(device)
    {
    }

    /// Append to this. Call spill() now and then, and flush() at the end.
    QByteArray &buffer() { return m_buffer; }

    void spill()
    {
        if (m_buffer.size() >= kPiece)
            flush();
    }

    void flush()
    {
        if (m_device.write(m_buffer) != m_buffer.size())
            throw unwritable(m_device);
        m_buffer.resize(0);
    }

private:
    static constexpr int kPiece = 1 << 16;

    QIODevice &m_device;
    QByteArray m_buffer;
};

#endif
