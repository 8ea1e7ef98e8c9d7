#include "tests/docs/Page.h"

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>

#include "tests/support/TempFolder.h"

namespace plotvane::test {
namespace {

bool IsSkippedFolder(const std::filesystem::path& folder) {
    const std::string name = folder.filename().string();
    return name == "build" || name.starts_with('.');
}

// GitHub's rule: lower case, blanks become dashes, and of the other characters only letters, digits, "-" and
// "_" stay.
std::string AnchorOf(std::string_view heading) {
    std::string anchor;
    for (const char c : heading) {
        if (c >= 'A' && c <= 'Z') {
            anchor += static_cast<char>(c - 'A' + 'a');
        } else if (c == ' ') {
            anchor += '-';
        } else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
                   static_cast<unsigned char>(c) >= 0x80) {
            anchor += c;
        }
    }
    return anchor;
}

std::string_view OrEmpty(const char* text) {
    return text != nullptr ? text : "";
}

void AppendFolded(std::string& text, std::string_view addition) {
    for (const char c : addition) {
        const bool blank = c == ' ' || c == '\n';
        if (!blank || (!text.empty() && text.back() != ' ')) text += blank ? ' ' : c;
    }
}

struct NodeDeleter {
    void operator()(cmark_node* node) const { cmark_node_free(node); }
};
struct ParserDeleter {
    void operator()(cmark_parser* parser) const { cmark_parser_free(parser); }
};

std::unique_ptr<cmark_node, NodeDeleter> Parsed(std::string_view text) {
    cmark_gfm_core_extensions_ensure_registered();
    const std::unique_ptr<cmark_parser, ParserDeleter> parser(cmark_parser_new(CMARK_OPT_FULL_INFO_STRING));
    for (const char* extension : {"table", "tasklist"}) {
        cmark_parser_attach_syntax_extension(parser.get(), cmark_find_syntax_extension(extension));
    }
    cmark_parser_feed(parser.get(), text.data(), text.size());
    return std::unique_ptr<cmark_node, NodeDeleter>(cmark_parser_finish(parser.get()));
}

}  // namespace

// Reads a parsed page from its first node to its last.
class PageReader {
public:
    explicit PageReader(Page& page) : m_page(page) {}

    void Read(cmark_node* node) {
        const std::string_view type = cmark_node_get_type_string(node);
        if (type == "code_block") {
            m_page.m_codeBlocks.push_back({cmark_node_get_start_line(node),
                                           std::string(OrEmpty(cmark_node_get_fence_info(node))),
                                           std::string(OrEmpty(cmark_node_get_literal(node)))});
        } else if (type == "link" || type == "image") {
            m_page.m_links.push_back(
                {m_line, std::string(OrEmpty(cmark_node_get_url(node))), type == "image"});
        } else if (type == "code") {
            m_page.m_codeSpans.emplace_back(OrEmpty(cmark_node_get_literal(node)));
        } else if (type == "table") {
            m_page.m_tables.emplace_back();
        } else if (type == "table_row" || type == "table_header") {
            m_page.m_tables.back().emplace_back();
        }
        if (type == "text" || type == "code") m_words += OrEmpty(cmark_node_get_literal(node));
        if (type == "softbreak" || type == "linebreak") m_words += ' ';

        const bool isUnit = type == "paragraph" || type == "heading" || type == "table_cell";
        if (isUnit) {
            m_words.clear();
            m_line = cmark_node_get_start_line(node);
        }
        for (cmark_node* child = cmark_node_first_child(node); child != nullptr;
             child = cmark_node_next(child)) {
            Read(child);
        }
        if (!isUnit) return;
        if (type == "heading") m_page.m_anchors.push_back(AnchorOf(m_words));
        if (type == "table_cell") m_page.m_tables.back().back().push_back(m_words);
        AppendFolded(m_page.m_text, m_words);
        AppendFolded(m_page.m_text, " ");
    }

private:
    Page& m_page;
    std::string m_words;  // of the current paragraph, heading or cell
    int m_line = 0;       // where that begins
};

std::filesystem::path Root() {
    return PLOTVANE_ROOT;
}

Page::Page(const std::string& name) : m_name(name) {
    PageReader(*this).Read(Parsed(BytesOf(Root() / name)).get());
}

Table Page::TableOf(const Row& heading) const {
    for (const Table& table : m_tables) {
        const Row& first = table.front();
        if (first.size() >= heading.size() && std::equal(heading.begin(), heading.end(), first.begin()))
            return table;
    }
    ADD_FAILURE() << m_name << " has no table that begins with \"" << heading.front() << "\"";
    return {heading};
}

std::string Page::Example(std::string_view name, std::size_t index) const {
    const std::string info = "text " + std::string(name);
    for (const CodeBlock& block : m_codeBlocks) {
        if (block.info == info && index-- == 0) return Windows1252(block.text);
    }
    ADD_FAILURE() << m_name << " has no example named " << name;
    return "";
}

bool Page::Says(std::string_view text) const {
    return m_text.find(text) != std::string::npos;
}

std::vector<std::string> AllFiles() {
    std::vector<std::string> files;
    for (std::filesystem::recursive_directory_iterator entry(Root()), end; entry != end; ++entry) {
        if (entry->is_directory() && IsSkippedFolder(entry->path())) entry.disable_recursion_pending();
        if (entry->is_regular_file())
            files.push_back(entry->path().lexically_relative(Root()).generic_string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<std::string> AllPages() {
    std::vector<std::string> pages = AllFiles();
    std::erase_if(pages, [](const std::string& name) { return !name.ends_with(".md"); });
    return pages;
}

std::string Windows1252(std::string_view utf8) {
    std::string bytes;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        if (lead < 0x80) {
            bytes += utf8[i];
        } else if ((lead == 0xC2 || lead == 0xC3) && i + 1 < utf8.size()) {
            // U+00A0 to U+00FF have the same numbers in Windows-1252.
            bytes += static_cast<char>((lead - 0xC2) * 0x40 + static_cast<unsigned char>(utf8[++i]));
        } else {
            ADD_FAILURE() << "not in Windows-1252: " << utf8.substr(i, 8);
            return bytes;
        }
    }
    return bytes;
}

std::string Utf8(std::string_view windows1252) {
    std::string text;
    for (const char c : windows1252) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text += c;
        } else {
            text += static_cast<char>(0xC0 | byte >> 6);
            text += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return text;
}

std::vector<std::string> Lines(std::string_view text) {
    std::vector<std::string> lines;
    std::istringstream stream{std::string(text)};
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::string SourceText(const std::string& name) {
    std::string text = BytesOf(Root() / name);
    EXPECT_NE(text, "") << name;
    return text;
}

}  // namespace plotvane::test
