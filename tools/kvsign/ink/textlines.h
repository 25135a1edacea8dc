/// @file
/// The lines of a text in UTF-8, or in UTF-16 with a byte order mark. They end with LF, CR LF or CR.
#ifndef TEXTLINES_H
#define TEXTLINES_H

#include <QByteArray>
#include <QTextDecoder>

#include <memory>

class QIODevice;

/// Recodes the beginning of a text to UTF-8, without its byte order mark.
QByteArray decodedBegin(const QByteArray &begin);

class TextLines
{
public:
    /// Reads from the device's current position.
    explicit TextLines(QIODevice &device);

    /// The next line without its end, in UTF-8; false after the last one. A longer line than `most` bytes is cut off
    /// there, and isTooLong() is true.
    bool next(QByteArray &line, int most);

    /// Number of the last line, counted from 1.
    qint64 number() const { return m_number; }
    bool isTooLong() const { return m_isTooLong; }

private:
    bool fill();
    int endOfLine(int most) const;

    QIODevice &m_device;
    std::unique_ptr<QTextDecoder> m_decoder; ///< null for UTF-8
    QByteArray m_text;
    int m_place = 0;
    bool m_atBegin = true;
    bool m_atEnd = false;
    bool m_isTooLong = false;
    qint64 m_number = 0;
};

#endif
