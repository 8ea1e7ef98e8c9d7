// The host that docs/pipe-protocol.md shows to authors of hosts. The build takes it from the page.
#include <gtest/gtest.h>

#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

TEST(DocumentedHost, FeedsTheProgramThatItStarts) {
    Session session;
    session.StartThroughDocumentedHost();
    EXPECT_TRUE(session.Shows(1,
                              L"90 \u00B0"
                              L"C"));
    const std::wstring speed = session.ValueText(0);
    EXPECT_TRUE(Becomes([&] { return session.ValueText(0) != speed; }, true)) << "the engine speed rises";
    EXPECT_TRUE(session.Closes());
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline)) << "it notices that the program is gone";
    EXPECT_EQ(session.Process().ExitCode(), 0u);
    EXPECT_FALSE(std::filesystem::exists(session.ExchangeFile()));
}

}  // namespace
}  // namespace plotvane::test
