#include "tests/support/system/FileDrag.h"

#include <ole2.h>

#include <atomic>
#include <utility>

#include "tests/support/DraggedFiles.h"
#include "tests/support/system/Await.h"

namespace plotvane::test {
namespace {

constexpr int kSidePx = 40;

POINT MiddleOf(const RECT& place) {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

}  // namespace

// What the system asks while it drags, and what is told to the test's own thread.
struct FileDrag::Source final : IDropSource {
    HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
        const bool isKnown = id == IID_IUnknown || id == IID_IDropSource;
        *object = isKnown ? static_cast<IDropSource*>(this) : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG WINAPI AddRef() override { return 1; }
    ULONG WINAPI Release() override { return 1; }
    HRESULT WINAPI QueryContinueDrag(BOOL isCancelled, DWORD keys) override {
        if (isCancelled) return DRAGDROP_S_CANCEL;
        return (keys & MK_LBUTTON) != 0 ? S_OK : DRAGDROP_S_DROP;
    }
    // Comes after the target has been asked.
    HRESULT WINAPI GiveFeedback(DWORD shown) override {
        effect = shown;
        place = ::GetMessagePos();
        ++timesAsked;
        return DRAGDROP_S_USEDEFAULTCURSORS;
    }

    void Drag() {
        isDragging = true;
        DWORD done = DROPEFFECT_NONE;
        const HRESULT ended = ::DoDragDrop(files, this, DROPEFFECT_COPY | DROPEFFECT_LINK, &done);
        result = ended == DRAGDROP_S_DROP ? done : DWORD{DROPEFFECT_NONE};
        isDragging = false;
    }
    static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* const source = reinterpret_cast<Source*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_LBUTTONDOWN && source) source->Drag();
        if (message == WM_DESTROY) ::PostQuitMessage(0);
        return ::DefWindowProcW(window, message, wParam, lParam);
    }

    IDataObject* files = nullptr;
    std::atomic<HWND> window = nullptr;
    std::atomic<bool> isDragging = false;
    std::atomic<DWORD> effect = DROPEFFECT_NONE;
    std::atomic<DWORD> place = 0;  // of the pointer, as GetMessagePos has it
    std::atomic<int> timesAsked = 0;
    std::atomic<DWORD> result = DROPEFFECT_NONE;
};

FileDrag::FileDrag(std::vector<std::filesystem::path> files)
    : m_source(std::make_unique<Source>()), m_thread(&FileDrag::Run, this, std::move(files)) {
    EXPECT_TRUE(Becomes([this] { return m_source->window != nullptr; }, true));
    POINT middle{};
    EXPECT_TRUE(Becomes(
        [&] {
            middle = MiddleOf(RemoteWindow(m_source->window).ScreenRect());
            return ::WindowFromPoint(middle);
        },
        m_source->window.load()))
        << "nothing covers it";
    ::SetCursorPos(middle.x, middle.y);
    ::mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    EXPECT_TRUE(Becomes([this] { return m_source->isDragging.load(); }, true));
}

FileDrag::~FileDrag() {
    const RemoteWindow window(m_source->window);
    if (m_isDown) {
        const POINT middle = MiddleOf(window.ScreenRect());
        ::SetCursorPos(middle.x, middle.y);
        LetGo();
    }
    window.Close();
    m_thread.join();
}

// The thread of the window.
void FileDrag::Run(std::vector<std::filesystem::path> files) {
    ::OleInitialize(nullptr);
    DraggedFiles data(std::move(files));
    m_source->files = &data;
    constexpr const wchar_t* kClass = L"PlotvaneTestDrag";
    WNDCLASSW type{};
    type.lpfnWndProc = Source::Handle;
    type.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_HIGHLIGHT + 1);
    type.lpszClassName = kClass;
    ::RegisterClassW(&type);
    const HWND window =
        ::CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kClass, L"", WS_POPUP | WS_VISIBLE, 0, 0, kSidePx,
                          kSidePx, nullptr, nullptr, nullptr, nullptr);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(m_source.get()));
    m_source->window = window;
    MSG message;
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
    ::UnregisterClassW(kClass, nullptr);
    ::CoDisconnectObject(&data, 0);
    ::OleUninitialize();
}

::testing::AssertionResult FileDrag::MoveOver(const RemoteWindow& window) {
    const POINT target = MiddleOf(window.ScreenRect());
    const DWORD place = MAKELONG(target.x, target.y);
    const int before = m_source->timesAsked;
    // A pointer that does not move is asked about only once in a while.
    int side = 0;
    return Becomes(
        [&] {
            side = 1 - side;
            ::SetCursorPos(target.x + side, target.y);
            return m_source->timesAsked > before + 1 && m_source->place == place;
        },
        true);
}

DWORD FileDrag::Effect() const {
    return m_source->effect;
}

DWORD FileDrag::Drop() {
    LetGo();
    return m_source->result;
}

void FileDrag::LetGo() {
    m_isDown = false;
    ::mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    EXPECT_TRUE(Becomes([this] { return m_source->isDragging.load(); }, false));
}

}  // namespace plotvane::test
