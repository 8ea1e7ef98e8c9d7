#include "tools/drives/DriveRecord.h"

#include "tools/drives/RecordText.h"

namespace plotvane {
namespace {

std::string NormalRecord(const Drive& drive, double seconds, std::string_view identifier) {
    RecordText record(identifier);
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const DriveChannel& channel = drive.Channels().at(static_cast<std::size_t>(slot));
        if (channel.IsUsed())
            record.AddField(channel.group, channel.field, ValueText(drive, slot, seconds), channel.unit);
        else
            record.AddEmptySlot();
    }
    return record.Text();
}

std::string TenChannelRecord(const Drive& drive, double seconds, std::string_view identifier) {
    RecordText record(identifier);
    for (int channel = 0; channel < kChannelCount; ++channel)
        record.AddChannel(channel, std::to_string(RawByte(drive, channel, seconds)));
    for (int slot = kSlotColumns; slot < kSlotCount; ++slot) record.AddEmptySlot();
    return record.Text();
}

std::string ObdPidRecord(const Drive& drive, double seconds) {
    RecordText record("OBD");
    int used = 0;
    for (int slot = 0; slot < kSlotCount && used < kSlotColumns; ++slot) {
        const DriveChannel& channel = drive.Channels().at(static_cast<std::size_t>(slot));
        if (channel.pid == 0) continue;
        record.AddField(channel.pid, 0, ValueText(drive, slot, seconds), channel.unit);
        ++used;
    }
    for (; used < kSlotCount; ++used) record.AddEmptySlot();
    return record.Text();
}

}  // namespace

std::string RecordOf(const Drive& drive, double seconds, RecordForm form, std::string_view identifier) {
    switch (form) {
        case RecordForm::TenChannels:
            return TenChannelRecord(drive, seconds, identifier);
        case RecordForm::ObdPid:
            return ObdPidRecord(drive, seconds);
        case RecordForm::Normal:
            break;
    }
    return NormalRecord(drive, seconds, identifier);
}

}  // namespace plotvane
