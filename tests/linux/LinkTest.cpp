// Settings files that are links, and links that somebody has put where the program writes.
#include "base/FileOperations.h"
#include "scaling/DefaultScaling.h"
#include "tests/linux/support/FileFaults.h"
#include "tests/linux/support/SettingsFile.h"

namespace plotvane::test {
namespace {

class LinkedFile : public SettingsFileTest {
protected:
    void SetUp() override {
        SettingsFileTest::SetUp();
        std::filesystem::rename(File(), Target());
        std::filesystem::create_symlink(Target(), File());
    }
    std::filesystem::path Target() const { return m_elsewhere / "mine.txt"; }
    void ExpectSavedThroughTheLink() {
        EXPECT_EQ(Save(2), 0);
        EXPECT_TRUE(std::filesystem::is_symlink(File()));
        EXPECT_EQ(BytesOf(Target()), m_new);
        EXPECT_TRUE(IsAlone());
        EXPECT_EQ(NamesIn(m_elsewhere.Path()), std::set<std::string>{"mine.txt"});
    }

    TempFolder m_elsewhere;
};

TEST_P(LinkedFile, StaysALinkAndItsTargetIsReplaced) {
    ExpectSavedThroughTheLink();
}

TEST_P(LinkedFile, StaysALinkWhereTheTargetIsHeld) {
    const HeldFiles held;
    ExpectSavedThroughTheLink();
}

TEST_P(LinkedFile, MayLeadThroughAnotherLink) {
    std::filesystem::rename(File(), m_scaling / "between");
    std::filesystem::create_symlink("between", File());
    EXPECT_EQ(Save(2), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(File()));
    EXPECT_TRUE(std::filesystem::is_symlink(m_scaling / "between"));
    EXPECT_EQ(BytesOf(Target()), m_new);
}

// The drive that it leads to is not there. When the drive comes back, the link must still lead to it.
TEST_P(LinkedFile, ThatLeadsNowhereIsNeitherWrittenNorReplaced) {
    std::filesystem::remove(Target());
    EXPECT_EQ(KindOf(File()), FileKind::Other);
    EXPECT_EQ(Save(2), -1);
    EXPECT_TRUE(std::filesystem::is_symlink(File()));
    EXPECT_FALSE(std::filesystem::exists(Target()));
    EXPECT_TRUE(IsAlone());
}

INSTANTIATE_TEST_SUITE_P(Each, LinkedFile, testing::ValuesIn(SettingsFiles()), TestNameOf);

TEST(LinkedDefaults, ThatLeadNowhereAreNotMadeAfresh) {
    const TempFolder folder;
    std::filesystem::create_symlink("nowhere", folder / "Defaults.cfg");
    DefaultScaling table(folder.Path());
    table.LoadForPlotting();
    EXPECT_EQ(table.LastIndex(), 9);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "Defaults.cfg"));
    EXPECT_FALSE(std::filesystem::exists(folder / "nowhere"));
}

}  // namespace
}  // namespace plotvane::test
