#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// A file that another program has open can often be written, but no file can be renamed over it. It is then
// written in place. If the program ends in the middle of that, nobody knows which part of the file is old and
// which is new. So a whole copy of the new text is kept beside it until the end. A run that finds such a copy
// finishes the work.
//
// Only the writing program has the copy open, so a copy that can be opened belongs to a run that was killed.
namespace plotvane {

// The copy's name: the file's own, with "~" as its last character. It is no longer, because the file's path
// may be as long as Windows allows. The file is given by its final path.
std::filesystem::path WholeCopyOf(const std::filesystem::path& file);

// The end mark of a copy of this text. A file of that name without the mark is not a copy, and is neither
// used nor removed. Readers of text stop before the mark.
std::string MarkOf(std::string_view bytes);

enum class Overwritten {
    Whole,      // the bytes are in the file and on the disk
    Untouched,  // it could not be opened, or not made long enough; it is unchanged
    Torn        // the disk failed midway
};

// Writes the bytes over those of an existing file.
[[nodiscard]] Overwritten Overwrite(const std::filesystem::path& file, std::string_view bytes);

enum class WholeFile {
    Itself,  // the file is whole, now that any unfinished work is done
    Copy,    // only the copy is whole; the file cannot be written now
    Unknown  // another program is writing, or the copy cannot be read
};

// Finishes what another run left unfinished, and says where the whole text is. Waits up to 80 ms for a
// program that is writing.
WholeFile FinishInterrupted(const std::filesystem::path& file);

// Removes a copy whose file has been replaced since. Returns false if the copy cannot be removed, or if a
// file of that name cannot be read: it may be a copy, and readers would use it instead of the file.
[[nodiscard]] bool RemoveWholeCopy(const std::filesystem::path& file);

}  // namespace plotvane
