#include <algorithm>

#include "fuzz/Inputs.h"
#include "fuzz/Slots.h"
#include "fuzz/Targets.h"
#include "link/RecordParser.h"
#include "model/RecordBuffer.h"
#include "tests/support/Promise.h"

namespace plotvane::fuzz {

using test::Require;

namespace {

void RequireSaneAnswer(std::string_view text, std::size_t position) {
    SlotTable slots;
    RunState state;
    state.tenChannels = true;
    const bool whole = ParseRecord(text, position, slots, state);
    RequireSaneSlots(slots);
    Require(state.hadTenChannels, "the form of the record before is remembered");

    // Parses the record again into the same slots: the result must not depend on the record before.
    SlotTable again = slots;
    RunState stateAgain;
    Require(ParseRecord(text, position, again, stateAgain) == whole, "the same record parses the same");
    Require(AreEqual(slots, again) && state.tenChannels == stateAgain.tenChannels,
            "the same record parses the same");

    if (!whole || state.tenChannels) return;
    const std::string rewritten = RecordOf(slots);
    if (rewritten.empty()) return;
    SlotTable reread;
    Require(ParseRecord(rewritten, 0, reread, state), "the contents of the slots can be parsed as a record");
    Require(AreEqual(slots, reread), "the contents of the slots read back the same from a record");
}

}  // namespace

// A block of the pipe; bytes after the first 513 choose more positions at which to start parsing.
int FuzzRecord(Bytes input) {
    RecordBuffer record;
    const std::size_t length = std::min(input.size(), RecordBuffer::kBlockSize);
    std::copy_n(AsText(input).begin(), length, record.Block().begin());
    const std::string_view text = record.Text();

    const std::size_t comma = text.find(',');
    RequireSaneAnswer(text, comma == std::string_view::npos ? 0 : comma + 1);
    for (const std::uint8_t byte :
         input.subspan(length).first(std::min<std::size_t>(input.size() - length, 4)))
        RequireSaneAnswer(text, byte * std::size_t{3});
    RequireSaneAnswer(text, text.size());
    return 0;
}

}  // namespace plotvane::fuzz
