// Settings that are links to somewhere else.
#include <fstream>
#include <stdexcept>
#include <utility>

#include "tests/support/system/MainDialog.h"
#include "tests/support/system/MySettings.h"
#include "tests/wine/support/LinuxShell.h"

namespace plotvane::test {
namespace {

// A link of Linux's, for as long as this object lives. Throws std::runtime_error where none can be made.
class LinuxLink {
public:
    LinuxLink(std::filesystem::path link, const std::string& target) : m_link(std::move(link)) {
        const std::wstring command = L"ln -s \"" + std::wstring(target.begin(), target.end()) + L"\" \"" +
                                     m_link.filename().wstring() + L'"';
        if (!RunInShell(m_link.parent_path(), command)) throw std::runtime_error("cannot make a link");
    }
    ~LinuxLink() { RunInShell(m_link.parent_path(), L"rm \"" + m_link.filename().wstring() + L'"'); }
    LinuxLink(const LinuxLink&) = delete;
    LinuxLink& operator=(const LinuxLink&) = delete;

private:
    std::filesystem::path m_link;
};

// Opens, but every read fails.
constexpr const char* kUnreadableDevice = "/proc/self/mem";

TEST(UnreadPrefs, OfAFileThatCannotBeReadAreNotWrittenOver) {
    Session session;
    std::filesystem::create_directory(session.Scaling(""));
    const LinuxLink link(session.Scaling(kPrefs), kUnreadableDevice);
    session.Start();
    ASSERT_TRUE(session.Main().Exists());
    EXPECT_TRUE(session.Closes());
    std::ifstream stillUnreadable(session.Scaling(kPrefs), std::ios::binary);
    EXPECT_TRUE(stillUnreadable.is_open());
    EXPECT_EQ(stillUnreadable.get(), std::ifstream::traits_type::eof());
    ExpectNothingBeside(session);
}

TEST(LinkedPrefs, AreWrittenWhereTheLinkLeads) {
    Session session;
    std::filesystem::create_directory(session.Scaling(""));
    WriteBytes(session.Folder() / "mine.txt", kMyPrefs);
    const LinuxLink link(session.Scaling(kPrefs), "../mine.txt");
    session.Start();
    ASSERT_TRUE(session.Main().Exists());
    EXPECT_TRUE(session.Closes());
    const std::string written = BytesOf(session.Folder() / "mine.txt");
    EXPECT_TRUE(written.starts_with("BackColor=400000\r\nGridColor=ffffff\r\n")) << written;
    WriteBytes(session.Folder() / "mine.txt", "through the link");
    EXPECT_EQ(BytesOf(session.Scaling(kPrefs)), "through the link");
    ExpectNothingBeside(session);
}

}  // namespace
}  // namespace plotvane::test
