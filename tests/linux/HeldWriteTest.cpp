// Settings files that another program has open: they are written in place.
#include <sys/wait.h>
#include <unistd.h>

#include "base/AtomicFile.h"
#include "base/WholeCopy.h"
#include "tests/linux/support/FileFaults.h"
#include "tests/linux/support/FileSizeLimit.h"
#include "tests/linux/support/SettingsFile.h"
#include "tests/linux/support/UserRights.h"

namespace plotvane::test {
namespace {

class HeldWrite : public SettingsFileTest {
protected:
    std::filesystem::path Copy() const { return WholeCopyOf(File()); }

    const HeldFiles m_held;
};

TEST_P(HeldWrite, HoldsTheNewTextAloneAndIsTheSameFile) {
    struct Watcher {
        explicit Watcher(const std::filesystem::path& path) : file(path, std::ios::binary) {}
        std::ifstream file;
    } holder(File());
    EXPECT_EQ(Save(2), 0);
    EXPECT_TRUE(IsNew());
    EXPECT_TRUE(IsAlone());
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(holder.file), {}), m_new);
}

TEST_P(HeldWrite, FailsWhereTheCopysNameIsTakenByAForeignFile) {
    WriteBytes(Copy(), "somebody's notes");
    EXPECT_EQ(Save(2), -1);
    EXPECT_TRUE(IsOld());
    EXPECT_EQ(BytesOf(Copy()), "somebody's notes");
    EXPECT_EQ(NamesIn(m_scaling.Path()).size(), 2u);
}

TEST_P(HeldWrite, FailsWhereTheCopysNameIsTakenByALinkOrAFolder) {
    const TempFolder elsewhere;
    WriteBytes(elsewhere / "mine", "mine");
    std::filesystem::create_symlink(elsewhere / "mine", Copy());
    EXPECT_EQ(Save(2), -1);
    EXPECT_EQ(BytesOf(elsewhere / "mine"), "mine");
    EXPECT_TRUE(std::filesystem::is_symlink(Copy()));
    std::filesystem::remove(Copy());
    std::filesystem::create_directory(Copy());
    EXPECT_EQ(Save(2), -1);
    EXPECT_TRUE(IsOld());
}

// What a killed run has left.
TEST_P(HeldWrite, FinishesAnEarlierOneFirst) {
    WriteBytes(File(), m_old.substr(0, 3));
    WriteBytes(Copy(), m_old + MarkOf(m_old));
    EXPECT_EQ(Save(2), 0);
    EXPECT_TRUE(IsNew());
    EXPECT_TRUE(IsAlone());
}

TEST_P(HeldWrite, OfAFileThatMayNotBeWrittenIsReadFromTheCopy) {
    WriteBytes(File(), m_new.substr(0, 3));
    WriteBytes(Copy(), m_new + MarkOf(m_new));
    const UserRights rights;
    std::filesystem::permissions(File(), std::filesystem::perms::owner_read);
    EXPECT_TRUE(ReadsNew());
    EXPECT_EQ(BytesOf(File()), m_new.substr(0, 3));
    EXPECT_EQ(BytesOf(Copy()), m_new + MarkOf(m_new));
}

INSTANTIATE_TEST_SUITE_P(Each, HeldWrite, testing::ValuesIn(SettingsFiles()), TestNameOf);

// The new text with its mark is longer than the file, and is written first.
TEST(HeldWriteOnAFullDisk, LeavesTheOldTextAlone) {
    const TempFolder folder;
    const HeldFiles held;
    const std::string text(5000, 'n');
    const std::size_t needed = text.size() + MarkOf(text).size();
    WriteBytes(folder / "a.cfg", "old");
    for (std::size_t room = 0; room < needed; room += 7) {
        const FileSizeLimit disk(room);
        ASSERT_FALSE(ReplaceTextFile(folder / "a.cfg", text)) << room;
        ASSERT_EQ(BytesOf(folder / "a.cfg"), "old") << room;
        ASSERT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a.cfg"}) << room;
    }
    const FileSizeLimit disk(needed);
    EXPECT_TRUE(ReplaceTextFile(folder / "a.cfg", text));
    EXPECT_EQ(BytesOf(folder / "a.cfg"), text);
}

TEST(OverwriteOnAFullDisk, LeavesTheOldBytes) {
    const TempFolder folder;
    WriteBytes(folder / "a.cfg", "old text");
    for (std::size_t room = 8; room < 5000; room += 7) {
        const FileSizeLimit disk(room);
        ASSERT_EQ(Overwrite(folder / "a.cfg", std::string(5000, 'n')), Overwritten::Untouched) << room;
        ASSERT_EQ(BytesOf(folder / "a.cfg"), "old text") << room;
    }
}

// Programs that save at the same time, each by renaming or in place.
class SavesAtOnce : public testing::TestWithParam<int> {
protected:
    static constexpr int kPrograms = 4;
    static constexpr int kSaves = 40;

    static std::string TextOf(int program) {
        return std::string(static_cast<std::size_t>(200 * (program + 1)), static_cast<char>('a' + program));
    }

    void SaveAgainAndAgain(int program) const {
        const std::string text = TextOf(program);
        for (int i = 0; i < kSaves; ++i) {
            const bool isHeld = program < GetParam();
            const auto held = isHeld ? std::make_unique<HeldFiles>() : nullptr;
            static_cast<void>(ReplaceTextFile(m_folder / "a.cfg", text));
        }
    }

    TempFolder m_folder;
};

TEST_P(SavesAtOnce, LeaveOneWholeText) {
    ASSERT_TRUE(ReplaceTextFile(m_folder / "a.cfg", TextOf(0)));
    std::vector<pid_t> children;
    for (int program = 0; program < kPrograms; ++program) {
        const pid_t child = fork();
        if (child == 0) {
            SaveAgainAndAgain(program);
            _exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    const std::string text = BytesOf(m_folder / "a.cfg");
    bool isOneOfThem = false;
    for (int program = 0; program < kPrograms; ++program)
        isOneOfThem = isOneOfThem || text == TextOf(program);
    EXPECT_TRUE(isOneOfThem) << text;
    EXPECT_EQ(NamesIn(m_folder.Path()), std::set<std::string>{"a.cfg"});
}

INSTANTIATE_TEST_SUITE_P(SomeInPlace, SavesAtOnce, testing::Values(0, 2, 4),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace plotvane::test
