// A process that ends while it replaces a settings file.
#include <functional>

#include "base/WholeCopy.h"
#include "tests/linux/support/FileFaults.h"
#include "tests/linux/support/Killed.h"
#include "tests/linux/support/SettingsFile.h"

namespace plotvane::test {
namespace {

class KilledWrite : public SettingsFileTest {
protected:
    std::function<void()> Replacing() const {
        return [this] { static_cast<void>(Save(2)); };
    }

    // What is left beside the file must not hinder the next run.
    void ExpectTheNextSaveToClearUp() {
        EXPECT_EQ(Save(1), 0);
        EXPECT_TRUE(IsOld());
        EXPECT_TRUE(IsAlone());
    }
};

TEST_P(KilledWrite, AtAnySystemCallLeavesTheOldOrTheNewFile) {
    bool sawOld = false;
    bool sawNew = false;
    bool sawRemains = false;
    int step = 1;
    for (; KilledAtStep(step, Replacing()); ++step) {
        ASSERT_TRUE(IsOld() || IsNew()) << "step " << step << ": " << BytesOf(File());
        sawOld = sawOld || IsOld();
        sawNew = sawNew || IsNew();
        sawRemains = sawRemains || !IsAlone();
        ExpectTheNextSaveToClearUp();
        ASSERT_FALSE(HasFailure()) << "step " << step;
    }
    EXPECT_TRUE(sawOld) << "no kill came before the exchange";
    EXPECT_TRUE(sawNew) << "no kill came after the exchange";
    EXPECT_TRUE(sawRemains) << "no kill came during the exchange";
    EXPECT_TRUE(IsNew()) << "the work that nothing killed was not done";
}

TEST_P(KilledWrite, InTheMiddleOfTheNewFileLeavesTheOldOne) {
    constexpr std::size_t kPlaces = 64;
    const std::size_t stride = 1 + m_new.size() / kPlaces;
    for (std::size_t bytes = 0; bytes < m_new.size(); bytes += stride) {
        ASSERT_TRUE(KilledAtByte(bytes, Replacing())) << bytes;
        ASSERT_TRUE(IsOld()) << bytes << ": " << BytesOf(File());
        ExpectTheNextSaveToClearUp();
        ASSERT_FALSE(HasFailure()) << bytes;
    }
    EXPECT_FALSE(KilledAtByte(m_new.size(), Replacing()));
    EXPECT_TRUE(IsNew());
}

// Another program has the file open, so it is written in place. The tests go from the shorter text to the
// longer one and back.
class KilledWriteInPlace : public SettingsFileTest {
protected:
    static constexpr int kShort = 1;
    static constexpr int kLong = 0x7FFFFFF;

    void KillAtEachStep(int from, int to) {
        const std::string before = Edition(from);
        const std::string after = Edition(to);
        ASSERT_NE(before.size(), after.size());
        bool sawTorn = false;
        std::set<std::string> seen;
        const auto replace = [&] {
            const HeldFiles held;
            const NoWaiting noWaiting;
            static_cast<void>(Save(to));
        };
        ASSERT_EQ(Save(from), 0);
        int step = 1;
        for (; KilledAtStep(step, replace); ++step) {
            const std::string bytes = BytesOf(File());
            sawTorn = sawTorn || (bytes != before && bytes != after);
            const std::string text = ReadText();
            ASSERT_TRUE(text == TextOf(before) || text == TextOf(after)) << "step " << step << ": " << text;
            // The reader has put the text that it found on the disk; it stays there without the copy.
            ASSERT_EQ(TextOf(BytesOf(File())), text) << "step " << step;
            seen.insert(text);
            ASSERT_EQ(Save(from), 0) << "step " << step;
            ASSERT_TRUE(IsAlone()) << "step " << step;
        }
        EXPECT_EQ(seen.size(), 2u);
        EXPECT_TRUE(sawTorn) << "no kill came during the writing";
        EXPECT_EQ(BytesOf(File()), after);
        EXPECT_TRUE(IsAlone());
    }
};

TEST_P(KilledWriteInPlace, OfALongerTextLeavesOneWholeText) {
    KillAtEachStep(kShort, kLong);
}

TEST_P(KilledWriteInPlace, OfAShorterTextLeavesOneWholeText) {
    KillAtEachStep(kLong, kShort);
}

// The writer is killed, and the reader that finishes its work is killed too. The next reader finds the text.
TEST_P(KilledWriteInPlace, IsFinishedEvenIfTheReaderIsKilledToo) {
    ASSERT_EQ(Save(kShort), 0);
    const std::string before = BytesOf(File());
    const std::string after = Edition(kLong);
    const auto replace = [&] {
        const HeldFiles held;
        const NoWaiting noWaiting;
        static_cast<void>(Save(kLong));
    };
    for (int step = 1; BytesOf(File()) == before; ++step) ASSERT_TRUE(KilledAtStep(step, replace));
    const std::string torn = BytesOf(File());
    ASSERT_NE(torn, after);
    const auto copy = WholeCopyOf(File());
    const std::string copyBytes = BytesOf(copy);
    ASSERT_EQ(copyBytes, after + MarkOf(after));
    const auto read = [&] { static_cast<void>(ReadText()); };
    for (int step = 1;; ++step) {
        WriteBytes(File(), torn);
        WriteBytes(copy, copyBytes);
        if (!KilledAtStep(step, read)) break;
        ASSERT_EQ(ReadText(), TextOf(after)) << step;
        ASSERT_EQ(BytesOf(File()), after) << step;
        ASSERT_FALSE(std::filesystem::exists(copy)) << step;
    }
}

// The shortest and one of the longest.
INSTANTIATE_TEST_SUITE_P(Each, KilledWriteInPlace,
                         testing::Values(SettingsFiles().front(), SettingsFiles().back()), TestNameOf);

INSTANTIATE_TEST_SUITE_P(Each, KilledWrite, testing::ValuesIn(SettingsFiles()), TestNameOf);

}  // namespace
}  // namespace plotvane::test
