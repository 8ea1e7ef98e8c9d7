#include "tests/kit/CaseList.h"

#include <gtest/gtest.h>

#include <string>

namespace plotvane::kit {
namespace {

// As GoogleTest writes it.
std::string Xml(const std::string& cases) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<testsuites tests=\"4\" failures=\"1\" disabled=\"0\" errors=\"0\" time=\"0.2\" "
           "name=\"AllTests\">\n"
           "  <testsuite name=\"Slot\" tests=\"4\" failures=\"1\" skipped=\"1\" time=\"0.2\">\n" +
           cases + "  </testsuite>\n</testsuites>\n";
}

constexpr const char* kPassed =
    "    <testcase name=\"IsThere\" file=\"../../Slot.cpp\" line=\"7\" status=\"run\" result=\"completed\" "
    "time=\"0\" classname=\"Slot\" />\n";
constexpr const char* kFailed =
    "    <testcase name=\"Shows/2\" value_param=\"&quot;a&quot;\" file=\"../../Slot.cpp\" line=\"9\" "
    "status=\"run\" result=\"completed\" time=\"0.1\" classname=\"Each/Slot\">\n"
    "      <failure message=\"../../Slot.cpp:9&#x0A;Expected: a &lt; &quot;b&quot; &amp;&amp; c\" type=\"\">"
    "<![CDATA[../../Slot.cpp:9\nExpected: a < \"b\" && c <failure message=\"no\">]]></failure>\n"
    "      <failure message=\"../../Slot.cpp:10&#x0A;&apos;\xC3\xBC&apos; &gt; d\" type=\"\"></failure>\n"
    "    </testcase>\n";
constexpr const char* kSkipped =
    "    <testcase name=\"Drives\" file=\"../../Slot.cpp\" line=\"12\" status=\"run\" result=\"skipped\" "
    "time=\"0\" classname=\"Slot\">\n"
    "      <skipped message=\"../../Slot.cpp:13&#x0A;no car here\"><![CDATA[../../Slot.cpp:13\nno car "
    "here]]></skipped>\n"
    "    </testcase>\n";
constexpr const char* kNotRun =
    "    <testcase name=\"Rests\" status=\"notrun\" result=\"suppressed\" time=\"0\" classname=\"Slot\" />\n";

TEST(CaseList, CountsCasesByTheirEnd) {
    const auto cases = ReadCases(Xml(std::string(kPassed) + kFailed + kSkipped + kPassed + kNotRun));
    ASSERT_TRUE(cases);
    EXPECT_EQ(cases->passed, 2);
    EXPECT_EQ(cases->failed.size(), 1u);
    EXPECT_EQ(cases->skipped.size(), 2u);
    EXPECT_EQ(cases->Total(), 5);
}

TEST(CaseList, HasEveryFailureOfACaseAsItsTestWroteIt) {
    const auto cases = ReadCases(Xml(kFailed));
    ASSERT_TRUE(cases);
    ASSERT_EQ(cases->failed.size(), 1u);
    EXPECT_EQ(cases->failed[0].name, "Each/Slot.Shows/2");
    EXPECT_EQ(cases->failed[0].text,
              "../../Slot.cpp:9\nExpected: a < \"b\" && c\n../../Slot.cpp:10\n'\xC3\xBC' > d");
}

TEST(CaseList, HasTheReasonWhyACaseWasSkipped) {
    const auto cases = ReadCases(Xml(kSkipped));
    ASSERT_TRUE(cases);
    ASSERT_EQ(cases->skipped.size(), 1u);
    EXPECT_EQ(cases->skipped[0].name, "Slot.Drives");
    EXPECT_EQ(cases->skipped[0].text, "../../Slot.cpp:13\nno car here");
}

TEST(CaseList, OfNoTestsIsEmpty) {
    const auto cases = ReadCases(Xml(""));
    ASSERT_TRUE(cases);
    EXPECT_EQ(cases->Total(), 0);
}

// A program died in the middle of writing, or wrote nothing at all.
TEST(CaseList, IsNothingForAFileThatIsCutOff) {
    const std::string whole = Xml(std::string(kPassed) + kFailed);
    const std::size_t end = whole.rfind("</testsuites>") + std::string("</testsuites>").size();
    for (std::size_t length = 0; length < end; ++length)
        EXPECT_FALSE(ReadCases(whole.substr(0, length))) << length;
    EXPECT_TRUE(ReadCases(whole.substr(0, end)));
}

TEST(CaseList, IsNothingForAnyOtherFile) {
    EXPECT_FALSE(ReadCases("1 passed"));
    EXPECT_FALSE(ReadCases("<html></html>"));
}

TEST(CaseList, IsReadToItsEndWhateverStandsInIt) {
    for (const char* const middle :
         {"<testcase name=\"x", "<testcase name=\"&#x;&;&quot\" >", "<![CDATA[", "<failure >", "<", "&"})
        EXPECT_TRUE(ReadCases(Xml(middle))) << middle;
}

}  // namespace
}  // namespace plotvane::kit
