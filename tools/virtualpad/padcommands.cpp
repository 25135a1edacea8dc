#include "padcommands.h"

namespace virtualpad {

namespace {

constexpr int kLongestSide = 1000;

/// A picture of 5-6-5 colours, high byte first, in hexadecimal digits. Null when it is not complete.
QImage pictureOf(int width, int height, const QByteArray &digits)
{
    if (width <= 0 || height <= 0 || width > kLongestSide || height > kLongestSide)
        return {};
    const QByteArray bytes = QByteArray::fromHex(digits);
    if (bytes.size() != width * height * 2)
        return {};
    QImage picture(width, height, QImage::Format_RGB16);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int at = (y * width + x) * 2;
            const unsigned high = static_cast<unsigned char>(bytes[at]),
                           low = static_cast<unsigned char>(bytes[at + 1]);
            reinterpret_cast<quint16 *>(picture.scanLine(y))[x] = static_cast<quint16>(high << 8 | low);
        }
    return picture;
}

PadCommand switched(PadCommand::Kind kind, const QList<QByteArray> &fields)
{
    PadCommand command{kind};
    command.isOn = fields.size() > 1 && fields[1] == "1";
    return command;
}

} // namespace

PadCommand commandOf(const QByteArray &line)
{
    using Kind = PadCommand::Kind;
    constexpr int kMostBlanks = 8; // no command has more; limits the memory for fields
    if (line.count(' ') > kMostBlanks)
        return {};
    const QList<QByteArray> fields = line.trimmed().split(' ');
    PadCommand command;
    if (fields[0] == "Initial" && fields.size() > 1) {
        command.kind = Kind::Open;
        command.deviceType = fields[1].toInt();
    } else if (fields[0] == "UnInitial") {
        command.kind = Kind::Close;
    } else if (fields[0] == "OpenDeviceLCD") {
        command = switched(Kind::Screen, fields);
    } else if (fields[0] == "ClearDeviceContent") {
        command.kind = Kind::Clear;
    } else if (fields[0] == "ShowVersionInfoOnDevice") {
        command = switched(Kind::Version, fields);
    } else if (fields[0] == "ShowFPImageOnDevice" && fields.size() == 4) {
        command.kind = Kind::Picture;
        command.picture = pictureOf(fields[1].toInt(), fields[2].toInt(), fields[3]);
    }
    return command;
}

void CommandReader::append(const QByteArray &bytes)
{
    m_bytes.remove(0, m_at);
    m_at = 0;
    m_bytes += bytes;
}

std::optional<PadCommand> CommandReader::next()
{
    const int end = m_bytes.indexOf('\n', m_at);
    if (end < 0 || end - m_at > m_longest)
        return {};
    const PadCommand command = commandOf(m_bytes.mid(m_at, end - m_at));
    m_at = end + 1;
    return command;
}

bool CommandReader::isTooLong() const
{
    const int end = m_bytes.indexOf('\n', m_at);
    return (end < 0 ? m_bytes.size() : end) - m_at > m_longest;
}

} // namespace virtualpad
