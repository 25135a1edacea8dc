/// @file
/// The commands that a program sends to the pad over the socket, one a line.
#ifndef PADCOMMANDS_H
#define PADCOMMANDS_H

#include <QByteArray>
#include <QImage>

#include <optional>

namespace virtualpad {

struct PadCommand
{
    enum class Kind
    {
        Open,
        Close,
        Screen,
        Clear,
        Version,
        Picture,
        Other ///< nothing that this pad knows
    };
    Kind kind = Kind::Other;
    int deviceType = 0; ///< Open
    bool isOn = false; ///< Screen, Version
    QImage picture{}; ///< Picture; null when it is not complete
};

/// Parses a line, without its line end.
PadCommand commandOf(const QByteArray &line);

/// Splits the bytes of one connection into lines. It buffers only the beginning of one line, and refuses lines that are
/// too long.
class CommandReader
{
public:
    static constexpr int kLongestGreeting = 64; ///< bytes of a line of a program that has not opened the pad
    static constexpr int kLongestLine = 4000100; ///< a picture of 1000 by 1000 pixels, in hexadecimal digits

    /// Allows lines as long as a picture, for a program that has opened the pad.
    void allowPictures() { m_longest = kLongestLine; }

    void append(const QByteArray &bytes);

    /// The next complete command.
    std::optional<PadCommand> next();

    /// Whether a line was too long. No command follows then.
    bool isTooLong() const;

private:
    QByteArray m_bytes;
    int m_at = 0; ///< where the next line begins
    int m_longest = kLongestGreeting;
};

} // namespace virtualpad

#endif
