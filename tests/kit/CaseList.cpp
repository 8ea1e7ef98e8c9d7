#include "tests/kit/CaseList.h"

#include <array>
#include <charconv>
#include <utility>

namespace plotvane::kit {
namespace {

constexpr std::string_view kEnd = "</testsuites>";

// The bytes of a character in UTF-8. GoogleTest writes numbers only for control characters.
std::string Character(unsigned number) {
    return number < 0x80 ? std::string(1, static_cast<char>(number)) : std::string("?");
}

std::string TextOfReference(std::string_view name) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kNames = {
        {{"lt", "<"}, {"gt", ">"}, {"amp", "&"}, {"quot", "\""}, {"apos", "'"}}};
    for (const auto& [known, text] : kNames) {
        if (name == known) return std::string(text);
    }
    unsigned number = 0;
    if (name.starts_with("#x")) std::from_chars(name.data() + 2, name.data() + name.size(), number, 16);
    return Character(number);
}

// The text that stands in an attribute, without references such as &quot;.
std::string Plain(std::string_view quoted) {
    std::string text;
    while (!quoted.empty()) {
        const std::size_t reference = quoted.find('&');
        text += quoted.substr(0, reference);
        if (reference == std::string_view::npos) break;
        const std::size_t end = quoted.find(';', reference);
        if (end == std::string_view::npos) break;
        text += TextOfReference(quoted.substr(reference + 1, end - reference - 1));
        quoted.remove_prefix(end + 1);
    }
    return text;
}

// A tag with its attributes, without its brackets: testcase name="..." classname="...".
class Tag {
public:
    explicit Tag(std::string_view text) : m_text(text) {}

    bool Is(std::string_view name) const {
        return m_text.starts_with(name) && m_text.substr(name.size()).starts_with(' ');
    }
    std::string Attribute(std::string_view name) const {
        const std::string start = " " + std::string(name) + "=\"";
        const std::size_t found = m_text.find(start);
        if (found == std::string_view::npos) return {};
        const std::size_t begin = found + start.size();
        return Plain(m_text.substr(begin, m_text.find('"', begin) - begin));
    }

private:
    std::string_view m_text;
};

// Takes the next tag from the front of the text, with all before it; empty at the end. What stands in CDATA
// repeats the attributes.
std::string_view TakeTag(std::string_view& xml) {
    constexpr std::string_view kData = "<![CDATA[";
    for (std::size_t begin = xml.find('<'); begin != std::string_view::npos; begin = xml.find('<')) {
        xml.remove_prefix(begin);
        const bool isData = xml.starts_with(kData);
        const std::string_view closing = isData ? "]]>" : ">";
        const std::size_t end = xml.find(closing);
        if (end == std::string_view::npos) break;
        const std::string_view tag = xml.substr(1, end - 1);
        xml.remove_prefix(end + closing.size());
        if (!isData) return tag;
    }
    xml = {};
    return {};
}

// Notes a case in the list once it is known how it has ended.
class CaseReader {
public:
    explicit CaseReader(CaseList& cases) : m_cases(cases) {}
    ~CaseReader() { Finish(); }
    CaseReader(const CaseReader&) = delete;
    CaseReader& operator=(const CaseReader&) = delete;

    void Read(const Tag& tag) {
        if (tag.Is("testcase")) {
            Finish();
            m_current = NotedCase{tag.Attribute("classname") + "." + tag.Attribute("name"), {}};
            m_isSkipped = tag.Attribute("status") == "notrun" || tag.Attribute("result") == "skipped";
        } else if (tag.Is("failure")) {
            m_isFailed = true;
            Add(tag.Attribute("message"));
        } else if (tag.Is("skipped")) {
            Add(tag.Attribute("message"));
        }
    }

private:
    void Add(const std::string& message) {
        if (!m_current) return;
        if (!m_current->text.empty()) m_current->text += '\n';
        m_current->text += message;
    }
    void Finish() {
        if (m_current && m_isFailed) {
            m_cases.failed.push_back(*m_current);
        } else if (m_current && m_isSkipped) {
            m_cases.skipped.push_back(*m_current);
        } else if (m_current) {
            ++m_cases.passed;
        }
        m_current.reset();
        m_isFailed = false;
    }

    CaseList& m_cases;
    std::optional<NotedCase> m_current;
    bool m_isFailed = false;
    bool m_isSkipped = false;
};

std::string_view WithoutBlanksAtEnd(std::string_view text) {
    const std::size_t last = text.find_last_not_of(" \r\n");
    return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

}  // namespace

std::optional<CaseList> ReadCases(std::string_view xml) {
    if (!xml.starts_with("<?xml") || !WithoutBlanksAtEnd(xml).ends_with(kEnd)) return std::nullopt;
    CaseList cases;
    {
        CaseReader reader(cases);
        while (!xml.empty()) reader.Read(Tag(TakeTag(xml)));
    }
    return cases;
}

}  // namespace plotvane::kit
