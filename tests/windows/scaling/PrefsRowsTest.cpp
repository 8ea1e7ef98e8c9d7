#include "tests/windows/scaling/PrefsDlgFixture.h"

namespace plotvane::test {
namespace {

constexpr int kUnit = 1232;
constexpr int kMin = 1054;
constexpr int kMax = 1055;
constexpr int kLabel = 1212;
constexpr int kNext = 1097;
constexpr int kPrevious = 1098;
constexpr int kNew = 1200;

const Box kIncomplete{"Error", "Please complete this field before going for another!"};
const Box kUpsideDown{"Doh! ;-)", "Please a max value ABOVE the min value"};

class PrefsDlgRows : public PrefsDlgFixture {
protected:
    static void ExpectRow(const DialogUser& user, const char* label, const char* unit, const char* min,
                          const char* max) {
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(user.TextOf(kLabel), label);
        EXPECT_EQ(user.TextOf(kUnit), unit);
        EXPECT_EQ(user.TextOf(kMin), min);
        EXPECT_EQ(user.TextOf(kMax), max);
    }
};

TEST_F(PrefsDlgRows, BeginAtTheFirstOfTheFile) {
    WriteBytes(TableFile(), "\xB0\x43,-10,120,\r\nms,0,30,\r\n");
    Use([](DialogUser& user) { ExpectRow(user, "Field#: 1/2", "\xB0\x43", "-10", "120"); });
}

TEST_F(PrefsDlgRows, AreTheBuiltInOnesWithoutAFile) {
    Use([](DialogUser& user) {
        ExpectRow(user, "Field#: 1/10", "/min", "0", "6000");
        for (int i = 0; i < 3; ++i) user.Click(kNext);
        ExpectRow(user, "Field#: 4/10", "mg/R", "0", "1500");
    });
}

TEST_F(PrefsDlgRows, StepToTheEndsAndNoFurther) {
    WriteBytes(TableFile(), "V,0,20,\r\nms,1,30,\r\n");
    Use([](DialogUser& user) {
        user.Click(kPrevious);
        ExpectRow(user, "Field#: 1/2", "V", "0", "20");
        user.Click(kNext);
        ExpectRow(user, "Field#: 2/2", "ms", "1", "30");
        user.Click(kNext);
        ExpectRow(user, "Field#: 2/2", "ms", "1", "30");
        user.Click(kPrevious);
        ExpectRow(user, "Field#: 1/2", "V", "0", "20");
    });
}

TEST_F(PrefsDlgRows, AreEditedInPlaceAsTheirEditsAreLeft) {
    WriteBytes(TableFile(), "V,0,20,\r\nms,1,30,\r\n");
    Use([this](DialogUser& user) {
        user.Type(kUnit, "mV");
        user.Type(kMin, "-5");
        user.Type(kMax, "99999999999");
        user.Click(kNext);
        ExpectRow(user, "Field#: 2/2", "ms", "1", "30");
        EXPECT_EQ(m_table.Row(0).unit, "mV");
        EXPECT_EQ(m_table.Row(0).min, -5);
        EXPECT_EQ(m_table.Row(0).max, 2147483647);
        user.Click(kPrevious);
        ExpectRow(user, "Field#: 1/2", "mV", "-5", "2147483647");
    });
}

TEST_F(PrefsDlgRows, TextsThatAreSetBeforeAnyIsLeftAreAllTaken) {
    WriteBytes(TableFile(), "V,0,20,\r\n");
    Use([this](DialogUser& user) {
        user.SetText(kUnit, "A");
        user.SetText(kMin, "-3");
        user.SetText(kMax, "3 amps");
        for (const int edit : {kUnit, kMin, kMax}) {
            ::SendMessageW(user.Dialog(), WM_COMMAND, MAKEWPARAM(edit, EN_KILLFOCUS),
                           reinterpret_cast<LPARAM>(user.Control(edit)));
        }
        ExpectRow(user, "Field#: 1/1", "A", "-3", "3 amps");
        EXPECT_EQ(m_table.Row(0).unit, "A");
        EXPECT_EQ(m_table.Row(0).min, -3);
        EXPECT_EQ(m_table.Row(0).max, 3);
    });
}

class PrefsDlgRowTexts : public PrefsDlgRows {
protected:
    PrefsDlgRowTexts() { WriteBytes(TableFile(), "V,1,20,\r\n"); }

