#pragma once

#include <string>

#include "model/IndexedArray.h"

namespace plotvane {

// Slots are numbered row by row: 0..3 row A, 4..7 row B, 8..11 row C. Slot k drives trace k of the chart.
constexpr int kSlotRows = 3;
constexpr int kSlotColumns = 4;
constexpr int kSlotCount = kSlotRows * kSlotColumns;

// The ten channels: the values of a record in the ten-channel form, whose small boxes take the place of row
// A.
constexpr int kChannelCount = 10;

constexpr int SlotOf(int row, int column) {
    return row * kSlotColumns + column;
}
constexpr int RowOf(int slot) {
    return slot / kSlotColumns;
}
constexpr int ColumnOf(int slot) {
    return slot % kSlotColumns;
}

// One of the twelve field slots: which value it shows, and the last value received.
struct FieldSlot {
    int group = -1;      // measuring group of the host, or PID; -1 until a record arrives, 0 if empty
    int lastGroup = -1;  // group at the last tick; if it differs, the slot has been reassigned
    int field = 0;       // number of the field inside the group, 0..9
    double value = 0.0;
    std::string unit;           // Windows-1252 bytes, at most 100
    bool rangeChanged = false;  // its minimum or maximum was edited; the next tick applies it

    bool IsActive() const { return group > 0; }
};

struct SlotTable {
    IndexedArray<FieldSlot, kSlotCount> slots{};
    IndexedArray<double, kChannelCount> channelValues{};  // by field digit, from "GZER" items

    FieldSlot& operator[](int slot) { return slots[slot]; }
    const FieldSlot& operator[](int slot) const { return slots[slot]; }
};

}  // namespace plotvane
