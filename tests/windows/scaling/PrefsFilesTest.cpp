#include <windows.h>

#include <commctrl.h>

#include "tests/windows/scaling/PrefsDlgFixture.h"

namespace plotvane::test {
namespace {

constexpr std::string_view kStoredPrefs =
    "BackColor=102030\r\nGridColor=ffffff\r\n"
    "Line0Color=ff\r\nLine1Color=ff00\r\nLine2Color=ffff\r\nLine3Color=ffc0c0\r\n"
    "Line4Color=a0ff\r\nLine5Color=ffff00\r\nLine6Color=a000\r\nLine7Color=7f0000\r\n"
    "Line8Color=60a0\r\nLine9Color=c0c0ff\r\nLine10Color=ffa000\r\nLine11Color=a0a000\r\n"
    "Thickness=2\r\nAutorun=0\r\nShowUnits=1\r\nShowZeros=1\r\nSaveWindowSize=0\r\n"
    "Width=2bc\r\nHeight=1f4\r\nMaxMileage=50\r\nMaxConsumption=15\r\nFuelHistoryDepth=3\r\n";
constexpr std::string_view kStoredTable = "V,0,20,\r\nms,1,30,\r\n";

class PrefsDlgFiles : public PrefsDlgFixture {
protected:
    PrefsDlgFiles() {
        WriteBytes(PrefsFile(), kStoredPrefs);
        WriteBytes(TableFile(), kStoredTable);
    }
    static std::string Changed(std::string_view text, std::string_view from, std::string_view to) {
        std::string changed{text};
        return changed.replace(changed.find(from), from.size(), to);
    }
};

TEST_F(PrefsDlgFiles, SwitchesAreThoseOfTheFileAtTheStart) {
    Use([](DialogUser& user) {
        EXPECT_FALSE(user.IsChecked(1229));
        EXPECT_TRUE(user.IsChecked(1230));
        EXPECT_TRUE(user.IsChecked(1231));
        EXPECT_FALSE(user.IsChecked(1233));
    });
}

TEST_F(PrefsDlgFiles, SwitchesAreStoredAtOnce) {
    Use([this](DialogUser& user) {
        const std::pair<int, bool Prefs::*> switches[] = {{1229, &Prefs::autorun},
                                                          {1230, &Prefs::showUnits},
                                                          {1231, &Prefs::showZeros},
                                                          {1233, &Prefs::saveWindowSize}};
        for (const auto& [box, field] : switches) {
            const bool before = m_prefs.*field;
            user.Click(box);
            EXPECT_TRUE(user.IsAtRest());
            EXPECT_EQ(m_prefs.*field, !before) << box;
            EXPECT_EQ(user.IsChecked(box), !before) << box;
        }
    });
}

TEST_F(PrefsDlgFiles, SavingWithoutAnEditWritesTheSameBytes) {
    Use([](DialogUser& user) {
        user.Click(IDOK);
        EXPECT_TRUE(user.Ends());
    });
    EXPECT_EQ(m_result, IDOK);
    EXPECT_EQ(BytesOf(PrefsFile()), kStoredPrefs);
    EXPECT_EQ(BytesOf(TableFile()), kStoredTable);
}

TEST_F(PrefsDlgFiles, SavingWritesBothFilesWithTheWindowsPresentSize) {
    m_state.width = 0x321;
    m_state.height = 0x234;
    Use([](DialogUser& user) {
        user.Slide(1217, 0);
        user.WaitUntil("the number follows", [&] { return user.TextOf(1206) == "0"; });
        user.Click(1233);
        user.Type(1236, "16");
        user.Type(1232, "mV");
        user.Click(IDOK);
        EXPECT_TRUE(user.Ends());
    });
    std::string prefs = Changed(kStoredPrefs, "GridColor=ffffff", "GridColor=ffff00");
    prefs = Changed(prefs, "SaveWindowSize=0", "SaveWindowSize=1");
    prefs = Changed(prefs, "Width=2bc", "Width=321");
    prefs = Changed(prefs, "Height=1f4", "Height=234");
    prefs = Changed(prefs, "MaxConsumption=15", "MaxConsumption=16");
    EXPECT_EQ(BytesOf(PrefsFile()), prefs);
    EXPECT_EQ(BytesOf(TableFile()), "mV,0,20,\r\nms,1,30,\r\n");
}

TEST_F(PrefsDlgFiles, DiscardingBringsTheStoredPreferencesBack) {
    Use([this](DialogUser& user) {
        user.Slide(1216, 200);
        user.WaitUntil("the number follows", [&] { return user.TextOf(1203) == "200"; });
        EXPECT_EQ(m_prefs.backColor, 0x1020C8u);
        user.Click(1229);
        user.Type(1235, "70");
        user.Type(1232, "mV");
        user.Click(IDCANCEL);
        EXPECT_TRUE(user.Ends());
    });
    EXPECT_EQ(m_result, IDCANCEL);
    EXPECT_EQ(m_prefs.backColor, 0x102030u);
    EXPECT_FALSE(m_prefs.autorun);
    EXPECT_EQ(m_prefs.maxMileage, 50);
    EXPECT_EQ(BytesOf(PrefsFile()), kStoredPrefs);
    EXPECT_EQ(BytesOf(TableFile()), kStoredTable);
    EXPECT_EQ(m_table.Row(0).unit, "mV");  // the table keeps its edits until it is loaded again

    Use([](DialogUser& user) { EXPECT_EQ(user.TextOf(1232), "V"); });
}

TEST_F(PrefsDlgFiles, EscAndTheCloseBoxDiscard) {
    Use([](DialogUser& user) {
        user.Choose(1226, 13);
        user.Press(VK_ESCAPE);
        EXPECT_TRUE(user.Ends());
    });
    EXPECT_EQ(m_prefs.backColor, 0x102030u);
    Use([](DialogUser& user) {
        user.Choose(1226, 13);
        ::PostMessageW(user.Dialog(), WM_SYSCOMMAND, SC_CLOSE, 0);
        EXPECT_TRUE(user.Ends());
    });
    EXPECT_EQ(m_result, IDCANCEL);
    EXPECT_EQ(m_prefs.backColor, 0x102030u);
}

TEST_F(PrefsDlgFiles, AreAsStoredAsSoonAsTheCloseReturns) {
    Use([this](DialogUser& user) {
        user.Choose(1226, 13);
        ::SendMessageW(user.Dialog(), WM_CLOSE, 0, 0);
        EXPECT_EQ(m_prefs.backColor, 0x102030u);
    });
    EXPECT_EQ(m_result, IDCANCEL);
}

TEST_F(PrefsDlgFiles, ClosingTheDialogClosesAMessageOverItToo) {
    Use([this](DialogUser& user) {
        user.Type(1234, "11");
        user.GoTo(1225);
        user.WaitUntil("a box is shown", [&] { return user.ShownBox() != nullptr; });
        EXPECT_EQ(m_prefs.thickness, 11);
        ::SendMessageW(user.Dialog(), WM_COMMAND, IDOK, 0);  // does nothing while the box is open
        ::SendMessageW(user.Dialog(), WM_CLOSE, 0, 0);
        EXPECT_TRUE(user.Ends());
        EXPECT_EQ(user.BoxCount(), 1);
    });
    EXPECT_EQ(m_result, IDCANCEL);
    EXPECT_EQ(m_prefs.thickness, 2);
    EXPECT_EQ(BytesOf(PrefsFile()), kStoredPrefs);
}

TEST_F(PrefsDlgFiles, ClosesEvenIfTheFilesCannotBeWritten) {
    std::filesystem::remove(PrefsFile());
    std::filesystem::remove(TableFile());
    std::filesystem::create_directory(PrefsFile());
    std::filesystem::create_directory(TableFile());
    Use([](DialogUser& user) {
        user.Click(IDOK);
        EXPECT_TRUE(user.Ends());
        EXPECT_EQ(user.BoxCount(), 0);
    });
    EXPECT_EQ(m_result, IDOK);
}

TEST_F(PrefsDlgFiles, MissingOnesGiveTheDefaultsOfAFirstRun) {
    std::filesystem::remove(PrefsFile());
    Use([this](DialogUser& user) {
        EXPECT_EQ(user.TextOf(1235), "60");
        user.Click(1233);
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_FALSE(m_prefs.saveWindowSize);
        user.Click(IDCANCEL);
        EXPECT_TRUE(user.Ends());
    });
    EXPECT_FALSE(std::filesystem::exists(PrefsFile()));
    EXPECT_FALSE(m_prefs.saveWindowSize);  // the one switch that only a file brings back
}

}  // namespace
}  // namespace plotvane::test
