#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "history/Recording.h"

namespace plotvane {

// Samples as comma-separated values by RFC 4180: UTF-8, CR LF, a header of names and units, then a line for
// each sample with its time in seconds. There is a column for each field that a trace shows among the
// samples, also where the chart does not draw it; a cell is empty where its trace shows something else.
// Numbers have a decimal point and up to 12 digits.
//
// The text comes in chunks, so that the caller can do something else in between.
class CsvExport {
public:
    // From `begin` to before `end`; they must be kept now. The recording must outlive this.
    CsvExport(const Recording& recording, std::int64_t begin, std::int64_t end);

    enum class Next {
        More,
        Done,
        Gone  // samples that were still due are not recorded any more: the text so far is of no use
    };

    // Appends at most this many samples; before the first one, the header.
    Next Append(std::string& text, int samples);

    // From 0 to 100.
    int Percent() const;

private:
    struct Column {
        int trace;
        RecordedTrace shown;
    };

    void AddColumns(int trace);
    void AppendHeader(std::string& text) const;
    void AppendSample(std::string& text) const;

    const Recording& m_recording;
    const std::uint32_t m_run;  // of the recording
    const std::int64_t m_begin;
    const std::int64_t m_end;
    std::int64_t m_next;
    bool m_hasHeader = false;
    std::vector<Column> m_columns;
};

}  // namespace plotvane
