#include "tests/docs/Yaml.h"

#include <yaml.h>

#include <set>
#include <stdexcept>

namespace plotvane::test {
namespace {

// A document, parsed.
class Document {
public:
    explicit Document(std::string_view text) {
        yaml_parser_initialize(&m_parser);
        yaml_parser_set_input_string(&m_parser, reinterpret_cast<const unsigned char*>(text.data()),
                                     text.size());
        if (yaml_parser_load(&m_parser, &m_document) == 0) {
            const std::string problem = m_parser.problem ? m_parser.problem : "unknown";
            const auto line = std::to_string(m_parser.problem_mark.line + 1);
            yaml_parser_delete(&m_parser);
            throw std::runtime_error("line " + line + ": " + problem);
        }
    }
    ~Document() {
        yaml_document_delete(&m_document);
        yaml_parser_delete(&m_parser);
    }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    void Collect(std::map<std::string, std::string>& values) {
        if (const yaml_node_t* const root = yaml_document_get_root_node(&m_document))
            Collect(*root, "", values);
    }

private:
    const yaml_node_t& Node(int number) { return *yaml_document_get_node(&m_document, number); }
    static std::string TextOf(const yaml_node_t& node) {
        if (node.type != YAML_SCALAR_NODE) return {};
        return {reinterpret_cast<const char*>(node.data.scalar.value), node.data.scalar.length};
    }
    static std::string Below(const std::string& path, const std::string& name) {
        return path.empty() ? name : path + "." + name;
    }
    void Collect(const yaml_node_t& node, const std::string& path,
                 std::map<std::string, std::string>& values) {
        if (node.type == YAML_MAPPING_NODE) {
            for (const auto* pair = node.data.mapping.pairs.start; pair != node.data.mapping.pairs.top;
                 ++pair) {
                const std::string name = Below(path, TextOf(Node(pair->key)));
                if (!m_names.insert(name).second) throw std::runtime_error(name + " is there twice");
                Collect(Node(pair->value), name, values);
            }
        } else if (node.type == YAML_SEQUENCE_NODE) {
            int place = 0;
            for (const auto* item = node.data.sequence.items.start; item != node.data.sequence.items.top;
                 ++item)
                Collect(Node(*item), Below(path, std::to_string(place++)), values);
        } else {
            values[path] = TextOf(node);
        }
    }

    yaml_parser_t m_parser{};
    yaml_document_t m_document{};
    std::set<std::string> m_names;
};

}  // namespace

std::map<std::string, std::string> ReadYaml(std::string_view text) {
    std::map<std::string, std::string> values;
    Document(text).Collect(values);
    return values;
}

}  // namespace plotvane::test
