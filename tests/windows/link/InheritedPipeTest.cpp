#include "link/InheritedPipe.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

// A descriptor of this process's C run-time.
class Descriptor {
public:
    explicit Descriptor(HANDLE handle) : m_number(_open_osfhandle(reinterpret_cast<intptr_t>(handle), 0)) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return m_number; }
    void Close() {
        if (m_number >= 0) _close(m_number);
        m_number = -1;
    }

private:
    int m_number;
};

HANDLE Open(const wchar_t* name) {
    return ::CreateFileW(name, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                         nullptr);
}

class InheritedPipeTest : public testing::Test {
protected:
    int Read() { return m_pipe.TryRead(m_buffer); }
    std::string Buffer(int count) const { return {m_buffer.data(), static_cast<std::size_t>(count)}; }

    InheritedPipe m_pipe;
    std::array<char, 16> m_buffer{};
};

TEST_F(InheritedPipeTest, GivesWhatHasArrivedAndNeverWaitsForMore) {
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    ASSERT_TRUE(::CreatePipe(&read, &write, nullptr, 0));
    Descriptor reader(read);
    Descriptor writer(write);
    m_pipe.Attach(reader.Number());
    EXPECT_EQ(Read(), 0);
    ASSERT_EQ(_write(writer.Number(), "abc", 3), 3);
    ASSERT_EQ(Read(), 3);
    EXPECT_EQ(Buffer(3), "abc");
    EXPECT_EQ(Read(), 0);
    writer.Close();
    EXPECT_EQ(Read(), HostPipe::kEndOfStream);
}

TEST_F(InheritedPipeTest, AFileIsReadToItsEnd) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "blocks", "12345678901234567890");
    Descriptor file(Open((folder / "blocks").c_str()));
    m_pipe.Attach(file.Number());
    EXPECT_EQ(Read(), 16);
    ASSERT_EQ(Read(), 4);
    EXPECT_EQ(Buffer(4), "7890");
    EXPECT_EQ(Read(), HostPipe::kEndOfStream);
}

TEST_F(InheritedPipeTest, ADeviceCountsAsClosed) {
    Descriptor device(Open(L"NUL"));
    ASSERT_GE(device.Number(), 0);
    m_pipe.Attach(device.Number());
    EXPECT_EQ(Read(), HostPipe::kEndOfStream);
}

// Reading it would wait for somebody to type.
TEST_F(InheritedPipeTest, AConsoleCountsAsClosed) {
    ::FreeConsole();  // a console that nobody can type into, if there is one
    ASSERT_TRUE(::AllocConsole()) << ::GetLastError();
    {
        Descriptor console(Open(L"CONIN$"));
        EXPECT_GE(console.Number(), 0) << ::GetLastError();
        m_pipe.Attach(console.Number());
        EXPECT_EQ(Read(), HostPipe::kEndOfStream);
    }
    ::FreeConsole();
}

// For example the write end.
TEST_F(InheritedPipeTest, APipeThatCannotBeLookedIntoCountsAsClosed) {
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    ASSERT_TRUE(::CreatePipe(&read, &write, nullptr, 0));
    Descriptor reader(read);
    Descriptor writer(write);
    m_pipe.Attach(writer.Number());
    EXPECT_EQ(Read(), HostPipe::kEndOfStream);
}

// A block of descriptors as a host of 32 bits hands it over, with the handle as descriptor 0.
std::vector<std::byte> NarrowBlock(HANDLE handle) {
    std::vector<std::byte> block{std::byte{1}, {}, {}, {}, std::byte{0x09}, {}, {}, {}, {}};
    std::memcpy(block.data() + 5, &handle, 4);
    return block;
}

TEST_F(InheritedPipeTest, AHostOf32BitsIsRead) {
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    ASSERT_TRUE(::CreatePipe(&read, &write, nullptr, 0));
    const Descriptor reader(read);
    const Descriptor writer(write);
    const auto block = NarrowBlock(read);
    InheritedPipe pipe(block);
    pipe.Attach(0);
    EXPECT_EQ(pipe.TryRead(m_buffer), 0);
    ASSERT_EQ(_write(writer.Number(), "a\r\n\x1A", 4), 4);
    ASSERT_EQ(pipe.TryRead(m_buffer), 4);
    EXPECT_EQ(Buffer(4), "a\r\n\x1A");  // every byte arrives, although no flag asks for binary mode
}

TEST_F(InheritedPipeTest, AHandleThatIsNoneCountsAsClosed) {
    for (const std::uintptr_t number : {std::uintptr_t{0}, std::uintptr_t{0x7FFF'FFF0}, ~std::uintptr_t{0}}) {
        const auto block = NarrowBlock(reinterpret_cast<HANDLE>(number));
        InheritedPipe pipe(block);
        pipe.Attach(0);
        EXPECT_EQ(pipe.TryRead(m_buffer), HostPipe::kEndOfStream) << number;
    }
}

TEST_F(InheritedPipeTest, ANumberThatIsNoDescriptorCountsAsClosed) {
    for (const int number : {-2, -1, 63, 100'000}) {
        m_pipe.Attach(number);
        EXPECT_EQ(Read(), HostPipe::kEndOfStream) << number;
    }
}

}  // namespace
}  // namespace plotvane
