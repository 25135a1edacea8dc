/// @file
/// The lines of a text in UTF-8, or in UTF-16 behind its mark; they end with LF, CR LF or CR.
#ifndef TEXTLINES_H
#define TEXTLINES_H

#include <QByteArray>
#include <QTextDecoder>

#include <memory>

class QIODevice;

/// The begin of a text in UTF-8, without the mark.
QByteArray decodedBegin(const QByteArray &begin);

class TextLines
{
public:
    /// Reads from where the device is.
    explicit TextLines(QIODevice &device);

    /// The next line without its end, in UTF-8; false after the last one. A line that has more than `most` bytes is cut
    /// behind them, and isTooLong() is true.
    bool next(QByteArray &line, int most);

    /// Of the last line, from 1.
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
