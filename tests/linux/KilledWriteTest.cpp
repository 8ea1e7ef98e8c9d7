// A process that ends while it replaces a settings file.
#include <functional>

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
    EXPECT_TRUE(sawOld) << "no step came before the exchange";
    EXPECT_TRUE(sawNew) << "no step came behind the exchange";
    EXPECT_TRUE(sawRemains) << "no step came in its midst";
    EXPECT_TRUE(IsNew()) << "the work was not done in the end";
}

TEST_P(KilledWrite, AtABitOfTheNewFileLeavesTheOldOne) {
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

INSTANTIATE_TEST_SUITE_P(Each, KilledWrite, testing::ValuesIn(SettingsFiles()), TestNameOf);

}  // namespace
}  // namespace plotvane::test
