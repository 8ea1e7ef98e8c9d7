#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/FieldSlot.h"

namespace plotvane {

// One channel of a drive, as records and logs show it.
struct DriveChannel {
    int group = 0;       // measuring group, 1..255; 0: the slot is empty
    int field = 0;       // field number inside the group, 0..3
    int pid = 0;         // generic OBD identifier of the same quantity, 0 if it has none
    int decimals = 0;    // digits after the point in its value texts
    double lowest = 0;   // over the whole drive; raw byte 0 of a ten-channel group stands for it
    double highest = 0;  // over the whole drive; raw byte 255 stands for it
    std::string name;    // the two lines that the host's logs print above a column
    std::string detail;
    std::string unit;  // Windows-1252 bytes

    bool IsUsed() const { return group > 0; }
};

// In slot order: row A, then B, then C, four slots each.
using DriveChannels = std::array<DriveChannel, kSlotCount>;

// Values of up to twelve channels over time; the stand-in host plays them and the sample logs hold them.
class Drive {
public:
    Drive() = default;
    Drive(const Drive&) = delete;
    Drive& operator=(const Drive&) = delete;
    virtual ~Drive() = default;

    virtual const DriveChannels& Channels() const = 0;
    virtual double Seconds() const = 0;  // the length of the drive

    // The value of a used slot. A time before the start gives the first value, a time after the end the last.
    virtual double Value(int slot, double seconds) const = 0;

    // A word or two for what the car is doing; empty if unknown.
    virtual std::string_view Phase(double seconds) const = 0;
};

// A slot's value at a time, as the host would write it: digits with an optional "-" and ".", at most 100
// characters.
std::string ValueText(const Drive& drive, int slot, double seconds);

// The same value as a raw byte: 0 is the channel's lowest value, 255 its highest.
int RawByte(const Drive& drive, int slot, double seconds);

}  // namespace plotvane
