/// @file
/// What the virtual pad makes of the bytes that a program sends.
#include "padcommands.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace virtualpad;
using Kind = PadCommand::Kind;

TEST(PadCommand, IsWhatItsLineSays)
{
    EXPECT_EQ(commandOf("Initial 7").kind, Kind::Open);
    EXPECT_EQ(commandOf("Initial 7").deviceType, 7);
    EXPECT_EQ(commandOf("Initial seven").deviceType, 0);
    EXPECT_EQ(commandOf("UnInitial").kind, Kind::Close);
    EXPECT_EQ(commandOf("ClearDeviceContent\r").kind, Kind::Clear);
    for (const auto &[name, kind] :
        {std::pair("OpenDeviceLCD", Kind::Screen), {"ShowVersionInfoOnDevice", Kind::Version}})
        for (const auto &[argument, isOn] : {std::pair(" 1", true), {" 0", false}, {"", false}, {" yes", false}}) {
            const PadCommand command = commandOf(QByteArray(name) + argument);
            EXPECT_EQ(command.kind, kind) << name << argument;
            EXPECT_EQ(command.isOn, isOn) << name << argument;
        }
    for (const char *other : {"", " ", "Initial", "initial 5", "SetDevicePenStyle 1", "ShowFPImageOnDevice 1 1",
             "Initial 5 6 7 8 9 10 11 12 13 14"})
        EXPECT_EQ(commandOf(other).kind, Kind::Other) << other;
}

TEST(PadCommand, APictureIsWholeOrNone)
{
    const PadCommand command = commandOf("ShowFPImageOnDevice 2 1 f80007E0"); // red, green
    EXPECT_EQ(command.kind, Kind::Picture);
    EXPECT_EQ(command.picture.size(), QSize(2, 1));
    EXPECT_EQ(command.picture.pixel(0, 0), qRgb(255, 0, 0));
    EXPECT_EQ(command.picture.pixel(1, 0), qRgb(0, 255, 0));
    for (const char *broken : {"2 1 f80007", "2 1 f80007e000", "0 0 f800", "-1 -1 f800f800", "1001 0 f800",
             "65536 65536 f800", "2147483647 2 f800", "2 2 zz"}) {
        const PadCommand picture = commandOf(QByteArray("ShowFPImageOnDevice ") + broken);
        EXPECT_EQ(picture.kind, Kind::Picture) << broken;
        EXPECT_TRUE(picture.picture.isNull()) << broken;
    }
}

/// Kinds of all commands of the bytes, which come in parts of that size.
std::string kindsOf(const QByteArray &bytes, int part)
{
    CommandReader reader;
    std::string kinds;
    for (int at = 0; at < bytes.size(); at += part) {
        reader.append(bytes.mid(at, part));
        while (const std::optional<PadCommand> command = reader.next())
            kinds += std::to_string(static_cast<int>(command->kind)) + " ";
    }
    return kinds + (reader.isTooLong() ? "too long" : "");
}

TEST(CommandReader, ReadsBytesHoweverTheyCome)
{
    const QByteArray bytes = "Initial 5\nOpenDeviceLCD 1\n\nClearDeviceContent\nnonsense\nUnInitial\nInitial";
    for (int part = 1; part <= bytes.size(); ++part)
        EXPECT_EQ(kindsOf(bytes, part), "0 2 6 3 6 1 ") << part;
}

TEST(CommandReader, KeepsNoMoreThanALine)
{
    for (const int part : {1, 7, 1000}) {
        EXPECT_EQ(kindsOf("UnInitial\n" + QByteArray(64, 'x') + "\nUnInitial\n" + QByteArray(64, 'x'), part), "1 6 1 ");
        EXPECT_EQ(kindsOf("UnInitial\n" + QByteArray(65, 'x'), part), "1 too long");
        EXPECT_EQ(kindsOf("UnInitial\n" + QByteArray(65, 'x') + "\nUnInitial\n", part), "1 too long");
    }
    CommandReader reader;
    reader.allowPictures();
    reader.append("ShowFPImageOnDevice 1000 1000 " + QByteArray(4000000, '0') + "\n");
    EXPECT_EQ(reader.next()->picture.size(), QSize(1000, 1000));
    reader.append(QByteArray(4000100, 'x'));
    EXPECT_FALSE(reader.next() || reader.isTooLong());
    reader.append("x");
    EXPECT_FALSE(reader.next());
    EXPECT_TRUE(reader.isTooLong());
}

} // namespace
