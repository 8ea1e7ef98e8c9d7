// A test program for the stand-in host to start. It reads the pipe through the descriptor that MB-PIPE.TXT
// names and keeps what it received in its working folder: "received.bin" holds every byte; "end.txt" is
// written last and says why the reading ended.
//
// The environment variable PIPE_READER makes it behave badly: with "deaf" it never reads and ends when the
// file "enough.txt" appears; with "quit N" it ends with exit code 7 after N bytes.

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

int DescriptorOfExchangeFile() {
    std::ifstream file("MB-PIPE.TXT");
    int descriptor = -1;
    file >> descriptor;
    return file ? descriptor : -1;
}

int EndWith(const char* why, int code) {
    std::ofstream("end.txt") << why;
    return code;
}

}  // namespace

int main() {
    const char* const variable = std::getenv("PIPE_READER");
    const std::string behaviour = variable != nullptr ? variable : "";
    if (behaviour == "deaf") {
        while (GetFileAttributesW(L"enough.txt") == INVALID_FILE_ATTRIBUTES) Sleep(10);
        return EndWith("deaf", 0);
    }
    const long quitAfter = behaviour.starts_with("quit ") ? std::atol(behaviour.c_str() + 5) : -1;

    const int descriptor = DescriptorOfExchangeFile();
    if (descriptor < 0) return EndWith("no descriptor", 20);
    const HANDLE mutex = OpenMutexW(SYNCHRONIZE, FALSE, L"DIAGNEL-Running");
    if (mutex == nullptr) return EndWith("no mutex", 21);
    CloseHandle(mutex);

    std::ofstream received("received.bin", std::ios::binary);
    int inBlock = 0;  // bytes of the current block still to come
    for (long count = 0;;) {
        unsigned char byte = 0;
        if (_read(descriptor, &byte, 1) != 1) return EndWith("end of pipe", 10);
        received.put(static_cast<char>(byte));
        received.flush();
        if (++count == quitAfter) return EndWith("quit", 7);
        if (inBlock > 0)
            --inBlock;
        else if (byte == 0xFD)
            return EndWith("told to close", 0);
        else if (byte < 0xFD)
            inBlock = 512;
    }
}
