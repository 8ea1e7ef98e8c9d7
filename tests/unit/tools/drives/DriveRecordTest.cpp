#include "tools/drives/DriveRecord.h"

#include <gtest/gtest.h>

#include "model/RecordBuffer.h"
#include "tools/drives/RecordText.h"

namespace plotvane {
namespace {

// Channel k has the value k + 1 at the start and 2 * (k + 1) from the first second on.
class SteppedDrive final : public Drive {
public:
    const DriveChannels& Channels() const override { return channels; }
    double Seconds() const override { return 2; }
    double Value(int slot, double seconds) const override { return seconds < 1 ? slot + 1 : 2 * (slot + 1); }
    std::string_view Phase(double) const override { return ""; }

    DriveChannels channels;
};

DriveChannel Channel(int group, int field, int pid, int decimals, const char* unit) {
    DriveChannel channel;
    channel.group = group;
    channel.field = field;
    channel.pid = pid;
    channel.decimals = decimals;
    channel.unit = unit;
    channel.highest = 255;
    return channel;
}

std::string EmptySlots(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "G000,,,,";
    return text;
}

TEST(DriveRecord, NormalFormHasTwelveItemsInSlotOrder) {
    SteppedDrive drive;
    drive.channels[0] = Channel(1, 0, 0, 0, "/min");
    drive.channels[5] = Channel(3, 1, 0, 1, "%");
    EXPECT_EQ(RecordOf(drive, 0.5, RecordForm::Normal, "M"),
              "M,G001,F0,1,/min," + EmptySlots(4) + "G003,F1,6.0,%," + EmptySlots(6));
    EXPECT_EQ(RecordOf(drive, 1.5, RecordForm::Normal, "M"),
              "M,G001,F0,2,/min," + EmptySlots(4) + "G003,F1,12.0,%," + EmptySlots(6));
}

TEST(DriveRecord, ObdFormHasTenRawBytesAndEightEmptySlots) {
    SteppedDrive drive;
    for (int k = 0; k < kSlotCount; ++k)
        drive.channels.at(static_cast<std::size_t>(k)) = Channel(1 + k / 4, k % 4, 0, 0, "V");
    drive.channels[2].lowest = -3;  // 3 in a range of -3 to 3
    drive.channels[2].highest = 3;
    drive.channels[9].highest = 5;  // its value 10 is above the range
    EXPECT_EQ(RecordOf(drive, 0, RecordForm::TenChannels, "M"),
              "M,GZER,F0,1,,GZER,F1,2,,GZER,F2,255,,GZER,F3,4,,GZER,F4,5,,GZER,F5,6,,GZER,F6,7,,GZER,F7,8,,"
              "GZER,F8,9,,GZER,F9,255,," +
                  EmptySlots(8));
}

TEST(DriveRecord, ObdIdentifiersAreTheFirstFourThatTheDriveHas) {
    SteppedDrive drive;
    for (int k = 0; k < kSlotCount; ++k)
        drive.channels.at(static_cast<std::size_t>(k)) =
            Channel(1 + k / 4, k % 4, k < 2 ? 0 : 10 + k, 0, "%");
    EXPECT_EQ(RecordOf(drive, 0, RecordForm::ObdPid, "M"),
              "OBD,G012,F0,3,%,G013,F0,4,%,G014,F0,5,%,G015,F0,6,%," + EmptySlots(8));
    drive.channels[3] = drive.channels[4] = {};
    for (std::size_t k = 5; k < 12; ++k) drive.channels[k].pid = 0;
    EXPECT_EQ(RecordOf(drive, 0, RecordForm::ObdPid, "M"), "OBD,G012,F0,3,%," + EmptySlots(11));
}

TEST(DriveRecord, TheParserReadsEveryValueAsANumber) {
    class : public Drive {
    public:
        const DriveChannels& Channels() const override { return channels; }
        double Seconds() const override { return 0; }
        double Value(int, double) const override { return value; }
        std::string_view Phase(double) const override { return ""; }
        DriveChannels channels;
        double value = 0;
    } drive;
    drive.channels[0] = Channel(1, 0, 0, 1, "V");
    const auto textOf = [&](double value) {
        drive.value = value;
        return ValueText(drive, 0, 0);
    };
    EXPECT_EQ(textOf(12.34), "12.3");
    EXPECT_EQ(textOf(-0.04), "0.0");
    EXPECT_EQ(textOf(-0.06), "-0.1");
    EXPECT_EQ(textOf(1e300), "999999999.0");
    EXPECT_EQ(textOf(-1e300), "-999999999.0");
}

TEST(DriveRecord, TheLongestRecordFitsABlock) {
    SteppedDrive drive;
    for (int k = 0; k < kSlotCount; ++k) {
        DriveChannel& channel = drive.channels.at(static_cast<std::size_t>(k));
        channel = Channel(255, 3, 0, 3, "mg/str");
    }
    const std::string record = RecordOf(drive, 0, RecordForm::Normal, std::string(100, 'M'));
    EXPECT_TRUE(MakeBlock(record));
}

}  // namespace
}  // namespace plotvane
