#include "tools/drives/PlainCsv.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>
#include <system_error>

#include "base/TextInput.h"
#include "tools/drives/CsvColumns.h"
#include "tools/drives/TextLine.h"

namespace plotvane {
namespace {

constexpr std::size_t kMaxLineLength = 4096;
constexpr std::size_t kMaxColumns = 64;
constexpr int kMaxRows = 200'000;
constexpr std::size_t kMaxDecimals = 3;
constexpr double kLongestDrive = 1e7;  // seconds; four months

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kAround = " \t\r\"";
    text.remove_prefix(std::min(text.find_first_not_of(kAround), text.size()));
    return text.substr(0, text.find_last_not_of(kAround) + 1);
}

void SplitCells(std::string_view line, std::vector<std::string_view>& cells) {
    cells.clear();
    for (std::size_t comma = 0; comma != std::string_view::npos && cells.size() < kMaxColumns;) {
        comma = line.find(',');
        cells.push_back(Trimmed(line.substr(0, comma)));
        if (comma != std::string_view::npos) line.remove_prefix(comma + 1);
    }
}

// The whole cell, or nothing.
std::optional<double> NumberIn(std::string_view cell) {
    double value = 0;
    const char* const end = cell.data() + cell.size();
    const auto result = std::from_chars(cell.data(), end, value);
    if (result.ec != std::errc{} || result.ptr != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

int DecimalsIn(std::string_view cell) {
    const std::size_t point = cell.find('.');
    if (point == std::string_view::npos || cell.find_first_of("eE") != std::string_view::npos) return 0;
    return static_cast<int>(std::min(kMaxDecimals, cell.size() - point - 1));
}

class Loader {
public:
    explicit Loader(const std::filesystem::path& path) : m_input(path) {}

    PlainCsvResult Load() {
        if (!m_input.IsOpen()) return Failed("cannot be opened");
        if (!ReadHeader()) return Failed("has no column named t or t_..., followed by channels");
        int rows = 0;
        while (ReadTextLine(m_input, m_line, kMaxLineLength)) {
            if (Trimmed(m_line).empty()) continue;
            if (++rows > kMaxRows) return Failed("has more than 200,000 lines");
            SplitCells(m_line, m_cells);
            if (!TakeRow()) ++m_result.droppedRows;
        }
        if (m_input.HasFailed()) return Failed("cannot be read to its end");
        const auto isEmpty = [](const CsvDrive::Samples& row) { return row.times.empty(); };
        if (std::ranges::all_of(m_rows, isEmpty)) return Failed("holds no numbers");
        m_result.drive = std::make_unique<CsvDrive>(std::move(m_columns.channels), std::move(m_rows));
        return std::move(m_result);
    }

private:
    static PlainCsvResult Failed(std::string error) {
        PlainCsvResult result;
        result.error = std::move(error);
        return result;
    }

    bool ReadHeader() {
        if (!ReadTextLine(m_input, m_line, kMaxLineLength)) return false;
        constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
        std::string_view line = m_line;
        if (line.starts_with(kUtf8Mark)) line.remove_prefix(kUtf8Mark.size());
        SplitCells(line, m_cells);
        m_columns = ArrangeColumns({m_cells.begin(), m_cells.end()});
        m_result.ignored = m_columns.ignored;
        return !m_columns.groups.empty();
    }

    std::string_view Cell(std::size_t column) const {
        return column < m_cells.size() ? m_cells[column] : std::string_view{};
    }

    // False if a group of the row had no usable time.
    bool TakeRow() {
        bool complete = true;
        for (std::size_t row = 0; row < m_columns.groups.size(); ++row) {
            const auto time = NumberIn(Cell(m_columns.groups[row].timeColumn));
            const auto& times = m_rows.at(row).times;
            if (!time || std::abs(*time) > kLongestDrive || (!times.empty() && *time < times.back()))
                complete = false;
            else
                TakeGroup(row, *time);
        }
        return complete;
    }

    void TakeGroup(std::size_t row, double time) {
        CsvDrive::Samples& samples = m_rows.at(row);
        samples.times.push_back(time);
        const auto& columns = m_columns.groups[row].columns;
        for (std::size_t field = 0; field < columns.size(); ++field) {
            std::vector<double>& values = samples.values.at(field);
            const std::string_view cell = Cell(columns[field]);
            const double before = values.empty() ? 0.0 : values.back();
            values.push_back(NumberIn(cell).value_or(before));
            DriveChannel& channel = m_columns.channels.at(row * kSlotColumns + field);
            channel.decimals = std::max(channel.decimals, DecimalsIn(cell));
        }
    }

    TextInput m_input;
    std::string m_line;
    std::vector<std::string_view> m_cells;  // point into m_line
    CsvColumns m_columns;
    std::array<CsvDrive::Samples, kSlotRows> m_rows;
    PlainCsvResult m_result;
};

}  // namespace

PlainCsvResult LoadPlainCsv(const std::filesystem::path& path) {
    return Loader(path).Load();
}

}  // namespace plotvane
