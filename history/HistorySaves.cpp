#include "history/HistorySaves.h"

#include <algorithm>
#include <utility>

#include "base/AtomicFile.h"
#include "base/FileName.h"
#include "base/Numbers.h"
#include "framework/Clipboard.h"
#include "framework/FileDialog.h"
#include "framework/Png.h"
#include "framework/Text.h"
#include "history/TraceList.h"

namespace plotvane {
namespace {

constexpr int kSamplesAtOnce = 2000;  // some milliseconds

// The module's name, where a file can have it.
std::string NameFor(const Recording& recording) {
    return IsSafeFileName(recording.Title()) ? recording.Title() : "drive";
}

std::optional<std::filesystem::path> Ask(HWND owner, const Recording& recording, const char* title,
                                         const FileType& type, const char* extension) {
    FileQuestion question;
    question.title = title;
    question.types = {type};
    question.name = NameFor(recording) + "." + extension;
    question.extension = extension;
    return AskWhereToSave(owner, question);
}

LookBack::SampleRange ToSave(const LookBack& state) {
    const auto cursor = state.Cursor();
    const auto second = state.Second();
    if (!cursor || !second) return state.InView();
    return {std::min(*cursor, *second), std::max(*cursor, *second) + 1};
}

}  // namespace

void HistorySaves::SavePicture(HWND owner, const Picture& picture, const Recording& recording) {
    const std::string png = EncodePng(picture);
    const auto path = Ask(owner, recording, "Save the picture", {"PNG picture", "*.png"}, "png");
    if (!path) return;
    EndWith(*path, !png.empty() && !NamesDevice(*path) && ReplaceFileBytes(*path, png));
}

void HistorySaves::SaveSamples(HWND owner, const LookBack& state) {
    if (IsGoing()) return;
    const Recording& recording = state.Samples();
    const LookBack::SampleRange range = ToSave(state);
    const std::uint32_t run = recording.Run();
    if (range.begin == range.end) return;
    const auto path = Ask(owner, recording, "Save the samples", {"Comma-separated values", "*.csv"}, "csv");
    if (!path || !::IsWindow(owner)) return;
    if (recording.Run() != run || range.begin < recording.Begin()) {
        EndWith(*path, false);
    } else {
        m_samples.emplace(recording, range.begin, range.end, *path);
    }
}

void HistorySaves::CopyPicture(HWND owner, const Picture& picture) {
    if (!CopyPictureToClipboard(owner, picture)) Complain("the picture COULD NOT BE COPIED");
}

void HistorySaves::CopyTable(HWND owner, const LookBack& state) {
    if (!CopyTextToClipboard(owner, CursorTable(state))) Complain("the values COULD NOT BE COPIED");
}

void HistorySaves::GoOn() {
    if (!m_samples) return;
    const CsvSave::State state = m_samples->Save(kSamplesAtOnce);
    if (state == CsvSave::State::Going) return;
    const std::filesystem::path path = m_samples->Path();
    m_samples.reset();
    EndWith(path, state == CsvSave::State::Done);
}

void HistorySaves::Cancel() {
    m_samples.reset();
    m_note = "cancelled; nothing is saved";
}

void HistorySaves::EndWith(const std::filesystem::path& path, bool isSaved) {
    const std::string name = ToBytes(path.filename().wstring());
    if (!isSaved) return Complain(name + " COULD NOT BE SAVED");
    m_note = name + " is saved";
}

void HistorySaves::Complain(std::string note) {
    m_note = std::move(note);
    ::MessageBeep(MB_ICONERROR);
}

std::string HistorySaves::Note() const {
    if (!m_samples) return m_note;
    std::string note = "saving, ";
    AppendDecimal(note, m_samples->Percent());
    return note + " % (Esc cancels)";
}

}  // namespace plotvane
