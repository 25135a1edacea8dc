/// @file
/// A device that remembers the first write error for later, because Qt's PDF and SVG writers ignore errors.
#ifndef CHECKEDDEVICE_H
#define CHECKEDDEVICE_H

#include "plainio.h"

#include <QIODevice>

class CheckedDevice : public QIODevice
{
public:
    /// Open for writing as soon as it is constructed.
    CheckedDevice() { QIODevice::open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

    /// Sets the file that the bytes are written to.
    void setFile(plainio::Descriptor file) { m_file = std::move(file); }
    int descriptor() const { return m_file.number(); }

    /// Whether every byte so far has been written. After a failure it stays false, and errorString() says why.
    bool flush();

    /// The same, after syncing the file to the disk.
    bool sync();

    /// How many bytes have been written to the device.
    qint64 count() const { return m_count; }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *bytes, qint64 count) override;

private:
    bool fails();
    void pass(const char *bytes, qint64 count);

    plainio::Descriptor m_file;
    QByteArray m_buffer;
    qint64 m_count = 0;
    bool m_failed = false;
};

#endif
