#include <string>

#include "base/AtomicFile.h"
#include "base/WholeCopy.h"
#include "fuzz/Inputs.h"
#include "fuzz/Targets.h"
#include "tests/support/Promise.h"
#include "tests/support/ScratchFolder.h"

namespace plotvane::fuzz {

using test::Require;
using test::ScratchFile;

namespace {

std::string Read(const ScratchFile& file) {
    TextInput input = OpenWholeFile(file.Path());
    Require(input.IsOpen(), "a file that nobody holds is read");
    std::string text;
    for (int c = input.Get(); c != TextInput::kEnd; c = input.Get()) text += static_cast<char>(c);
    return text;
}

bool IsMarked(std::string_view copy) {
    const std::size_t mark = copy.rfind('\x1A');
    return mark != std::string_view::npos && copy.substr(mark) == MarkOf(copy.substr(0, mark));
}

}  // namespace

// Two parts: a settings file, and the file that has the name of its whole copy.
int FuzzWholeCopy(Bytes input) {
    std::string_view rest = AsText(input);
    const std::string_view bytes = TakePart(rest);
    const std::string_view copyBytes = TakePart(rest);
    const ScratchFile file("Prefs.cfg", bytes);
    const ScratchFile copy("Prefs.cf~", copyBytes);

    if (!IsMarked(copyBytes)) {
        Require(Read(file) == TextOfFile(bytes), "without a mark, the file itself is read");
        Require(file.Bytes() == bytes && copy.Bytes() == copyBytes,
                "without a mark, both files stay as they are");
    }
    copy.Write(std::string(copyBytes) + MarkOf(copyBytes));
    Require(Read(file) == TextOfFile(copyBytes), "a whole copy is read in place of the file");
    Require(file.Bytes() == copyBytes, "the file then holds the text of its copy");
    Require(!std::filesystem::exists(copy.Path()), "the copy is removed once the file is finished");
    Require(Read(file) == TextOfFile(copyBytes), "a file that was finished reads the same again");
    return 0;
}

}  // namespace plotvane::fuzz
