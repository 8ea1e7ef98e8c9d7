#include "logs/LogCheck.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

class LogCheckTest : public testing::Test {
protected:
    LogCheck Checked(std::string_view bytes) {
        test::WriteBytes(m_folder / "x.csv", bytes);
        return CheckLog(m_folder / "x.csv");
    }
    test::TempFolder m_folder;
};

TEST_F(LogCheckTest, KnowsALogByTheTimeInItsFifthField) {
    EXPECT_EQ(Checked("Friday,20,November,2026,10:15:30\r\n"), LogCheck::HostLog);
    EXPECT_EQ(Checked(",,,,00:00:00"), LogCheck::HostLog);
    EXPECT_EQ(Checked(",,,,99:99:99 and more"), LogCheck::HostLog);
}

TEST_F(LogCheckTest, RefusesALetterAmongTheDigitsOfTheTime) {
    for (const auto* time : {"x0:15:30", "1x:15:30", "10:x5:30", "10:1x:30", "10:15:x0", "10:15:3x"})
        EXPECT_EQ(Checked("Friday,20,November,2026," + std::string(time) + "\n"), LogCheck::SomethingElse)
            << time;
}

TEST_F(LogCheckTest, RefusesOtherThingsInPlaceOfTheTime) {
    for (const auto* time :
         {"", "10", "10:15", "10:15:3", "10.15:30", "10:15.30", " 10:15:30", "1:15:30", "10:15:\n30"})
        EXPECT_EQ(Checked("Friday,20,November,2026," + std::string(time)), LogCheck::SomethingElse) << time;
}

TEST_F(LogCheckTest, RefusesALineWithFewerThanFourCommas) {
    EXPECT_EQ(Checked("Friday,20,November\n10:15:30,10:15:30\n"), LogCheck::SomethingElse);
    EXPECT_EQ(Checked(",,,\n,10:15:30\n"), LogCheck::SomethingElse);
    EXPECT_EQ(Checked(""), LogCheck::SomethingElse);
    EXPECT_EQ(Checked(",,,"), LogCheck::SomethingElse);
}

TEST_F(LogCheckTest, LooksForTheFourthCommaWithinNinetyNineCharacters) {
    EXPECT_EQ(Checked(std::string(95, 'x') + ",,,,10:15:30"), LogCheck::HostLog);
    EXPECT_EQ(Checked(std::string(96, 'x') + ",,,,10:15:30"), LogCheck::SomethingElse);
    EXPECT_EQ(Checked(std::string(1000000, 'x')), LogCheck::SomethingElse);
}

TEST_F(LogCheckTest, EndsAtAnEndOfFileByte) {
    EXPECT_EQ(Checked("Friday,20,\xFF,2026,10:15:30"), LogCheck::SomethingElse);
    EXPECT_EQ(Checked("Friday,20,November,2026,10:15:\xFF"
                      "30"),
              LogCheck::SomethingElse);
}

// Some systems allow a file of such a name, and here it would hold a log.
TEST_F(LogCheckTest, OpensNoDevice) {
    for (const auto* name : {"COM1", "com1.csv", "NUL", "con.txt"}) {
        EXPECT_EQ(CheckLog(m_folder / name), LogCheck::Unreadable) << name;
#ifndef _WIN32
        test::WriteBytes(m_folder / name, ",,,,00:00:00");
        EXPECT_EQ(CheckLog(m_folder / name), LogCheck::Unreadable) << name;
#endif
    }
#ifndef _WIN32
    EXPECT_EQ(CheckLog("/dev/zero"), LogCheck::Unreadable);
#endif
}

TEST_F(LogCheckTest, SaysWhenTheFileCannotBeOpened) {
    EXPECT_EQ(CheckLog(m_folder / "none.csv"), LogCheck::Unreadable);
    EXPECT_EQ(CheckLog(m_folder.Path()), LogCheck::Unreadable);
}

}  // namespace
}  // namespace plotvane
