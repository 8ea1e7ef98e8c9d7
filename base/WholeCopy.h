#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// A file that another program has open can often be written but not renamed over. It is then written in
// place, and an end in the middle of that leaves a file of which nobody knows what is old and what is new. So
// a whole copy of the new text stands beside it meanwhile. Whoever finds such a copy finishes the work.
//
// The program that writes has the copy open alone, so a copy that can be taken is one that was left behind.
namespace plotvane {

// The copy's name: the file's own, with "~" for its last character; no longer, because the file's path may be
// as long as Windows takes. The file is given by its final path.
std::filesystem::path WholeCopyOf(const std::filesystem::path& file);

// What ends a copy of this text. By it a copy is told from a file that is somebody else's: such a file is
// neither used nor removed. Readers of text stop before the mark.
std::string MarkOf(std::string_view bytes);

enum class Overwritten {
    Whole,      // the file holds the bytes, also on the disk
    Untouched,  // it could not be opened, or not made long enough; it holds what it held
    Torn        // the disk failed midway
};

// Writes the bytes over those of a file that is there.
[[nodiscard]] Overwritten Overwrite(const std::filesystem::path& file, std::string_view bytes);

enum class WholeFile {
    Itself,  // the file is whole, after it was finished where that was necessary
    Copy,    // only the copy is: the file cannot be written now
    Unknown  // another program is writing
};

// Finishes what another run left unfinished, and says where the whole text is. Waits up to 80 ms for a
// program that is writing.
WholeFile FinishInterrupted(const std::filesystem::path& file);

// Removes a copy whose file has been replaced since. False if there is one that cannot be removed: readers
// would go by it.
[[nodiscard]] bool RemoveWholeCopy(const std::filesystem::path& file);

}  // namespace plotvane
