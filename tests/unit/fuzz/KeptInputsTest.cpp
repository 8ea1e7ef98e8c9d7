#include <gtest/gtest.h>

#include <exception>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "fuzz/Targets.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/TempFolder.h"

namespace plotvane::fuzz {

void PrintTo(const Target& target, std::ostream* out) {
    *out << target.name;
}

namespace {

std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    if (!std::filesystem::exists(folder)) return files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) files.push_back(entry.path());
    return files;
}

class KeptInputsTest : public testing::TestWithParam<Target> {
protected:
    // Runs the target with every file of a folder. Returns the number of files.
    std::size_t RunAll(const std::filesystem::path& folder) {
        const auto files = FilesIn(folder);
        for (const auto& file : files) {
            const std::string bytes = test::BytesOf(file);
            try {
                GetParam().run({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
            } catch (const std::exception& broken) {
                ADD_FAILURE() << file << ": " << broken.what();
            }
        }
        return files.size();
    }

    const std::filesystem::path m_root = test::DataFolder("kept-inputs", PLOTVANE_FUZZ_INPUTS);
};

TEST_P(KeptInputsTest, EverySeedAndEveryFormerFindKeepsThePromises) {
    EXPECT_GT(RunAll(m_root / "seeds" / GetParam().name), 0U);
    RunAll(m_root / "finds" / GetParam().name);
}

TEST_P(KeptInputsTest, NoInputIsAnInputToo) {
    EXPECT_NO_THROW(GetParam().run({}));
}

INSTANTIATE_TEST_SUITE_P(, KeptInputsTest, testing::ValuesIn(kTargets),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace plotvane::fuzz
