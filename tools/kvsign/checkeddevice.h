/// @file
/// Bytes to a file, none of which gets lost without a word: Qt's writers of PDF and SVG do not look at errors.
#ifndef CHECKEDDEVICE_H
#define CHECKEDDEVICE_H

#include "plainio.h"

#include <QIODevice>

class CheckedDevice : public QIODevice
{
public:
    /// Open for writing from the begin.
    CheckedDevice() { QIODevice::open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

    /// Where the bytes go.
    void setFile(plainio::Descriptor file) { m_file = std::move(file); }
    int descriptor() const { return m_file.number(); }

    /// Whether every byte so far has been written. Once one has not, it stays false, and errorString() says why.
    bool flush();

    /// The same, and whether the disk has them.
    bool sync();

    /// How many bytes came.
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
