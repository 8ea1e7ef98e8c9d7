#include "logs/CurrentModule.h"

#include <utility>

#include "base/Windows1252.h"
#include "logs/LabelFile.h"
#include "logs/ModuleKey.h"

namespace plotvane {

CurrentModule::CurrentModule(RunState& state, const ModuleScaling& scaling, MainWindow& window,
                             std::string liveTitle, std::filesystem::path labelsFolder, ReadWatch* watch)
    : m_state(state),
      m_scaling(scaling),
      m_window(window),
      m_liveTitle(std::move(liveTitle)),
      m_labelsFolder(std::move(labelsFolder)),
      m_watch(watch) {}

std::optional<std::size_t> CurrentModule::ApplyModuleName(std::string_view record) {
    const auto comma = record.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    if (m_key != m_scaling.LoadedName()) {
        TakeName(record.substr(0, comma));
        if (m_key == kObdScalingFile) m_state.obdFile = true;
        ShowTitle();
        FollowLabels();
    }
    return comma + 1;
}

void CurrentModule::TakeName(std::string_view name) {
    if (m_keyIsOfName && name == m_name) return;
    m_name = name;
    m_key = ScalingFileNameOf(name);
    m_keyIsOfName = true;
}

// Generic OBD streams never load a scaling, so each of their records comes here. An unchanged title is left
// alone; it would flicker.
void CurrentModule::ShowTitle() {
    m_nextTitle.clear();
    AppendUtf16(m_nextTitle, m_state.logMode ? std::string_view("Plotvane   -   ") : m_liveTitle);
    AppendUtf16(m_nextTitle, m_name);
    if (m_state.logMode) m_nextTitle.append(u"  -   ").append(m_logFileName);
    if (m_nextTitle == m_title) return;
    m_title = m_nextTitle;
    m_window.SetModuleTitle(m_title);
}

// Reads the files once in each run of the loop, not twenty times a second. A new run sees what has changed in
// them.
void CurrentModule::FollowLabels() {
    if (m_key == m_labelsKey && m_state.generation == m_labelsGeneration) return;
    m_labelsKey = m_key;
    m_labelsGeneration = m_state.generation;
    LoadLabels(m_labelsFolder, KeyStemOf(m_key), m_labels, m_watch);
}

}  // namespace plotvane
