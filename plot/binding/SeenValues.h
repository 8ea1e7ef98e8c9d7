#pragma once

#include <optional>

#include "model/FieldSlot.h"
#include "scaling/ModuleScaling.h"

namespace plotvane {

// The lowest and the highest value that each slot has shown since its module began. Takes no memory besides
// its own.
class SeenValues {
public:
    // A module begins: nothing has been seen of it.
    void Clear() { m_slots = {}; }

    // From now on the slot's values mean something else, so those before do not count.
    void Forget(int slot) { m_slots[slot] = {}; }

    // Takes the values of all active slots. A slot that has got another group or field begins again.
    void Take(const SlotTable& slots);

    // Whole numbers around everything that the slot has shown of its present field, each further out by a
    // twentieth of the span between lowest and highest. Nothing if no value was seen, or always the same.
    std::optional<ScaleRange> RangeAround(int slot, const FieldSlot& field) const;

private:
    struct Seen {
        int group = 0;  // an active slot's is above 0
        int field = 0;
        double lowest = 0.0;
        double highest = 0.0;

        bool IsOf(const FieldSlot& slot) const { return group == slot.group && field == slot.field; }
    };

    IndexedArray<Seen, kSlotCount> m_slots{};
};

}  // namespace plotvane
