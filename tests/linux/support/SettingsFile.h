#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "tests/support/TempFolder.h"

namespace plotvane::test {

// A settings file as the program writes it, in editions that differ in all of its parts.
struct SettingsFile {
    const char* name;  // in the Scaling folder
    int (*save)(const std::filesystem::path& scaling, int edition);
};

// All of them: Prefs.cfg, Defaults.cfg, and the ranges of a module and of generic OBD data.
std::vector<SettingsFile> SettingsFiles();
std::string TestNameOf(const testing::TestParamInfo<SettingsFile>& info);

// Names of all that is in a folder.
std::set<std::string> NamesIn(const std::filesystem::path& folder);

// A Scaling folder with the first edition of a settings file, which the test replaces by the second.
class SettingsFileTest : public testing::TestWithParam<SettingsFile> {
protected:
    void SetUp() override;

    std::filesystem::path File() const { return m_scaling.Path() / GetParam().name; }
    int Save(int edition) const { return GetParam().save(m_scaling.Path(), edition); }
    // What the file reads in an edition.
    std::string Edition(int edition) const;

    bool IsOld() const { return BytesOf(File()) == m_old; }
    bool IsNew() const { return BytesOf(File()) == m_new; }
    // The text that a reader finds, with '\n' for line ends.
    std::string ReadText() const;
    bool ReadsOld() const { return ReadText() == TextOf(m_old); }
    bool ReadsNew() const { return ReadText() == TextOf(m_new); }
    static std::string TextOf(std::string bytes);
    bool IsAlone() const { return NamesIn(m_scaling.Path()) == std::set<std::string>{GetParam().name}; }

    TempFolder m_scaling;
    std::string m_old;
    std::string m_new;
};

}  // namespace plotvane::test
