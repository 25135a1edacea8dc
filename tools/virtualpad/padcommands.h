/// @file
/// What a program tells the pad, as it comes over the socket: a line for each command.
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

/// A line without its end.
PadCommand commandOf(const QByteArray &line);

/// Makes lines of the bytes of one connection. What it keeps is the begin of one line, and no more of it than a line
/// may have.
class CommandReader
{
public:
    static constexpr int kLongestGreeting = 64; ///< bytes of a line of a program that has not opened the pad
    static constexpr int kLongestLine = 4000100; ///< a picture of 1000 by 1000 pixels, in hexadecimal digits

    /// The program has opened the pad: lines may be as long as a picture is.
    void allowPictures() { m_longest = kLongestLine; }

    void append(const QByteArray &bytes);

    /// The next command that is complete.
    std::optional<PadCommand> next();

    /// A line is longer than lines may be. No command comes any more.
    bool isTooLong() const;

private:
    QByteArray m_bytes;
    int m_at = 0; ///< where the next line begins
    int m_longest = kLongestGreeting;
};

} // namespace virtualpad

#endif