    // Types a text, leaves the edit, and returns what it then shows.
    static std::string ShownAfter(DialogUser& user, int edit, std::string_view text) {
        user.SetText(edit, text);
        ::SendMessageW(user.Dialog(), WM_COMMAND, MAKEWPARAM(edit, EN_KILLFOCUS),
                       reinterpret_cast<LPARAM>(user.Control(edit)));
        return user.TextOf(edit);
    }
};

TEST_F(PrefsDlgRowTexts, UnitsAreTakenWithoutWhatWouldBreakTheFileAndStayAsTyped) {
    Use([this](DialogUser& user) {
        EXPECT_EQ(ShownAfter(user, kUnit, "k,m/h"), "k,m/h");
        EXPECT_EQ(m_table.Row(0).unit, "km/h");
        EXPECT_EQ(ShownAfter(user, kUnit, std::string(60, 'u')), std::string(60, 'u'));
        EXPECT_EQ(m_table.Row(0).unit, std::string(39, 'u'));
    });
}

TEST_F(PrefsDlgRowTexts, NumbersThatAreTakenStayAsTyped) {
    Use([this](DialogUser& user) {
        EXPECT_EQ(ShownAfter(user, kMin, "-5 V"), "-5 V");
        EXPECT_EQ(m_table.Row(0).min, -5);
        EXPECT_EQ(ShownAfter(user, kMin, ""), "");
        EXPECT_EQ(m_table.Row(0).min, 0);
        EXPECT_EQ(ShownAfter(user, kMax, "007"), "007");
        EXPECT_EQ(m_table.Row(0).max, 7);
        user.Click(kPrevious);  // shows the row again
        ExpectRow(user, "Field#: 1/1", "V", "0", "7");
    });
}

TEST_F(PrefsDlgRowTexts, WhatIsNotTakenGivesWayToTheRow) {
    Use([this](DialogUser& user) {
        EXPECT_EQ(ShownAfter(user, kUnit, "EOF"), "V");
        EXPECT_EQ(ShownAfter(user, kMax, "-99999"), "20");
        EXPECT_EQ(m_table.Row(0).unit, "V");
        EXPECT_EQ(m_table.Row(0).max, 20);
    });
}

TEST_F(PrefsDlgRows, NoMoreThan39CharactersCanBeTyped) {
    Use([](DialogUser& user) { EXPECT_EQ(user.Ask(kUnit, EM_GETLIMITTEXT), 39); });
}

TEST_F(PrefsDlgRows, NewAppendsAnEmptyRow) {
    WriteBytes(TableFile(), "V,0,20,\r\nms,1,30,\r\n");
    Use([this](DialogUser& user) {
        user.Click(kNew);
        ExpectRow(user, "Field#: 3/3", "", "0", "0");
        EXPECT_EQ(m_table.LastIndex(), 2);
        EXPECT_EQ(user.BoxCount(), 0);
    });
}

TEST_F(PrefsDlgRows, NewWantsTheLastRowCompleteFirst) {
    WriteBytes(TableFile(), "V,0,20,\r\nms,1,0,\r\n");
    Use([this](DialogUser& user) {
        user.Click(kNew);
        EXPECT_TRUE(user.SeesBox(kIncomplete));
        ExpectRow(user, "Field#: 2/2", "ms", "1", "0");
        EXPECT_TRUE(user.GetsFocus(kUnit));
        EXPECT_EQ(m_table.LastIndex(), 1);

        user.Type(kMax, "1");
        user.Click(kNew);
        EXPECT_TRUE(user.SeesBox(kUpsideDown));
        ExpectRow(user, "Field#: 2/2", "ms", "1", "1");
        EXPECT_TRUE(user.GetsFocus(kUnit));

        user.Type(kMax, "2");
        user.Click(kNew);
        ExpectRow(user, "Field#: 3/3", "", "0", "0");
        EXPECT_EQ(user.BoxCount(), 2);
    });
}

TEST_F(PrefsDlgRows, NewWantsTheUnitBeforeTheRange) {
    WriteBytes(TableFile(), ",5,-5,\r\n");
    Use([](DialogUser& user) {
        user.Click(kNew);
        EXPECT_TRUE(user.SeesBox(kIncomplete));
        user.Type(kUnit, "V");
        user.Click(kNew);
        EXPECT_TRUE(user.SeesBox(kUpsideDown));
    });
}

TEST_F(PrefsDlgRows, OfAnEmptyTableThereAreNoneUntilNew) {
    WriteBytes(TableFile(), "");
    Use([](DialogUser& user) {
        ExpectRow(user, "Field#: 1/0", "", "", "");
        for (const int edit : {kUnit, kMin, kMax}) EXPECT_FALSE(::IsWindowEnabled(user.Control(edit)));
        user.Click(kNext);
        user.Click(kPrevious);
        ExpectRow(user, "Field#: 1/0", "", "", "");
        user.Click(kNew);
        ExpectRow(user, "Field#: 1/1", "", "0", "0");
        user.Type(kUnit, "V");
        user.Click(IDOK);
        EXPECT_TRUE(user.Ends());
    });
    EXPECT_EQ(BytesOf(TableFile()), "V,0,0,\r\n");
}

TEST_F(PrefsDlgRows, AFullTableTakesNoMore) {
    std::string file;
    for (int row = 0; row < 256; ++row) file += "V,0,20,\r\n";
    WriteBytes(TableFile(), file);
    Use([this](DialogUser& user) {
        user.Click(kNew);
        ExpectRow(user, "Field#: 1/256", "V", "0", "20");
        EXPECT_EQ(m_table.LastIndex(), 255);
        EXPECT_EQ(user.BoxCount(), 0);
    });
}

}  // namespace
}  // namespace plotvane::test
