#include "base/AtomicFile.h"

#include <array>
#include <charconv>
#include <string>
#include <utility>

#include "base/FileOperations.h"
#include "base/OutwaitHolder.h"
#include "base/OwnFile.h"
#include "base/WholeCopy.h"

namespace plotvane {
namespace {

constexpr std::string_view kFreshPrefix = "plotvane-";
constexpr std::string_view kFreshSuffix = ".tmp";
constexpr std::size_t kFreshDigits = 16;

std::string WithCrLf(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        if (c == '\n') bytes += '\r';
        bytes += c;
    }
    return bytes;
}

std::string FreshName() {
    std::string digits(kFreshDigits, '0');
    std::array<char, kFreshDigits> number{};
    const auto end = std::to_chars(number.data(), number.data() + number.size(), RandomNumber(), 16).ptr;
    const auto length = static_cast<std::size_t>(end - number.data());
    digits.replace(kFreshDigits - length, length, number.data(), length);
    return std::string(kFreshPrefix) + digits + std::string(kFreshSuffix);
}

bool IsFreshName(const std::filesystem::path& path) {
    const auto name = path.filename().native();
    const std::filesystem::path::string_type prefix(kFreshPrefix.begin(), kFreshPrefix.end());
    const std::filesystem::path::string_type suffix(kFreshSuffix.begin(), kFreshSuffix.end());
    return name.size() == prefix.size() + kFreshDigits + suffix.size() && name.starts_with(prefix) &&
           name.ends_with(suffix);
}

// Removes what killed runs have left. A file that another program is writing cannot be taken.
void RemoveLeftovers(const std::filesystem::path& folder) {
    for (const std::filesystem::path& entry : EntriesOf(folder)) {
        if (!IsFreshName(entry)) continue;
        TakenFile leftover = TakeFile(entry);
        if (leftover.file) RemoveOwnFile(std::move(leftover.file), entry);
    }
}

// The new text in a file of its own, with a name that nobody can foresee: another program that replaces the
// same file at the same time has one too. The file goes with the object, unless it got another name.
class FreshFile {
public:
    explicit FreshFile(const std::filesystem::path& folder)
        : m_path(folder / FreshName()), m_file(CreateOwnFile(m_path)) {}
    ~FreshFile() {
        if (m_file && m_goesAway) RemoveOwnFile(std::move(m_file), m_path);
    }
    FreshFile(const FreshFile&) = delete;
    FreshFile& operator=(const FreshFile&) = delete;

    bool Write(std::string_view bytes) {
        return m_file && std::fwrite(bytes.data(), 1, bytes.size(), m_file.get()) == bytes.size() &&
               FlushToDisk(m_file.get());
    }
    bool Rename(const std::filesystem::path& name, IfTaken ifTaken) {
        if (!RenameOwnFile(m_file, m_path, name, ifTaken)) return false;
        m_path = name;
        return true;
    }
    // Also the new name, where it has one.
    bool Flush() { return FlushToDisk(m_file.get()); }
    void Keep() { m_goesAway = false; }

private:
    std::filesystem::path m_path;
    FileHandle m_file;
    bool m_goesAway = true;
};

// The fresh file serves as the whole copy. A name that is taken is another program's that is writing, or a
// file that is none of this program's.
bool WriteInPlace(FreshFile& fresh, const std::filesystem::path& file, std::string_view bytes) {
    if (FinishInterrupted(file) != WholeFile::Itself) return false;
    const bool hasCopy = fresh.Write(MarkOf(bytes)) && fresh.Rename(WholeCopyOf(file), IfTaken::Fail);
    if (!hasCopy || !fresh.Flush()) return false;
    const Overwritten overwritten = Overwrite(file, bytes);
    // Then the copy is the file, for every reader.
    if (overwritten == Overwritten::Torn) fresh.Keep();
    return overwritten != Overwritten::Untouched;
}

}  // namespace

bool ReplaceTextFile(const std::filesystem::path& path, std::string_view text) {
    // The renaming would replace a file that its user has protected; opening it for writing would not.
    const FileKind kind = KindOf(path);
    if (kind == FileKind::Protected || kind == FileKind::Other) return false;
    const std::filesystem::path file = FinalPathOf(path);
    RemoveLeftovers(file.parent_path());
    FreshFile fresh(file.parent_path());
    const std::string bytes = WithCrLf(text);
    if (!fresh.Write(bytes)) return false;
    if (OutwaitHolder([&] { return fresh.Rename(file, IfTaken::Replace); })) {
        fresh.Keep();
        return RemoveWholeCopy(file);
    }
    return KindOf(file) == FileKind::File && WriteInPlace(fresh, file, bytes);
}

bool CreateTextFile(const std::filesystem::path& path, std::string_view text) {
    if (KindOf(path) != FileKind::Missing) return false;
    const std::filesystem::path file = FinalPathOf(path);
    RemoveLeftovers(file.parent_path());
    FreshFile fresh(file.parent_path());
    if (!fresh.Write(WithCrLf(text)) || !fresh.Rename(file, IfTaken::Fail)) return false;
    fresh.Keep();
    return RemoveWholeCopy(file);
}

TextInput OpenWholeFile(const std::filesystem::path& path) {
    const std::filesystem::path file = FinalPathOf(path);
    // If a user has removed the file, it is gone, even if there is still a copy beside it.
    if (KindOf(file) == FileKind::Missing) return {};
    // Not later: a program that writes must have no time to begin between the next step and the opening.
    if (SizeOfFile(file) > kLargestSettingsFile) return {};
    switch (FinishInterrupted(file)) {
        case WholeFile::Itself:
            break;
        case WholeFile::Copy:
            return TextInput(WholeCopyOf(file));
        case WholeFile::Unknown:
            return {};
    }
    return TextInput(path);
}

}  // namespace plotvane
