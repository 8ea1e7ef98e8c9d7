// docs/pipe-protocol.md: the program's own reader reads each example, and the result is what the page says.
#include <gtest/gtest.h>

#include <charconv>
#include <cstdlib>

#include "link/BlockReader.h"
#include "link/ExchangeFile.h"
#include "link/RecordParser.h"
#include "model/LoopRun.h"
#include "tests/docs/Page.h"
#include "tests/docs/Records.h"
#include "tests/support/FakePump.h"
#include "tests/support/ScriptedPipe.h"
#include "tests/support/TempFolder.h"
#include "tools/sim/HostScript.h"

namespace plotvane::test {
namespace {

class PipeProtocolTest : public testing::Test {
protected:
    void Parse(std::string_view name) {
        const std::string record = Unspaced(m_page.Example(name));
        EXPECT_TRUE(ParseRecord(record, record.find(',') + 1, m_slots, m_state)) << name;
    }

    // The stream that the page shows in hexadecimal digits; " …" stands for NULs up to the offset of the next
    // line.
    std::string Stream() const {
        std::string stream;
        for (const CodeBlock& block : m_page.CodeBlocks()) {
            if (block.info != "text bytes") continue;
            for (const std::string& line : Lines(block.text)) {
                std::size_t offset = 0;
                if (std::from_chars(line.data(), line.data() + line.size(), offset, 16).ec != std::errc{})
                    continue;
                EXPECT_GE(offset, stream.size()) << line;
                stream.resize(offset, '\0');
                AppendBytes(line, stream);
            }
        }
        return stream;
    }

    const Page m_page{"docs/pipe-protocol.md"};
    SlotTable m_slots;
    RunState m_state;

private:
    // A line holds an offset, up to 16 pairs of digits, then the same bytes as characters.
    static void AppendBytes(const std::string& line, std::string& stream) {
        constexpr std::size_t kFirst = 5;
        const std::size_t begin = stream.size();
        for (std::size_t i = 0; i < 16 && kFirst + 3 * i + 1 < line.size(); ++i) {
            unsigned byte = 0;
            const char* const digits = line.data() + kFirst + 3 * i;
            ASSERT_EQ(std::from_chars(digits, digits + 2, byte, 16).ptr, digits + 2) << line;
            stream += static_cast<char>(byte);
        }
        const std::string_view characters =
            std::string_view(line).substr(std::min(line.size(), kFirst + std::size_t{16} * 3 + 1));
        std::string shown = Utf8(stream.substr(begin));
        shown.erase(std::min(shown.size(), shown.find('\0')));  // the page shows no characters for NULs
        if (characters.empty()) return;                         // nor for control bytes
        EXPECT_EQ(characters, shown) << line;
    }
};

TEST_F(PipeProtocolTest, ExchangeFileNamesTheDescriptorThatThePageStates) {
    const TempFolder folder;
    WriteBytes(folder / kExchangeFileName, m_page.Example(kExchangeFileName));
    const auto descriptor = ReadExchangeFile(folder / kExchangeFileName);
    ASSERT_TRUE(descriptor);
    EXPECT_TRUE(m_page.Says("is descriptor " + std::to_string(*descriptor) + "."));
}

TEST_F(PipeProtocolTest, NormalRecordFillsTheSlotsOfTheTable) {
    Parse("normal record");
    EXPECT_FALSE(m_state.tenChannels);
    const Table table = m_page.TableOf({"slot", "group", "field", "value", "unit"});
    ASSERT_EQ(table.size(), 6U);
    for (std::size_t row = 1; row < table.size(); ++row) {
        const FieldSlot& slot = m_slots[std::atoi(table[row][0].c_str())];
        EXPECT_EQ(std::to_string(slot.group), table[row][1]);
        if (!slot.IsActive()) continue;
        EXPECT_EQ(std::to_string(slot.field), table[row][2]);
        EXPECT_EQ(slot.value, std::strtod(table[row][3].c_str(), nullptr));
        EXPECT_EQ(Utf8(slot.unit), table[row][4]);
    }
    for (int slot = 4; slot < kSlotCount; ++slot) EXPECT_FALSE(m_slots[slot].IsActive()) << slot;
}

TEST_F(PipeProtocolTest, IdentifiersTakeThePlaceOfTheGroup) {
    Parse("record with PIDs");
    EXPECT_FALSE(m_state.tenChannels);
    EXPECT_EQ(m_slots[0].group, 12);
    EXPECT_EQ(m_slots[1].group, 13);
    EXPECT_EQ(m_slots[1].value, 51.0);
    EXPECT_EQ(m_slots[1].unit, "km/h");
    EXPECT_FALSE(m_slots[2].IsActive());
}

TEST_F(PipeProtocolTest, TenValuesAreTheOnesThatThePageStates) {
    Parse("record with ten values");
    EXPECT_TRUE(m_state.tenChannels);
    std::string told;
    for (int i = 0; i < kChannelCount; ++i) {
        if (i > 0) told += i + 1 < kChannelCount ? ", " : " and ";
        told += std::to_string(static_cast<int>(m_slots.channelValues[i]));
    }
    EXPECT_TRUE(m_page.Says("with ten values, here " + told)) << told;
}

TEST_F(PipeProtocolTest, BytesAreOneBlockAndThenControlBytes) {
    ScriptedPipe pipe;
    FakePump pump;
    BlockReader reader(pipe, pump);
    RecordBuffer record;
    reader.Attach(5);
    m_state.stopped = false;
    pipe.Write(Stream());
    EXPECT_EQ(reader.Read(record, LoopRun(m_state)), std::nullopt);
    EXPECT_EQ(record.Text(), Unspaced(m_page.Example("normal record")));
    EXPECT_TRUE(
        m_page.Says("The first of these records, " + std::to_string(record.Text().size()) + " characters"));
    EXPECT_EQ(reader.Read(record, LoopRun(m_state)), RunEnd::Stopped);
    EXPECT_EQ(reader.Read(record, LoopRun(m_state)), RunEnd::Closing);
}

TEST_F(PipeProtocolTest, ScriptOfTheStandInHostSendsTheSameBytes) {
    const TempFolder folder;
    WriteBytes(folder / "s.txt", m_page.Example("script of diagnel-sim"));
    const HostScript script = LoadHostScript(folder / "s.txt");
    EXPECT_EQ(script.error, "");
    std::string sent;
    for (const ScriptStep& step : script.steps) sent += step.bytes;
    EXPECT_EQ(sent, Stream());
}

TEST_F(PipeProtocolTest, ValuesAreReadAsThePageStates) {
    const auto valueOf = [this](const std::string& text) {
        std::string record = "X,G001,F0," + text + ",V,";
        for (int i = 1; i < kSlotCount; ++i) record += "G000,,,,";
        EXPECT_TRUE(ParseRecord(record, 2, m_slots, m_state));
        return m_slots[0].value;
    };
    // The page has a blank before the 5, which Says ignores.
    EXPECT_TRUE(m_page.Says("12.5 is 12.5; 1e3, n/a, 5 are 0"));
    EXPECT_EQ(valueOf("12.5"), 12.5);
    for (const char* text : {"1e3", "n/a", " 5"}) EXPECT_EQ(valueOf(text), 0.0) << text;
}

}  // namespace
}  // namespace plotvane::test
