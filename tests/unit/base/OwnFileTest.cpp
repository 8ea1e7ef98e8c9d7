#include "base/OwnFile.h"

#include <gtest/gtest.h>

#include <set>

#include "base/FileOperations.h"
#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

class OwnFile : public testing::Test {
protected:
    FileHandle CreateHolding(const std::filesystem::path& path, std::string_view bytes) {
        FileHandle file = CreateOwnFile(path);
        EXPECT_TRUE(file);
        if (file) std::fwrite(bytes.data(), 1, bytes.size(), file.get());
        return file;
    }

    test::TempFolder m_folder;
    const std::filesystem::path m_own = m_folder / "own.tmp";
    const std::filesystem::path m_other = m_folder / "other.cfg";
};

TEST_F(OwnFile, IsMadeOnlyWhereNothingHasItsName) {
    test::WriteBytes(m_other, "other");
    EXPECT_FALSE(CreateOwnFile(m_other));
    EXPECT_EQ(test::BytesOf(m_other), "other");
    EXPECT_FALSE(CreateOwnFile(m_folder.Path()));
    EXPECT_FALSE(CreateOwnFile(m_folder / "none" / "own.tmp"));
}

TEST_F(OwnFile, CanBeTakenByNobodyUntilItIsClosed) {
    FileHandle file = CreateHolding(m_own, "text");
    const TakenFile refused = TakeFile(m_own);
    EXPECT_FALSE(refused.file);
    EXPECT_TRUE(refused.isHeld);
    file.reset();
    const TakenFile taken = TakeFile(m_own);
    ASSERT_TRUE(taken.file);
    EXPECT_EQ(std::fgetc(taken.file.get()), 't');
    EXPECT_TRUE(TakeFile(m_own).isHeld);
}

TEST_F(OwnFile, IsNoFolderAndNothingThatIsMissing) {
    EXPECT_FALSE(TakeFile(m_folder.Path()).file);
    EXPECT_FALSE(TakeFile(m_folder / "none").file);
    EXPECT_FALSE(TakeFile(m_folder / "none").isHeld);
}

TEST_F(OwnFile, TakesTheNameOfAnotherFileOnlyIfToldTo) {
    test::WriteBytes(m_other, "other");
    FileHandle file = CreateHolding(m_own, "own");
    EXPECT_FALSE(RenameOwnFile(file, m_own, m_other, IfTaken::Fail));
    EXPECT_EQ(test::BytesOf(m_other), "other");
    EXPECT_TRUE(RenameOwnFile(file, m_own, m_other, IfTaken::Replace));
    file.reset();
    EXPECT_EQ(test::BytesOf(m_other), "own");
    EXPECT_EQ(KindOf(m_own), FileKind::Missing);
}

TEST_F(OwnFile, TakesAFreeName) {
    FileHandle file = CreateHolding(m_own, "own");
    EXPECT_TRUE(RenameOwnFile(file, m_own, m_other, IfTaken::Fail));
    EXPECT_TRUE(TakeFile(m_other).isHeld);
    file.reset();
    EXPECT_EQ(test::BytesOf(m_other), "own");
}

TEST_F(OwnFile, GoesAwayUnderTheNameThatItHas) {
    RemoveOwnFile(CreateHolding(m_own, "own"), m_own);
    EXPECT_EQ(KindOf(m_own), FileKind::Missing);
    test::WriteBytes(m_own, "left behind");
    RemoveOwnFile(TakeFile(m_own).file, m_own);
    EXPECT_EQ(KindOf(m_own), FileKind::Missing);
}

TEST_F(OwnFile, GetsADifferentNumberEachTime) {
    std::set<std::uint64_t> numbers;
    for (int i = 0; i < 100; ++i) numbers.insert(RandomNumber());
    EXPECT_EQ(numbers.size(), 100u);
}

}  // namespace
}  // namespace plotvane
