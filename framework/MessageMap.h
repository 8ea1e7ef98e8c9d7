#pragma once

#include <windows.h>
#include <windowsx.h>

#include <span>

class CWnd;

// The notification code of a WM_COMMAND that comes from a table of keys.
constexpr UINT kFromKeyTable = 1;

// One message on its way to a window.
struct CMessage {
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

// One row of a message map: what it answers to, and how its handler is called.
struct CMessageRow {
    UINT message;  // WM_...
    UINT code;     // of WM_COMMAND and WM_NOTIFY: the notification code, 0 for a menu item or a click
    UINT firstId;  // of WM_COMMAND and WM_NOTIFY: the control or command ids, both ends included
    UINT lastId;
    LRESULT (*run)(CWnd& window, const CMessage& message);

    bool AnswersTo(const CMessage& what) const;
};

// The rows of one class, and the map of its base class, which is searched next.
struct CMessageMap {
    const CMessageMap* base;
    std::span<const CMessageRow> rows;

    // The first row for the message; null if neither this class nor a base class has one.
    const CMessageRow* Find(const CMessage& message) const;
};

// A class with handlers has DECLARE_MESSAGE_MAP() at its end and, in one source file:
//
//     BEGIN_MESSAGE_MAP(CMyDlg, CDialog)
//         ON_WM_TIMER()
//         ON_BN_CLICKED(IDC_START, OnStart)
//     END_MESSAGE_MAP()
//
// Handlers may be private. The first row that answers to a message takes it; a handler that wants the default
// processing as well calls its base class's handler of the same name, or Default().
//
// A map is one initialiser, spread over two macros.
// clang-format off
#define DECLARE_MESSAGE_MAP()                                                      \
protected:                                                                         \
    static const CMessageMap& ThisMessageMap();                                    \
    const CMessageMap& GetMessageMap() const override { return ThisMessageMap(); } \
                                                                                   \
private:

#define BEGIN_MESSAGE_MAP(theClass, baseClass)       \
    const CMessageMap& theClass::ThisMessageMap() {  \
        using ThisClass [[maybe_unused]] = theClass; \
        using BaseClass = baseClass;                 \
        static const CMessageRow rows[] = {
#define END_MESSAGE_MAP()                                                                     \
            {WM_NULL, 0, 1, 0, nullptr} /* answers to nothing; a map may have no other row */ \
        };                                                                                    \
        static const CMessageMap map{&BaseClass::ThisMessageMap(), rows};                     \
        return map;                                                                           \
    }
// clang-format on

// A row whose handler is called by the expression `call`, with `self` and `m`.
#define MESSAGE_ROW(message, code, firstId, lastId, call)                                              \
    {message, code, firstId, lastId, [](CWnd& window, [[maybe_unused]] const CMessage& m) -> LRESULT { \
         auto& self = static_cast<ThisClass&>(window);                                                 \
         return call;                                                                                  \
     }},
#define MESSAGE_ROW_VOID(message, code, firstId, lastId, call) \
    MESSAGE_ROW(message, code, firstId, lastId, (call, LRESULT{0}))

// The window itself.
#define ON_WM_CLOSE() MESSAGE_ROW_VOID(WM_CLOSE, 0, 0, 0, self.OnClose())
#define ON_WM_CONTEXTMENU()                                               \
    MESSAGE_ROW_VOID(WM_CONTEXTMENU, 0, 0, 0,                             \
                     self.OnContextMenu(reinterpret_cast<HWND>(m.wParam), \
                                        POINT{GET_X_LPARAM(m.lParam), GET_Y_LPARAM(m.lParam)}))
#define ON_WM_DESTROY() MESSAGE_ROW_VOID(WM_DESTROY, 0, 0, 0, self.OnDestroy())
#define ON_WM_ENDSESSION() MESSAGE_ROW_VOID(WM_ENDSESSION, 0, 0, 0, self.OnEndSession(m.wParam != FALSE))
#define ON_WM_PAINT() MESSAGE_ROW_VOID(WM_PAINT, 0, 0, 0, self.OnPaint())
#define ON_WM_QUERYDRAGICON() \
    MESSAGE_ROW(WM_QUERYDRAGICON, 0, 0, 0, reinterpret_cast<LRESULT>(self.OnQueryDragIcon()))
#define ON_WM_SIZE()                   \
    MESSAGE_ROW_VOID(WM_SIZE, 0, 0, 0, \
                     self.OnSize(static_cast<UINT>(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam)))
#define ON_WM_SYSCOMMAND() \
    MESSAGE_ROW_VOID(WM_SYSCOMMAND, 0, 0, 0, self.OnSysCommand(static_cast<UINT>(m.wParam), m.lParam))
#define ON_WM_TIMER() MESSAGE_ROW_VOID(WM_TIMER, 0, 0, 0, self.OnTimer(m.wParam))

// Any other message: LRESULT handler(WPARAM, LPARAM).
#define ON_MESSAGE(message, handler) MESSAGE_ROW(message, 0, 0, 0, self.handler(m.wParam, m.lParam))

// Menu items and controls: void handler(), for a run of ids void handler(UINT id).
#define ON_CONTROL(code, id, handler) MESSAGE_ROW_VOID(WM_COMMAND, code, id, id, self.handler())
#define ON_CONTROL_RANGE(code, firstId, lastId, handler) \
    MESSAGE_ROW_VOID(WM_COMMAND, code, firstId, lastId, self.handler(UINT{LOWORD(m.wParam)}))
#define ON_COMMAND(id, handler) ON_CONTROL(0, id, handler)
#define ON_KEY_RANGE(firstId, lastId, handler) ON_CONTROL_RANGE(kFromKeyTable, firstId, lastId, handler)
#define ON_BN_CLICKED(id, handler) ON_CONTROL(BN_CLICKED, id, handler)
#define ON_EN_KILLFOCUS(id, handler) ON_CONTROL(EN_KILLFOCUS, id, handler)
#define ON_CBN_SELENDOK(id, handler) ON_CONTROL(CBN_SELENDOK, id, handler)

// WM_NOTIFY, for a run of ids: LRESULT handler(UINT id, const NMHDR&).
#define ON_NOTIFY_RANGE(code, firstId, lastId, handler) \
    MESSAGE_ROW(WM_NOTIFY, code, firstId, lastId,       \
                self.handler(static_cast<UINT>(m.wParam), *reinterpret_cast<const NMHDR*>(m.lParam)))
