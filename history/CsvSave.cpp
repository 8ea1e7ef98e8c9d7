#include "history/CsvSave.h"

#include "base/FileName.h"
#include "base/FileOperations.h"

namespace plotvane {
namespace {

// The renaming would replace a file that its user has protected.
bool MayBeWritten(const std::filesystem::path& path) {
    const FileKind kind = KindOf(path);
    return !NamesDevice(path) && (kind == FileKind::Missing || kind == FileKind::File);
}

}  // namespace

CsvSave::CsvSave(const Recording& recording, std::int64_t begin, std::int64_t end,
                 const std::filesystem::path& path)
    : m_export(recording, begin, end),
      m_path(path),
      m_mayBeWritten(MayBeWritten(path)),
      m_final(FinalPathOf(path)),
      m_file(m_final.parent_path()) {}

CsvSave::State CsvSave::Save(int samples) {
    m_text.clear();
    const CsvExport::Next next = m_export.Append(m_text, samples);
    if (next == CsvExport::Next::Gone) return State::Gone;
    if (!m_mayBeWritten || !m_file.Append(m_text)) return State::Failed;
    if (next == CsvExport::Next::More) return State::Going;
    return m_file.Flush() && m_file.TakePlaceOf(m_final) ? State::Done : State::Failed;
}

}  // namespace plotvane
