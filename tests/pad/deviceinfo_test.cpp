// What GetDeviceInfo writes, byte by byte.
#include "insidepads.h"
#include "logmessages.h"

#include <cstring>

namespace {

struct InfoRow
{
    int type;
    int axisX;
    int axisY;
    int pressure;
    const char *product;
};

constexpr InfoRow kInfo[] = {
    {2, 2360, 1430, 2048, "S210"},
    {5, 2300, 1300, 2048, "S300"},
    {7, 21170, 11490, 2048, "S310X"},
    {3, 29870, 20120, 8192, "R800"},
    {4, 29870, 20120, 8192, "M450"},
};

const InfoRow &infoOf(int type)
{
    for (const InfoRow &row : kInfo) {
        if (row.type == type)
            return row;
    }
    throw std::logic_error("a pad without a row");
}

constexpr size_t kRoom = 32;
constexpr char kUntouched = '\x5a';

/// The item's bytes, with the untouched rest of the room.
std::string room(const void *item, size_t size)
{
    std::string bytes(kRoom, kUntouched);
    std::memcpy(bytes.data(), item, size);
    return bytes;
}

std::string numbers(std::initializer_list<int32_t> values)
{
    std::string bytes;
    for (const int32_t value : values) {
        for (int shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<char>(static_cast<uint32_t>(value) >> shift));
    }
    return room(bytes.data(), bytes.size());
}

std::string text(const char *value)
{
    return room(value, std::strlen(value) + 1);
}

class DeviceInfo : public testing::TestWithParam<PadCase>
{
};

TEST_P(DeviceInfo, AnswersFromTheModelWithoutTheDriver)
{
    OpenPad pad(GetParam());
    pad.driver.forgetCalls();
    const InfoRow &row = infoOf(pad.type());
    const bool connected = true;
    const std::string expected[] = {room(&connected, 1), numbers({0, row.axisX}), numbers({0, row.axisY}),
        numbers({row.pressure}), text("Korvane"), text(row.product), numbers({1, 0})};
    for (int index = 1; index <= 7; ++index) {
        // One byte off, so that nothing may rely on the buffer's alignment.
        std::string buffer(kRoom + 1, kUntouched);
        EXPECT_EQ(pad->GetDeviceInfo(pad.type(), index, buffer.data() + 1), ARI_SUCCESS);
        EXPECT_EQ(buffer.substr(1), expected[index - 1]) << index;
    }
    EXPECT_EQ(pad.driver.calls(), "");
}

TEST_P(DeviceInfo, RejectsOtherIndexesAndANullBuffer)
{
    OpenPad pad(GetParam());
    std::string buffer(kRoom, kUntouched);
    for (const int index : {0, -1, 8, INT_MIN, INT_MAX})
        EXPECT_EQ(pad->GetDeviceInfo(pad.type(), index, buffer.data()), ARI_INVALID_PARAMETERS) << index;
    for (int index = 1; index <= 7; ++index)
        EXPECT_EQ(pad->GetDeviceInfo(pad.type(), index, nullptr), ARI_INVALID_PARAMETERS) << index;
    EXPECT_EQ(buffer, std::string(kRoom, kUntouched));
}

TEST_P(DeviceInfo, OfAnUnknownIndexWritesNothing)
{
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        std::string buffer(kRoom, kUntouched);
        for (const int index : {0, -1, 8, INT_MIN, INT_MAX})
            EXPECT_EQ(pad.GetDeviceInfo(index, buffer.data()), ARI_SUCCESS) << index;
        EXPECT_EQ(buffer, std::string(kRoom, kUntouched));
    });
}

TEST_P(DeviceInfo, FollowsTheInstancesStateAndPressureRange)
{
    withNewInstance(GetParam(), 40, 20, [&](auto &pad) {
        bool connected = true;
        int pressure = 0;
        EXPECT_EQ(pad.GetDeviceInfo(DIID_GET_STATUS, &connected), ARI_SUCCESS);
        EXPECT_FALSE(connected);
        EXPECT_EQ(pad.GetDeviceInfo(DIID_GET_PRESSURE, &pressure), ARI_SUCCESS);
        EXPECT_EQ(pressure, infoOf(GetParam().family->type).pressure);
        pad.m_nMaxPressureValue = 1024;
        pad.m_bDeviceConnected = true;
        EXPECT_EQ(pad.GetDeviceInfo(DIID_GET_PRESSURE, &pressure), ARI_SUCCESS);
        EXPECT_EQ(pressure, 1024);
        EXPECT_EQ(pad.GetDeviceInfo(DIID_GET_STATUS, &connected), ARI_SUCCESS);
        EXPECT_TRUE(connected);
    });
}

TEST_P(DeviceInfo, LeavesWithoutNamingAResult)
{
    OpenPad pad(GetParam());
    int pressure = 0;
    const LogTail log;
    const LogOn on;
    pad->GetDeviceInfo(pad.type(), DIID_GET_PRESSURE, &pressure);
    const Lines lines = messagesOf(log, std::string(GetParam().className()) + "::GetDeviceInfo()");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].rfind("<%ld>-enter, nIndex=4, pOutput=", 0), 0U) << lines[0];
    EXPECT_EQ(lines[1], "<%ld>-leave !");
}

INSTANTIATE_TEST_SUITE_P(AllPads, DeviceInfo, testing::ValuesIn(allPads()), padCaseName);

} // namespace
