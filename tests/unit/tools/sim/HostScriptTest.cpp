#include "tools/sim/HostScript.h"

#include <gtest/gtest.h>

#include "tests/support/DegreeSign.h"
#include "tests/support/TempFolder.h"
#include "tests/unit/tools/sim/ScriptedLink.h"

namespace plotvane {
namespace {

using std::chrono::milliseconds;
using test::ScriptedLink;
using Kind = ScriptStep::Kind;

class HostScriptTest : public testing::Test {
protected:
    HostScript Load(std::string_view text) {
        test::WriteBytes(m_folder / "s.txt", text);
        return LoadHostScript(m_folder / "s.txt");
    }
    // The bytes of a script with one command.
    std::string BytesOf(std::string_view command) {
        const HostScript script = Load(command);
        EXPECT_EQ(script.error, "") << command;
        return script.steps.size() == 1 ? script.steps[0].bytes : "not exactly one step";
    }
    PlayResult Run(std::string_view text) {
        const HostScript script = Load(text);
        EXPECT_EQ(script.error, "");
        return RunScript(m_link, script.steps);
    }

    ScriptedLink m_link;

private:
    test::TempFolder m_folder;
};

TEST_F(HostScriptTest, RecordIsABlock) {
    const std::string block = BytesOf("record M,G001,F0,90," DEGREES_C ",");
    EXPECT_EQ(block.size(), 513u);
    EXPECT_EQ(block, "M,G001,F0,90," DEGREES_C "," + std::string(497, '\0'));
}

TEST_F(HostScriptTest, RecordTakesAnyByteAsAnEscape) {
    EXPECT_EQ(BytesOf(R"(record a\\b\x00\xFF\xb0 )").substr(0, 8), std::string("a\\b\0\xFF\xB0 \0", 8));
}

TEST_F(HostScriptTest, BytesAreThoseBytes) {
    EXPECT_EQ(BytesOf("bytes FF"), "\xFF");
    EXPECT_EQ(BytesOf("bytes 47 30 3031 fe"), "G001\xFE");
}

TEST_F(HostScriptTest, ReadsCommandsAndSkipsComments) {
    const HostScript script = Load("# start\r\n\r\nwait 250\ndrain 5000\nclose\ndie");
    EXPECT_EQ(script.error, "");
    ASSERT_EQ(script.steps.size(), 4u);
    EXPECT_EQ(script.steps[0].kind, Kind::Wait);
    EXPECT_EQ(script.steps[0].time, milliseconds(250));
    EXPECT_EQ(script.steps[1].kind, Kind::Drain);
    EXPECT_EQ(script.steps[1].time, milliseconds(5000));
    EXPECT_EQ(script.steps[2].kind, Kind::Close);
    EXPECT_EQ(script.steps[3].kind, Kind::Die);
}

TEST_F(HostScriptTest, NamesTheLineThatIsWrong) {
    EXPECT_EQ(Load("wait 5\n\nrecrd x\n").error, "line 3: no such command, or not in this form");
    EXPECT_EQ(Load("close\nbytes FF\n").error, "line 2: the pipe is closed");
    const std::string tooLong = "record " + std::string(514, 'x');
    for (const char* line : {"record", "record \\xFE", "record \\q", "record \\x4", "record a\\", "bytes",
                             "bytes F", "bytes FFF", "bytes GG", "bytes F F", "wait", "wait x", "wait -1",
                             "wait 5 s", "wait 600001", "drain", "close 1", "die now", tooLong.c_str()})
        EXPECT_EQ(Load(line).error, "line 1: no such command, or not in this form") << line;
}

TEST_F(HostScriptTest, SaysThatThereIsNothingToDo) {
    EXPECT_EQ(LoadHostScript("no such script.txt").error, "cannot be opened");
    EXPECT_EQ(Load("").error, "holds no command");
    EXPECT_EQ(Load("# nothing\n").error, "holds no command");
}

TEST_F(HostScriptTest, IsBounded) {
    std::string bytes = "bytes ";
    for (int i = 0; i < 4096; ++i) bytes += "47";
    EXPECT_EQ(BytesOf(bytes).size(), 4096u);
    EXPECT_NE(Load(bytes + "47").error, "");
    std::string many;
    for (int i = 0; i <= 10'000; ++i) many += "wait 0\n";
    EXPECT_EQ(Load(many).error, "line 10001: too many commands");
}

TEST_F(HostScriptTest, SendsExactlyTheseBytesAtTheseTimes) {
    EXPECT_EQ(Run("bytes FF\nwait 30\nbytes 4D 2C\nwait 20\nbytes FE\n"), PlayResult::Stopped);
    ASSERT_EQ(m_link.sent.size(), 3u);
    EXPECT_EQ(m_link.sent[1].bytes, "M,");
    EXPECT_EQ(m_link.sent[1].at, milliseconds(1030));
    EXPECT_EQ(m_link.sent[2].at, milliseconds(1050));
}

TEST_F(HostScriptTest, WaitsForRoomAndForTheReader) {
    m_link.capacity = 513;
    m_link.reads = false;
    m_link.onWait = [&] { m_link.reads = m_link.now >= milliseconds(1500); };
    Run("record M,\nrecord M,\n");
    EXPECT_EQ(m_link.sent[1].at, milliseconds(1500));

    m_link.now = milliseconds(1000);
    m_link.unread = 1;
    Run("drain 300\nbytes FF\n");
    EXPECT_EQ(m_link.sent.back().at, milliseconds(1300));  // the reader was slower
    m_link.now = milliseconds(1000);
    Run("drain 5000\nbytes FF\n");
    EXPECT_EQ(m_link.sent.back().at, milliseconds(1500));
}

TEST_F(HostScriptTest, ClosesDiesAndNoticesThatTheProgramIsGone) {
    EXPECT_EQ(Run("bytes 47\nclose\nwait 10\n"), PlayResult::PipeClosed);
    EXPECT_TRUE(m_link.closed);
    EXPECT_EQ(Run("die\nwait 10\n"), PlayResult::Died);
    EXPECT_TRUE(m_link.died);
    m_link.gone = true;
    EXPECT_EQ(Run("wait 10\nbytes FF\n"), PlayResult::ProgramGone);
}

}  // namespace
}  // namespace plotvane
