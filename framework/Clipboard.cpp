#include "framework/Clipboard.h"

#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "framework/Text.h"

namespace {

// Programs that watch the clipboard open it for a moment after each change, also after one of ours.
constexpr int kTries = 10;
constexpr DWORD kBetweenTriesMs = 10;

bool OpenWhenFree(HWND window) {
    for (int tries = 1; !::OpenClipboard(window); ++tries) {
        if (tries == kTries) return false;
        ::Sleep(kBetweenTriesMs);
    }
    return true;
}

// Windows takes the memory over, if it takes it at all.
bool Put(HWND window, UINT format, std::span<const std::byte> head, std::span<const std::byte> rest) {
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, head.size() + rest.size());
    if (!memory) return false;
    auto* const bytes = static_cast<std::byte*>(::GlobalLock(memory));
    std::memcpy(bytes, head.data(), head.size());
    if (!rest.empty()) std::memcpy(bytes + head.size(), rest.data(), rest.size());
    ::GlobalUnlock(memory);
    bool isPut = false;
    if (OpenWhenFree(window)) {
        isPut = ::EmptyClipboard() && ::SetClipboardData(format, memory);
        ::CloseClipboard();
    }
    if (!isPut) ::GlobalFree(memory);
    return isPut;
}

}  // namespace

bool CopyTextToClipboard(HWND window, std::string_view windows1252) {
    const std::wstring text = ToWide(windows1252);
    const std::span withNul(text.c_str(), text.size() + 1);
    return Put(window, CF_UNICODETEXT, std::as_bytes(withNul), {});
}

bool CopyPictureToClipboard(HWND window, const Picture& picture) {
    if (!picture) return false;
    BITMAPINFOHEADER head{};
    head.biSize = sizeof head;
    head.biWidth = picture.Width();
    head.biHeight = picture.Height();
    head.biPlanes = 1;
    head.biBitCount = 32;
    head.biCompression = BI_RGB;
    // From the bottom row up: many programs take no other order from the clipboard.
    const std::span<std::uint32_t> pixels = picture.Pixels();
    const auto width = static_cast<std::size_t>(picture.Width());
    std::vector<std::uint32_t> rows;
    rows.reserve(pixels.size());
    for (std::size_t end = pixels.size(); end > 0; end -= width)
        rows.insert(rows.end(), pixels.begin() + static_cast<std::ptrdiff_t>(end - width),
                    pixels.begin() + static_cast<std::ptrdiff_t>(end));
    return Put(window, CF_DIB, std::as_bytes(std::span(&head, 1)), std::as_bytes(std::span(rows)));
}
