#include "framework/MessageMap.h"

bool CMessageRow::AnswersTo(const CMessage& what) const {
    if (what.message != message) return false;
    const auto isOurs = [this](UINT_PTR id, UINT itsCode) {
        return itsCode == code && id >= firstId && id <= lastId;
    };
    switch (message) {
        case WM_NULL:
            return false;
        case WM_COMMAND:
            return isOurs(LOWORD(what.wParam), HIWORD(what.wParam));
        case WM_NOTIFY: {
            const auto* header = reinterpret_cast<const NMHDR*>(what.lParam);
            return header != nullptr && isOurs(header->idFrom, header->code);
        }
        default:
            return true;
    }
}

const CMessageRow* CMessageMap::Find(const CMessage& message) const {
    for (const CMessageMap* map = this; map != nullptr; map = map->base) {
        for (const CMessageRow& row : map->rows) {
            if (row.AnswersTo(message)) return &row;
        }
    }
    return nullptr;
}
