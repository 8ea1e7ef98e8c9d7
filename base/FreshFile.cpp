#include "base/FreshFile.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <string>
#include <utility>

#include "base/FileOperations.h"
#include "base/OutwaitHolder.h"

namespace plotvane {
namespace {

constexpr std::string_view kPrefix = "plotvane-";
constexpr std::string_view kSuffix = ".tmp";
constexpr std::size_t kDigits = 16;

std::string FreshName() {
    std::string digits(kDigits, '0');
    std::array<char, kDigits> number{};
    const auto end = std::to_chars(number.data(), number.data() + number.size(), RandomNumber(), 16).ptr;
    const auto length = static_cast<std::size_t>(end - number.data());
    digits.replace(kDigits - length, length, number.data(), length);
    return std::string(kPrefix) + digits + std::string(kSuffix);
}

bool IsFreshName(const std::filesystem::path& path) {
    const auto name = path.filename().native();
    const std::filesystem::path::string_type prefix(kPrefix.begin(), kPrefix.end());
    const std::filesystem::path::string_type suffix(kSuffix.begin(), kSuffix.end());
    return name.size() == prefix.size() + kDigits + suffix.size() && name.starts_with(prefix) &&
           name.ends_with(suffix);
}

}  // namespace

FreshFile::FreshFile(const std::filesystem::path& folder)
    : m_path(folder / FreshName()), m_file(CreateOwnFile(m_path)) {}

FreshFile::~FreshFile() {
    if (m_file && m_goesAway) RemoveOwnFile(std::move(m_file), m_path);
}

bool FreshFile::Append(std::string_view bytes) {
    return m_file && std::fwrite(bytes.data(), 1, bytes.size(), m_file.get()) == bytes.size();
}

bool FreshFile::Flush() {
    return m_file && FlushToDisk(m_file.get());
}

bool FreshFile::Rename(const std::filesystem::path& name, IfTaken ifTaken) {
    if (!m_file || !RenameOwnFile(m_file, m_path, name, ifTaken)) return false;
    m_path = name;
    return true;
}

bool FreshFile::TakePlaceOf(const std::filesystem::path& file) {
    if (!OutwaitHolder([&] { return Rename(file, IfTaken::Replace); })) return false;
    m_file.reset();  // so that other programs can open it at once
    return true;
}

void RemoveLeftovers(const std::filesystem::path& folder) {
    for (const std::filesystem::path& entry : EntriesOf(folder)) {
        if (!IsFreshName(entry)) continue;
        TakenFile leftover = TakeFile(entry);
        if (leftover.file) RemoveOwnFile(std::move(leftover.file), entry);
    }
}

}  // namespace plotvane
