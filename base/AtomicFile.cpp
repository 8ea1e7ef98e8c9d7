#include "base/AtomicFile.h"

#include <string>

#include "base/FileOperations.h"
#include "base/FreshFile.h"
#include "base/WholeCopy.h"

namespace plotvane {
namespace {

std::string WithCrLf(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        if (c == '\n') bytes += '\r';
        bytes += c;
    }
    return bytes;
}

// The fresh file serves as the whole copy. If the copy's name is taken, either another program is writing
// this file, or the file of that name is somebody else's.
bool WriteInPlace(FreshFile& fresh, const std::filesystem::path& file, std::string_view bytes) {
    if (FinishInterrupted(file) != WholeFile::Itself) return false;
    const bool isMarked = fresh.Append(MarkOf(bytes)) && fresh.Flush();
    if (!isMarked || !fresh.Rename(WholeCopyOf(file), IfTaken::Fail) || !fresh.Flush()) return false;
    const Overwritten overwritten = Overwrite(file, bytes);
    // The file is torn, so every reader uses the copy from now on.
    if (overwritten == Overwritten::Torn) fresh.Keep();
    return overwritten != Overwritten::Untouched;
}

}  // namespace

bool ReplaceTextFile(const std::filesystem::path& path, std::string_view text) {
    return ReplaceFileBytes(path, WithCrLf(text));
}

bool ReplaceFileBytes(const std::filesystem::path& path, std::string_view bytes) {
    // Renaming would replace even a file that the user has protected.
    const FileKind kind = KindOf(path);
    if (kind == FileKind::Protected || kind == FileKind::Other) return false;
    const std::filesystem::path file = FinalPathOf(path);
    RemoveLeftovers(file.parent_path());
    FreshFile fresh(file.parent_path());
    if (!fresh.Append(bytes) || !fresh.Flush()) return false;
    if (fresh.TakePlaceOf(file)) return RemoveWholeCopy(file);
    return KindOf(file) == FileKind::File && WriteInPlace(fresh, file, bytes);
}

bool CreateTextFile(const std::filesystem::path& path, std::string_view text) {
    if (KindOf(path) != FileKind::Missing) return false;
    const std::filesystem::path file = FinalPathOf(path);
    RemoveLeftovers(file.parent_path());
    FreshFile fresh(file.parent_path());
    if (!fresh.Append(WithCrLf(text)) || !fresh.Flush() || !fresh.Rename(file, IfTaken::Fail)) return false;
    fresh.Keep();
    return RemoveWholeCopy(file);
}

TextInput OpenWholeFile(const std::filesystem::path& path) {
    const std::filesystem::path file = FinalPathOf(path);
    // If a user has removed the file, it is gone, even if there is still a copy beside it.
    if (KindOf(file) == FileKind::Missing) return {};
    // Check this first: between the next step and the opening, no program must have time to begin writing.
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
