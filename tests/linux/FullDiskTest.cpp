// A disk that is full, at each byte of each settings file.
#include "base/AtomicFile.h"
#include "scaling/ModuleScaling.h"
#include "tests/linux/support/FileSizeLimit.h"
#include "tests/linux/support/SettingsFile.h"

namespace plotvane::test {
namespace {

// A text about as long as the longest settings file.
std::string LongText() {
    std::string text;
    for (int group = 1; group <= 255; ++group) text += std::to_string(group) + ",0,100,0,100,0,100,0,100,\n";
    return text;
}

TEST(FullDiskForAnyText, AtEachByteTheOldFileStandsAlone) {
    const TempFolder folder;
    const std::string text = LongText();
    ASSERT_TRUE(ReplaceTextFile(folder / "a.cfg", text));
    const std::size_t size = BytesOf(folder / "a.cfg").size();
    WriteBytes(folder / "a.cfg", "old");
    for (std::size_t room = 0; room <= size; ++room) {
        const bool written = [&] {
            const FileSizeLimit disk(room);
            return ReplaceTextFile(folder / "a.cfg", text);
        }();
        ASSERT_EQ(written, room == size) << room;
        ASSERT_EQ(BytesOf(folder / "a.cfg") == "old", room < size) << room;
        ASSERT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a.cfg"}) << room;
    }
}

class FullDisk : public SettingsFileTest {
protected:
    // Every byte of the shorter files, every tenth or so of the longest, whose text takes long to make.
    std::size_t Stride() const { return 1 + m_new.size() / 1024; }

    int SaveWithRoomFor(std::size_t bytes) const {
        const FileSizeLimit disk(bytes);
        return Save(2);
    }
};

TEST_P(FullDisk, TheOldFileStandsAlone) {
    for (std::size_t room = 0; room < m_new.size(); room += Stride()) {
        ASSERT_EQ(SaveWithRoomFor(room), -1) << room;
        ASSERT_TRUE(IsOld()) << room;
        ASSERT_TRUE(IsAlone()) << room;
    }
}

TEST_P(FullDisk, AFirstFileIsNotThere) {
    std::filesystem::remove(File());
    for (std::size_t room = 0; room < m_new.size(); room += Stride()) {
        ASSERT_EQ(SaveWithRoomFor(room), -1) << room;
        ASSERT_TRUE(std::filesystem::is_empty(m_scaling.Path())) << room;
    }
}

TEST_P(FullDisk, WithRoomForTheLastByteTheNewFileStandsAlone) {
    EXPECT_EQ(SaveWithRoomFor(m_new.size() - 1), -1);
    EXPECT_EQ(SaveWithRoomFor(m_new.size()), 0);
    EXPECT_TRUE(IsNew());
    EXPECT_TRUE(IsAlone());
}

INSTANTIATE_TEST_SUITE_P(Each, FullDisk, testing::ValuesIn(SettingsFiles()), TestNameOf);

// Files that the program makes when they are missing.
class FullDiskAtStart : public testing::Test {
protected:
    static constexpr const char* kModule = "038-906-019-FT.SCL";
    static constexpr std::size_t kModuleSize = 7000;  // at least
    static constexpr std::size_t kStride = 13;

    TempFolder m_folder;
    std::filesystem::path m_scaling = m_folder / "Scaling";
    RunState m_state;
    DefaultScaling m_defaults{m_scaling};
    ModuleScaling m_ranges{m_scaling, m_defaults, m_state};
};

TEST_F(FullDiskAtStart, AModuleWithoutAFileFailsAndLeavesNoPartOfOne) {
    m_ranges.SetMax(1, 0, 5000);
    for (std::size_t room = 0; room < kModuleSize; room += kStride) {
        m_ranges.ForgetLoadedName();
        const ModuleLoad answer = [&] {
            const FileSizeLimit disk(room);
            return m_ranges.LoadModuleScaling(kModule);
        }();
        ASSERT_EQ(answer, ModuleLoad::Failed) << room;
        ASSERT_FALSE(std::filesystem::exists(m_scaling / kModule)) << room;
        ASSERT_EQ(m_ranges.RangeOf(1, 0).max, 5000) << room;
    }
    EXPECT_EQ(NamesIn(m_scaling), std::set<std::string>{"Defaults.cfg"});  // shorter, so it found room
}

TEST_F(FullDiskAtStart, TheBuiltInDefaultsServeAllTheSame) {
    const std::size_t size = [this] {
        m_defaults.LoadForPlotting();
        return BytesOf(m_scaling / "Defaults.cfg").size();
    }();
    for (std::size_t room = 0; room < size; ++room) {
        std::filesystem::remove(m_scaling / "Defaults.cfg");
        {
            const FileSizeLimit disk(room);
            m_defaults.LoadForPlotting();
        }
        ASSERT_TRUE(std::filesystem::is_empty(m_scaling)) << room;
        ASSERT_EQ(m_defaults.LastIndex(), 9) << room;
        ASSERT_EQ(m_defaults.Row(9).unit, "ms") << room;
    }
}

}  // namespace
}  // namespace plotvane::test
