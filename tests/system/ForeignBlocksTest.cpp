// Blocks that no host would send. Whatever they hold, the program keeps answering or closes properly, and it
// closes only if a block said so.
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <random>

#include "tests/support/system/Feed.h"
#include "tests/support/system/Prompt.h"
#include "tests/support/system/RunButtons.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

// The number of blocks of each kind. A test run has time for a few hundred, because the program takes twenty
// a second and must be restarted after each malformed one. PLOTVANE_BLOCKS asks for more.
int HowMany() {
    constexpr int kUsual = 60;
    const char* const asked = std::getenv("PLOTVANE_BLOCKS");
    return asked ? std::atoi(asked) : kUsual;
}

using Random = std::mt19937;

int Below(Random& random, int bound) {
    return static_cast<int>(random() % static_cast<unsigned>(bound));
}

// A drive record with up to four bits flipped, anywhere in its text or after it.
std::string Flipped(Random& random, int number) {
    std::string block = DriveRecord(number);
    block.resize(kBlockBytes, '\0');
    for (int flips = Below(random, 4); flips >= 0; --flips) {
        char& byte = block[static_cast<std::size_t>(Below(random, static_cast<int>(kBlockBytes)))];
        byte = static_cast<char>(byte ^ (1 << Below(random, 8)));
    }
    return block;
}

// Up to `length` characters of any kind, except a comma, which would end the item.
std::string ItemUpTo(Random& random, int length) {
    std::string item;
    for (int left = Below(random, length + 1); left > 0; --left) {
        const char byte = static_cast<char>(Below(random, 3) == 0 ? random() : '-' + random() % 13);
        if (byte != ',') item += byte;
    }
    return item;
}

// One block in twenty is random bytes. The others have the form of a record with random items, because the
// program reads nothing after a malformed block.
std::string Arbitrary(Random& random, int) {
    std::string block;
    if (Below(random, 20) == 0) {
        while (block.size() < kBlockBytes) block += static_cast<char>(random());
        return block;
    }
    block = ItemUpTo(random, 20) + ",";
    for (int slot = 0; slot < 12; ++slot) {
        block += "G" + std::to_string(100 + Below(random, 900)) + ",F" + std::to_string(Below(random, 10)) +
                 "," + ItemUpTo(random, 12) + "," + ItemUpTo(random, 12) + ",";
    }
    block.resize(kBlockBytes, '\0');
    return block;
}

class ForeignBlocks : public ::testing::Test {
protected:
    // Sends blocks, over as many runs of the program as it takes.
    void SendAll(std::string (*make)(Random&, int), unsigned seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const int blocks = HowMany();
        for (int sent = 0; sent < blocks && !HasFailure();) {
            Session session;
            session.StartWithHost();
            const RemoteWindow main = session.Main();
            ASSERT_TRUE(Becomes([&] { return main.IsEnabled(IDC_PAUSE); }, true));
            AnswerWatch answers(main.Get());
            m_runningImage = ButtonsOf(main).pauseImage;
            m_closesAllowed = false;
            while (sent < blocks && SendSome(session, random, make, sent)) {
            }
            sent -= static_cast<int>(session.Host().Unread() / kBlockBytes);  // nobody has read these
            if (session.Process().Running()) {
                EXPECT_TRUE(AnsweredPromptly(answers)) << "after block " << sent;
                EXPECT_TRUE(ClosesPromptly(session)) << "after block " << sent;
            } else {
                EXPECT_TRUE(m_closesAllowed) << "it ended by itself after block " << sent;
                EXPECT_EQ(session.Process().ExitCode(), 0u) << "after block " << sent;
            }
            ExpectNoFileButScaling(session);
        }
    }

private:
    // A record names the file for its ranges. Whatever name it gives, that file must be in the folder
    // Scaling.
    static void ExpectNoFileButScaling(const Session& session) {
        for (const auto& entry : std::filesystem::directory_iterator(session.Folder())) {
            EXPECT_TRUE(entry.path().filename() == "Scaling" || entry.path() == session.ExchangeFile())
                << entry.path().filename();
        }
        for (const auto& entry : std::filesystem::recursive_directory_iterator(session.Scaling(""))) {
            EXPECT_TRUE(entry.is_regular_file()) << entry.path();
        }
    }

    // Sends a few blocks and waits until they are read. False if the program no longer reads.
    bool SendSome(Session& session, Random& random, std::string (*make)(Random&, int), int& sent) {
        for (int more = 0; more < kAtATime; ++more) {
            const std::string block = make(random, ++sent);
            m_closesAllowed = m_closesAllowed || block.find('\xFD') != std::string::npos;
            session.Host().Send(block);
        }
        // While the number of unread bytes falls, the program reads.
        int startsOver = 0;
        for (DWORD left = session.Host().Unread(); left > 0;) {
            const bool reads = bool(Becomes([&] { return session.Host().Unread() < left; }, true, kStill));
            if (!session.Process().Running()) return false;
            if (!reads && !StartsOver(session)) return false;
            if (!reads && ++startsOver > kAtATime) {
                ADD_FAILURE() << "it keeps starting over and reads nothing";
                return false;
            }
            left = session.Host().Unread();
        }
        return true;
    }

    // A block that begins with 0xFE stops the program, and Pause starts it again. False if it is not stopped.
    bool StartsOver(Session& session) {
        if (ButtonsOf(session.Main()).pauseImage == m_runningImage) return false;
        session.Main().PostClick(IDC_PAUSE);
        return true;
    }

    static constexpr int kAtATime = 8;
    static constexpr auto kStill = 600ms;  // a dozen turns

    LRESULT m_runningImage = 0;
    bool m_closesAllowed = false;
};

TEST_F(ForeignBlocks, WithFlippedBits) {
    SendAll(Flipped, 20261121);
}

TEST_F(ForeignBlocks, OfAnyText) {
    SendAll(Arbitrary, 20261122);
}

}  // namespace
}  // namespace plotvane::test
