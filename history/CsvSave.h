#pragma once

#include <filesystem>
#include <string>

#include "base/FreshFile.h"
#include "history/CsvExport.h"

namespace plotvane {

// Saves samples as comma-separated values, a few at a time, so that its caller can do something else in
// between. The file gets its name once all are in it. If this object is destroyed before that, nothing has
// changed.
class CsvSave {
public:
    // From `begin` to before `end`; see CsvExport. The recording must outlive this.
    CsvSave(const Recording& recording, std::int64_t begin, std::int64_t end,
            const std::filesystem::path& path);

    enum class State {
        Going,
        Done,
        Failed,  // it may not be written, or the disk is full
        Gone     // samples that were still due are not recorded any more
    };

    // Saves at most this many samples. Call it again for as long as it returns Going.
    State Save(int samples);

    // From 0 to 100.
    int Percent() const { return m_export.Percent(); }

    const std::filesystem::path& Path() const { return m_path; }

private:
    CsvExport m_export;
    const std::filesystem::path m_path;
    const bool m_mayBeWritten;
    const std::filesystem::path m_final;  // with links followed
    FreshFile m_file;
    std::string m_text;  // kept for its memory
};

}  // namespace plotvane
