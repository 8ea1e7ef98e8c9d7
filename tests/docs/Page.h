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
    std::string info;  // what stands behind the fence: the language and, for an example, its name
    std::string text;
};

struct Link {
    int line = 0;
    std::string target;  // as written
    bool isPicture = false;
};

using Row = std::vector<std::string>;  // the cells of a table's row, each as plain text
using Table = std::vector<Row>;        // its first row is the heading

// A Markdown page of the documentation, taken apart.
class Page {
public:
    // `name` is relative to the root. A page that cannot be read has nothing in it.
    explicit Page(const std::string& name);

    const std::string& Name() const { return m_name; }
    bool IsEmpty() const { return m_text.empty(); }

    const std::vector<Link>& Links() const { return m_links; }
    const std::vector<std::string>& Anchors() const {
        return m_anchors;
    }  // one a heading, as the web makes them
    const std::vector<CodeBlock>& CodeBlocks() const { return m_codeBlocks; }
    const std::vector<std::string>& CodeSpans() const { return m_codeSpans; }

    // The table whose heading begins with these cells; fails the test if there is none.
    Table TableOf(const Row& heading) const;

    // The text of the block that is fenced as "text NAME", in Windows-1252 and with "\n" at its line ends; of
    // several the one at `index`. Fails the test if there is none.
    std::string Example(std::string_view name, std::size_t index = 0) const;

    // Whether this stands on the page, in UTF-8, with emphasis and line breaks read over.
    bool Says(std::string_view text) const;

private:
    friend class PageReader;

    std::string m_name;
    std::string m_text;  // of all paragraphs and cells, one blank where blanks or line ends are
    std::vector<Link> m_links;
    std::vector<std::string> m_anchors;
    std::vector<CodeBlock> m_codeBlocks;
    std::vector<std::string> m_codeSpans;
    std::vector<Table> m_tables;
};

// Every file of the repository, by its name relative to the root and with "/" in it, in order; not what a
// build makes.
std::vector<std::string> AllFiles();

// The Markdown pages among them.
std::vector<std::string> AllPages();

// What Windows-1252 can say of a text in UTF-8: other characters fail the test.
std::string Windows1252(std::string_view utf8);
std::string Utf8(std::string_view windows1252);

std::vector<std::string> Lines(std::string_view text);

// A text of the repository, by its name relative to the root; fails the test if it cannot be read.
std::string SourceText(const std::string& name);

}  // namespace plotvane::test
