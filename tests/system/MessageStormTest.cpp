// Other programs may post whatever they like. PLOTVANE_STORMS gives the number of storms for each state; the
// default is one.
#include <cstdlib>

#include "tests/support/system/MessageStorm.h"
#include "tests/support/system/ProgramState.h"

namespace plotvane::test {
namespace {

constexpr int kMessages = 1500;

unsigned StormsEach() {
    const char* const wanted = std::getenv("PLOTVANE_STORMS");
    return wanted ? static_cast<unsigned>(std::atoi(wanted)) : 1;
}

class StormOver : public AnyState, public ::testing::WithParamInterface<ProgramState> {};

TEST_P(StormOver, LeavesAProgramThatAnswersAndCloses) {
    const auto state = static_cast<unsigned>(GetParam());
    for (unsigned storm = 0; storm < StormsEach(); ++storm) {
        const unsigned seed = storm * 100 + state;
        Enter(GetParam());
        ASSERT_FALSE(HasFatalFailure()) << "before seed " << seed;
        MessageStorm(main, seed).Post(kMessages);
        main.Post(WM_LBUTTONUP);  // after a press on the title bar the system waits for this alone
        EXPECT_TRUE(main.Answers(kDeadline)) << "seed " << seed;
        ASSERT_TRUE(session.Process().Running())
            << "seed " << seed << ", ended with " << session.Process().ExitCode();
        main.Close();
        ASSERT_TRUE(session.Process().EndsWithin(kDeadline)) << "seed " << seed;
        ASSERT_EQ(session.Process().ExitCode(), 0u) << "seed " << seed;
        feed.reset();
    }
}

INSTANTIATE_TEST_SUITE_P(In, StormOver, ::testing::ValuesIn(kProgramStates),
                         [](const auto& info) { return NameOf(info.param); });

}  // namespace
}  // namespace plotvane::test
