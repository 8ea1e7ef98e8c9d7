// Places where nothing can be written.
#include "tests/linux/support/SettingsFile.h"
#include "tests/linux/support/UserRights.h"

namespace plotvane::test {
namespace {

// Permissions of a file or folder, for as long as this object lives.
class Permissions {
public:
    Permissions(std::filesystem::path path, std::filesystem::perms permissions)
        : m_path(std::move(path)), m_before(std::filesystem::status(m_path).permissions()) {
        std::filesystem::permissions(m_path, permissions);
    }
    ~Permissions() { std::filesystem::permissions(m_path, m_before); }
    Permissions(const Permissions&) = delete;
    Permissions& operator=(const Permissions&) = delete;

private:
    std::filesystem::path m_path;
    std::filesystem::perms m_before;
};

constexpr auto kReadAndEnter = std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec;

class RefusedWrite : public SettingsFileTest {
protected:
    void ExpectRefusal() {
        EXPECT_EQ(Save(2), -1);
        EXPECT_TRUE(IsOld());
        EXPECT_TRUE(IsAlone());
    }
    void ExpectTheNextSaveToSucceed() {
        EXPECT_EQ(Save(2), 0);
        EXPECT_TRUE(IsNew());
        EXPECT_TRUE(IsAlone());
    }
};

TEST_P(RefusedWrite, InAReadOnlyFolder) {
    {
        const UserRights rights;
        const Permissions readOnly(m_scaling.Path(), kReadAndEnter);
        ExpectRefusal();
    }
    ExpectTheNextSaveToSucceed();
}

TEST_P(RefusedWrite, OfAReadOnlyFile) {
    {
        const Permissions readOnly(File(), std::filesystem::perms::owner_read);
        ExpectRefusal();
    }
    ExpectTheNextSaveToSucceed();
}

TEST_P(RefusedWrite, InAFolderThatIsGone) {
    std::filesystem::remove_all(m_scaling.Path());
    EXPECT_EQ(Save(2), -1);
    EXPECT_FALSE(std::filesystem::exists(m_scaling.Path()));
}

TEST_P(RefusedWrite, InAFileSystemThatTakesNoFiles) {
    EXPECT_EQ(GetParam().save("/proc/self", 2), -1);
}

TEST_P(RefusedWrite, OverAFolderOfThatName) {
    std::filesystem::remove(File());
    std::filesystem::create_directory(File());
    EXPECT_EQ(Save(2), -1);
    EXPECT_TRUE(std::filesystem::is_directory(File()));
    EXPECT_TRUE(IsAlone());
}

INSTANTIATE_TEST_SUITE_P(Each, RefusedWrite, testing::ValuesIn(SettingsFiles()), TestNameOf);

}  // namespace
}  // namespace plotvane::test
