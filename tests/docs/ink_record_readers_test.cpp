// The stand-alone readers of docs/ink-record.md: each reads a record that was packed here, byte for byte.
#include "outsidecommand.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Reader
{
    const char *language;
    const char *heading;
    const char *file;
    const char *command; ///< which reads the record "signature.ink"
};

const Reader kReaders[] = {
    {"c", "C", "reader.c", "gcc -Wall -Wextra -Werror reader.c -o reader && ./reader <signature.ink"},
    {"python", "Python", "reader.py", "/usr/bin/python3 reader.py <signature.ink"},
    {"javascript", "JavaScript", "reader.js", "node reader.js <signature.ink"},
};

/// Bytes in their order, as the page's table has them: extreme numbers, a closed stroke, one that was cut off.
const char kBytes[] = "64 00 c8 00 ff 03 00 00 00 00 00 80 00 00 00 00 00 ca 9a 3b 00 00 00 00"
                      "00 80 ff 7f ff 1f 00 00 05 00 00 80 00 00 00 00 01 ca 9a 3b 00 00 00 00"
                      "00 80 ff 7f ff 1f 01 00 ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff"
                      "ff ff fe ff 00 00 00 00 00 00 00 00 01 00 00 00 00 00 00 00 01 00 00 00"
                      "00";
const char kLines[] = "100 200 1023 0 2147483648 1000000000\n"
                      "-32768 32767 8191 0 2147483653 1000000001\n"
                      "-32768 32767 8191 1 18446744073709551615 -1\n"
                      "-1 -2 0 0 4294967296 4294967296\n";

class InkRecordReader : public testing::TestWithParam<Reader>
{
protected:
    CommandResult read(const QByteArray &text)
    {
        const QString page = contentOf(KV_SOURCE_DIRECTORY "/docs/ink-record.md");
        write(GetParam().file, fencedBlock(sectionOf(page, GetParam().heading), GetParam().language).toUtf8());
        write("signature.ink", text);
        return runProgram({"sh", "-ec", GetParam().command}, m_place.path());
    }

private:
    void write(const QString &name, const QByteArray &content)
    {
        QFile file(m_place.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QTemporaryDir m_place;
};

TEST_P(InkRecordReader, TellsEveryFieldOfEveryPoint)
{
    const CommandResult result = read(QByteArray::fromHex(kBytes).toBase64());
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_EQ(result.output, kLines);
}

TEST_P(InkRecordReader, FindsNothingInAnEmptyRecord)
{
    for (const char *text : {"", "AA=="}) {
        const CommandResult result = read(text);
        EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
        EXPECT_EQ(result.output, "");
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, InkRecordReader, testing::ValuesIn(kReaders),
    [](const auto &row) { return std::string(row.param.language); });

} // namespace
