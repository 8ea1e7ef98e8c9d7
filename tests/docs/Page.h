#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace plotvane::test {

// The folder that holds the README.
std::filesystem::path Root();

struct CodeBlock {
    int line = 0;      // of its fence
    std::string info;  // after the fence: the language and, for an example, its name
    std::string text;
};

struct Link {
    int line = 0;
    std::string target;  // as written
    bool isPicture = false;
};

using Row = std::vector<std::string>;  // the cells of a table's row, each as plain text
using Table = std::vector<Row>;        // its first row is the heading

// A Markdown page of the documentation, parsed.
class Page {
public:
    // `name` is relative to the root. The page is empty if the file cannot be read.
    explicit Page(const std::string& name);

    const std::string& Name() const { return m_name; }
    bool IsEmpty() const { return m_text.empty(); }

    const std::vector<Link>& Links() const { return m_links; }
    // One for each heading, as the web page has them.
    const std::vector<std::string>& Anchors() const { return m_anchors; }
    const std::vector<CodeBlock>& CodeBlocks() const { return m_codeBlocks; }
    const std::vector<std::string>& CodeSpans() const { return m_codeSpans; }

    // The table whose heading begins with these cells; fails the test if there is none.
    Table TableOf(const Row& heading) const;

    // The text of the block that is fenced as "text NAME", in Windows-1252 and with "\n" as line end; if
    // there are several, the one at `index`. Fails the test if there is none.
    std::string Example(std::string_view name, std::size_t index = 0) const;

    // Whether the page contains this text, in UTF-8; emphasis and line breaks do not matter.
    bool Says(std::string_view text) const;

private:
    friend class PageReader;

    std::string m_name;
    std::string m_text;  // all paragraphs and cells; each run of blanks and line ends is one blank
    std::vector<Link> m_links;
    std::vector<std::string> m_anchors;
    std::vector<CodeBlock> m_codeBlocks;
    std::vector<std::string> m_codeSpans;
    std::vector<Table> m_tables;
};

// Every file of the repository except build output: its name relative to the root, with "/", in order.
std::vector<std::string> AllFiles();

// The Markdown pages among them.
std::vector<std::string> AllPages();

// A text in UTF-8 as Windows-1252; any character that Windows-1252 lacks fails the test.
std::string Windows1252(std::string_view utf8);
std::string Utf8(std::string_view windows1252);

std::vector<std::string> Lines(std::string_view text);

// A text of the repository; its name is relative to the root. Fails the test if it cannot be read.
std::string SourceText(const std::string& name);

}  // namespace plotvane::test
