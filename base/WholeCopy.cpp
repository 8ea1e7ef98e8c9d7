#include "base/WholeCopy.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

#include "base/FileHandle.h"
#include "base/FileOperations.h"
#include "base/OutwaitHolder.h"
#include "base/OwnFile.h"

namespace plotvane {
namespace {

constexpr char kEndOfText = 0x1A;
constexpr std::size_t kLongestCopy = std::size_t{1} << 20;  // bytes; settings files have a few thousand

// FNV-1a. It detects a copy that is not whole; it is no protection against forgery.
std::uint64_t SumOf(std::string_view bytes) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        sum *= 0x100000001B3;
    }
    return sum;
}

std::string InHex(std::uint64_t number) {
    std::array<char, 16> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    return {digits.data(), end};
}

// Nothing if the file is too long or cannot be read.
std::optional<std::string> BytesOf(std::FILE* file) {
    std::string bytes(kLongestCopy, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
    if (bytes.size() == kLongestCopy || std::ferror(file) != 0) return std::nullopt;
    return bytes;
}

// The text of a copy; nothing if the file is not a copy.
std::optional<std::string> TextOfCopy(std::FILE* file) {
    std::optional<std::string> bytes = BytesOf(file);
    if (!bytes) return std::nullopt;
    const std::size_t end = bytes->rfind(kEndOfText);
    if (end == std::string::npos) return std::nullopt;
    const std::string_view text = std::string_view(*bytes).substr(0, end);
    if (MarkOf(text) != std::string_view(*bytes).substr(end)) return std::nullopt;
    bytes->resize(end);
    return bytes;
}

TakenFile TakeOnceNobodyWrites(const std::filesystem::path& path) {
    TakenFile taken;
    OutwaitHolder([&] {
        taken = TakeFile(path);
        return !taken.isHeld;
    });
    return taken;
}

// Whether the disk failed while the copy was read: then nobody knows whose file it is.
bool HasFailed(const TakenFile& taken) {
    return taken.file && std::ferror(taken.file.get()) != 0;
}

std::optional<std::size_t> SizeOf(std::FILE* file) {
    if (std::fseek(file, 0, SEEK_END) != 0) return std::nullopt;
    const long size = std::ftell(file);
    return size < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(size));
}

bool WriteAt(std::FILE* file, std::size_t place, std::string_view bytes) {
    return std::fseek(file, static_cast<long>(place), SEEK_SET) == 0 &&
           std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() && FlushToDisk(file);
}

bool Cut(std::FILE* file, std::size_t size) {
    return CutFile(file, static_cast<long>(size));
}

// Sets the file's new length first, while all its old bytes are still there, because that step may fail: the
// disk may be full, or the other program may not let the file shrink.
Overwritten FitTo(std::string_view bytes, std::FILE* file) {
    const auto size = SizeOf(file);
    if (!size) return Overwritten::Untouched;
    if (*size > bytes.size()) return Cut(file, bytes.size()) ? Overwritten::Whole : Overwritten::Untouched;
    if (WriteAt(file, *size, bytes.substr(*size))) return Overwritten::Whole;
    return Cut(file, *size) ? Overwritten::Untouched : Overwritten::Torn;
}

}  // namespace

std::filesystem::path WholeCopyOf(const std::filesystem::path& file) {
    auto name = file.filename().native();
    if (!name.empty()) name.back() = '~';
    return file.parent_path() / name;
}

std::string MarkOf(std::string_view bytes) {
    return std::string{kEndOfText} + "whole " + InHex(bytes.size()) + ' ' + InHex(SumOf(bytes)) + "\r\n";
}

Overwritten Overwrite(const std::filesystem::path& file, std::string_view bytes) {
    const FileHandle target = TryToOpenFile(file, "r+b");
    if (!target) return Overwritten::Untouched;
    // Bytes that a full disk has refused must not be written again when the file is closed.
    std::setvbuf(target.get(), nullptr, _IONBF, 0);
    const Overwritten fitted = FitTo(bytes, target.get());
    if (fitted != Overwritten::Whole) return fitted;
    return WriteAt(target.get(), 0, bytes) ? Overwritten::Whole : Overwritten::Torn;
}

WholeFile FinishInterrupted(const std::filesystem::path& file) {
    const std::filesystem::path copy = WholeCopyOf(file);
    TakenFile taken = TakeOnceNobodyWrites(copy);
    if (taken.isHeld) return WholeFile::Unknown;
    const auto text = taken.file ? TextOfCopy(taken.file.get()) : std::nullopt;
    if (!text) return HasFailed(taken) ? WholeFile::Unknown : WholeFile::Itself;
    if (Overwrite(file, *text) != Overwritten::Whole) return WholeFile::Copy;
    RemoveOwnFile(std::move(taken.file), copy);
    return WholeFile::Itself;
}

bool RemoveWholeCopy(const std::filesystem::path& file) {
    const std::filesystem::path copy = WholeCopyOf(file);
    TakenFile taken = TakeOnceNobodyWrites(copy);
    if (taken.isHeld) return false;
    if (!taken.file || !TextOfCopy(taken.file.get())) return !HasFailed(taken);
    RemoveOwnFile(std::move(taken.file), copy);
    return KindOf(copy) == FileKind::Missing;
}

}  // namespace plotvane
