#include "history/CsvExport.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "base/Numbers.h"
#include "base/Windows1252.h"
#include "history/TraceRuns.h"
#include "history/TraceTexts.h"

namespace plotvane {
namespace {

constexpr int kTimeDecimals = 3;
constexpr std::string_view kEndOfLine = "\r\n";

// More digits than the boxes show: nobody reads these, and programs go on computing with them.
void AppendExactly(std::string& text, double value) {
    constexpr int kDigits = 12;
    std::array<char, 32> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::general, kDigits);
    text.append(buffer.data(), result.ptr);
}

void AppendCell(std::string& text, std::string_view windows1252) {
    const bool isQuoted = windows1252.find_first_of(",\"\r\n") != std::string_view::npos;
    if (!isQuoted) return AppendUtf8(text, windows1252);
    text += '"';
    for (const char c : windows1252) {
        if (c == '"') text += '"';
        AppendUtf8(text, {&c, 1});
    }
    text += '"';
}

}  // namespace

CsvExport::CsvExport(const Recording& recording, std::int64_t begin, std::int64_t end)
    : m_recording(recording), m_run(recording.Run()), m_begin(begin), m_end(end), m_next(begin) {
    for (int trace = 0; trace < kSlotCount; ++trace) AddColumns(trace);
}

// The copies are for their names: the recording goes on while it is written.
void CsvExport::AddColumns(int trace) {
    for (const TraceRun& run : RunsOf(m_recording, trace, m_begin, m_end)) {
        const auto isIt = [&](const Column& column) {
            return column.trace == trace && column.shown.ShowsSameAs(*run.shown);
        };
        if (std::ranges::none_of(m_columns, isIt)) m_columns.push_back({trace, *run.shown});
    }
}

CsvExport::Next CsvExport::Append(std::string& text, int samples) {
    if (m_recording.Run() != m_run || m_next < m_recording.Begin()) return Next::Gone;
    if (!m_hasHeader) AppendHeader(text);
    m_hasHeader = true;
    for (int i = 0; i < samples && m_next < m_end; ++i, ++m_next) AppendSample(text);
    return m_next < m_end ? Next::More : Next::Done;
}

int CsvExport::Percent() const {
    return m_next == m_end ? 100 : static_cast<int>((m_next - m_begin) * 100 / (m_end - m_begin));
}

void CsvExport::AppendHeader(std::string& text) const {
    text += "Time (s)";
    for (const Column& column : m_columns) {
        std::string name = NameOf(column.shown);
        if (!column.shown.unit.empty()) name.append(" (").append(column.shown.unit).append(")");
        text += ',';
        AppendCell(text, name);
    }
    text += kEndOfLine;
}

void CsvExport::AppendSample(std::string& text) const {
    AppendFixed(text, m_recording.Seconds(m_next), kTimeDecimals);
    const Stretch& stretch = m_recording.StretchOf(m_next);
    for (const Column& column : m_columns) {
        text += ',';
        const RecordedTrace& shown = stretch.traces[static_cast<std::size_t>(column.trace)];
        if (shown.ShowsSameAs(column.shown)) AppendExactly(text, m_recording.Value(column.trace, m_next));
    }
    text += kEndOfLine;
}

}  // namespace plotvane
