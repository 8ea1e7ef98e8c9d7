#pragma once

#include <array>
#include <filesystem>
#include <string>

#include "base/TextInput.h"
#include "model/RunState.h"
#include "scaling/DefaultScaling.h"

namespace plotvane {

// The range of a trace, in the field's unit. 0..100 means that nobody has chosen one.
struct ScaleRange {
    int min = 0;
    int max = 100;

    bool operator==(const ScaleRange&) const = default;
};

enum class ModuleLoad {
    AlreadyLoaded,  // nothing has changed
    Loaded,         // the caller must give the ranges to the traces and meters
    Failed,         // the file can be neither read nor created; the table has not changed
};

// The module scaling table: the range that the user chose last for each field of each measuring group of the
// current control module. Each module has a file, "<module>.SCL" in the Scaling folder. The file also keeps
// the pixel shift, which is in RunState. Files for generic OBD data (RunState::obdFile) have only field 0 of
// each group, and the group is a PID.
class ModuleScaling {
public:
    static constexpr int kFirstGroup = 1;
    static constexpr int kLastGroup = 255;
    static constexpr int kFieldCount = 4;

    // The folder need not exist. `defaults` and `state` must outlive this object.
    ModuleScaling(std::filesystem::path scalingFolder, DefaultScaling& defaults, RunState& state);

    // Makes a file current: loads the default table, then the module table and the pixel shift (clamped to
    // 1..15) from the file. A missing file is created with 0..100 everywhere. "OBD.SCL" also sets
    // RunState::obdFile; nothing here clears it, so a file that follows is read in the same form. A name that
    // is not a plain file name fails, and no file is touched. A name that failed stays current and is not
    // tried again until ForgetLoadedName.
    [[nodiscard]] ModuleLoad LoadModuleScaling(const std::string& fileName);

    // Writes the pixel shift and the table. Returns 0, or -1 if the file cannot be written or the name is no
    // plain file name. The caller checks that the table belongs to that name: see IsLoadedWhole.
    [[nodiscard]] int SaveModuleScaling(const std::string& fileName) const;

    // For groups 1..255 and fields 0..3. Anything else has the range 0..100, and setting it does nothing.
    ScaleRange RangeOf(int group, int field) const;
    void SetMin(int group, int field, int value);
    void SetMax(int group, int field, int value);

    // The current file's name; empty at the program's start.
    const std::string& LoadedName() const { return m_loadedName; }

    // Makes a name current that no module has, so that the next request loads its file again.
    void ForgetLoadedName();

    // Whether the table came from the current file. If not, writing it there would replace the user's ranges
    // with those of another module.
    bool IsLoadedWhole() const { return m_loadedWhole; }

private:
    using Table = std::array<std::array<ScaleRange, kFieldCount>, kLastGroup + 1>;  // row 0 is unused

    // How many fields of a group the file has.
    int FieldsInFile() const { return m_state.obdFile ? 1 : kFieldCount; }

    std::filesystem::path PathOf(const std::string& fileName) const;
    Table WithFileFieldsUnset() const;
    void WriteModuleScaling(const Table& table, std::string& text) const;
    bool Create(const std::filesystem::path& path) const;
    bool Read(const std::filesystem::path& path);
    void ReadGroups(TextInput& file, Table& table) const;

    std::filesystem::path m_folder;
    DefaultScaling& m_defaults;
    RunState& m_state;
    Table m_table{};
    std::string m_loadedName;
    bool m_loadedWhole = false;
};

}  // namespace plotvane
