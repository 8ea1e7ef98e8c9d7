#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>

#include "tests/docs/Page.h"

namespace plotvane::test {
namespace {

bool LeadsOutside(std::string_view target) {
    return target.starts_with("https://") || target.starts_with("http://") || target.starts_with("mailto:");
}

class LinksTest : public testing::Test {
protected:
    // The page or file that this page's link leads to, relative to the root.
    static std::string FileOf(const Page& page, std::string_view target) {
        const std::string_view file = target.substr(0, target.find('#'));
        if (file.empty()) return page.Name();
        return (std::filesystem::path(page.Name()).parent_path() / file).lexically_normal().generic_string();
    }
};

TEST_F(LinksTest, LeadToFilesThatExist) {
    int links = 0;
    for (const std::string& name : AllPages()) {
        const Page page(name);
        for (const Link& link : page.Links()) {
            if (LeadsOutside(link.target)) continue;
            ++links;
            EXPECT_TRUE(std::filesystem::exists(Root() / FileOf(page, link.target)))
                << name << ":" << link.line << ": no file " << link.target;
        }
    }
    EXPECT_GT(links, 30);
}

TEST_F(LinksTest, LeadToHeadingsThatExist) {
    for (const std::string& name : AllPages()) {
        const Page page(name);
        for (const Link& link : page.Links()) {
            const auto hash = link.target.find('#');
            if (LeadsOutside(link.target) || hash == std::string::npos) continue;
            const Page target(FileOf(page, link.target));
            const auto& anchors = target.Anchors();
            EXPECT_NE(std::find(anchors.begin(), anchors.end(), link.target.substr(hash + 1)), anchors.end())
                << name << ":" << link.line << ": no heading " << link.target;
        }
    }
}

TEST_F(LinksTest, FindEveryManualPageFromItsContents) {
    std::set<std::string> linked{"docs/manual/README.md"};
    const Page contents("docs/manual/README.md");
    for (const Link& link : contents.Links()) linked.insert(FileOf(contents, link.target));
    for (const std::string& name : AllPages()) {
        if (!name.starts_with("docs/manual/")) continue;
        EXPECT_TRUE(linked.contains(name)) << name;
    }
}

TEST_F(LinksTest, FindEveryPictureOnAPage) {
    std::set<std::string> shown;
    for (const std::string& name : AllPages()) {
        const Page page(name);
        for (const Link& link : page.Links()) {
            if (link.isPicture) shown.insert(FileOf(page, link.target));
        }
    }
    for (const auto& entry : std::filesystem::directory_iterator(Root() / "docs/manual/pictures")) {
        if (entry.path().extension() != ".png") continue;
        const std::string name = entry.path().lexically_relative(Root()).generic_string();
        EXPECT_TRUE(shown.contains(name)) << name << " is on no page";
    }
}

}  // namespace
}  // namespace plotvane::test
