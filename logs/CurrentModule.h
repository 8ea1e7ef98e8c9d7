#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "base/ReadWatch.h"
#include "logs/LabelTable.h"
#include "model/MainWindow.h"
#include "model/RunState.h"
#include "scaling/ModuleScaling.h"

namespace plotvane {

// The control module whose values are shown: its name from the records, the name of its scaling file, its
// labels. It follows the records, live or from a log.
class CurrentModule {
public:
    // `liveTitle` precedes the module's name in the window title while data is live. `labelsFolder` holds the
    // host's label files. The watch, if any, is called during long reads of them. All but the texts must
    // outlive this object.
    CurrentModule(RunState& state, const ModuleScaling& scaling, MainWindow& window, std::string liveTitle,
                  std::filesystem::path labelsFolder, ReadWatch* watch = nullptr);

    // Call for every record before its items are parsed. Takes the module from the record's first field. Once
    // the scaling of a module is loaded, ignores the names in later records, so that this module's ranges
    // stay in force until the loop starts again. Returns the position after the first comma. If the record
    // has no comma, returns nothing and changes nothing.
    std::optional<std::size_t> ApplyModuleName(std::string_view record);

    // The module name from a log's header, used as the key until the first record. No scaling file has that
    // name.
    void SetRawKey(std::string_view moduleName) {
        m_key = moduleName;
        m_keyIsOfName = false;
    }

    // Name and extension of the log in use, for the window title.
    void SetLogFileName(std::u16string_view fileName) { m_logFileName = fileName; }

    // As in the record. Empty before the first one.
    const std::string& Name() const { return m_name; }

    // The name of the module's scaling file: at most 15 characters and ".SCL". Empty before the first record.
    const std::string& Key() const { return m_key; }

    const LabelTable& Labels() const { return m_labels; }

private:
    void TakeName(std::string_view name);
    void ShowTitle();
    void FollowLabels();

    RunState& m_state;
    const ModuleScaling& m_scaling;
    MainWindow& m_window;
    const std::string m_liveTitle;
    const std::filesystem::path m_labelsFolder;
    ReadWatch* const m_watch;

    std::string m_name;
    std::string m_key;
    bool m_keyIsOfName = false;  // m_key was made from m_name and need not be made again
    std::u16string m_logFileName;
    std::u16string m_title;      // what the title bar was last given
    std::u16string m_nextTitle;  // kept for its memory
    LabelTable m_labels;
    std::string m_labelsKey;               // the key whose labels are loaded,
    std::uint32_t m_labelsGeneration = 0;  // and the run of the loop that loaded them
};

}  // namespace plotvane
