#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "model/RecordBuffer.h"

namespace plotvane {

// Writes one exchange record: the identifier, then three groups of fields; a comma ends each item. In the
// normal form every group has four items; in the ten-channel form the first has ten.
class RecordText {
public:
    // The identifier names the module; it must not contain a comma.
    explicit RecordText(std::string_view identifier);

    // A field of a measuring group, "G001,F0,780,/min,". The group is 1..999, the field 0..9.
    void AddField(int group, int field, std::string_view value, std::string_view unit);
    // One of the ten channels, "GZER,F0,780,,".
    void AddChannel(int field, std::string_view value);
    // A slot without a field, "G000,,,,".
    void AddEmptySlot();

    const std::string& Text() const { return m_text; }

private:
    std::string m_text;
};

// A record as it goes through the pipe: its text, then NULs.
using PipeBlock = std::array<char, RecordBuffer::kBlockSize>;

// Nothing if the text is empty, does not fit, or begins with a byte that is a control code of the pipe.
std::optional<PipeBlock> MakeBlock(std::string_view record);

// The lead bytes that do not begin a record.
constexpr char kLeadNothingNew = '\xFF';
constexpr char kLeadHostStopped = '\xFE';
constexpr char kLeadHostClosing = '\xFD';

}  // namespace plotvane
