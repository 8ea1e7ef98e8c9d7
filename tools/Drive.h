#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/FieldSlot.h"

namespace plotvane {

// One channel of a drive, as it stands in records and logs.
struct DriveChannel {
    int group = 0;       // measuring group, 1..255; 0: the slot is empty
    int field = 0;       // field number inside the group, 0..3
    int pid = 0;         // generic OBD identifier of the same quantity, 0 if it has none
    int decimals = 0;    // digits behind the point in its value texts
    double lowest = 0;   // over the whole drive; what the raw byte 0 of a ten-field group stands for
    double highest = 0;  // the same for the raw byte 255
    std::string name;    // the two lines that the host's logs print above a column
    std::string detail;
    std::string unit;  // Windows-1252 bytes

    bool IsUsed() const { return group > 0; }
};

// Row by row: slot k stands in row A, B or C, four slots a row.
using DriveChannels = std::array<DriveChannel, kSlotCount>;

// Values of up to twelve channels over time: what the stand-in host plays and the sample logs hold.
class Drive {
public:
    Drive() = default;
    Drive(const Drive&) = delete;
    Drive& operator=(const Drive&) = delete;
    virtual ~Drive() = default;

    virtual const DriveChannels& Channels() const = 0;
    virtual double Seconds() const = 0;  // how long it lasts

    // The value of a used slot; times outside 0..Seconds() give the first or last value.
    virtual double Value(int slot, double seconds) const = 0;

    // What the car is doing, in a word or two; empty if nobody knows.
    virtual std::string_view Phase(double seconds) const = 0;
};

// The value of a slot at a time, as the host would write it: at most 100 digits, "-", "." and nothing else.
std::string ValueText(const Drive& drive, int slot, double seconds);

// The same value as a raw byte, 0..255 between the channel's lowest and highest value.
int RawByte(const Drive& drive, int slot, double seconds);

}  // namespace plotvane
