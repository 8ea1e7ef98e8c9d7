#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

// One control of a dialog template. The place is in dialog units. The text is what the control is to be
// created with: for a picture, 0xFFFF and its number.
struct TemplateControl {
    std::wstring windowClass;
    std::wstring text;
    DWORD style;
    DWORD exStyle;
    int id;
    int x, y, width, height;
};

// A dialog of the program's resources, written as DIALOGEX.
class DialogTemplate {
public:
    // Without such a resource the template is empty.
    explicit DialogTemplate(UINT id);

    // Leaves out the controls behind the first `count`.
    void KeepFirst(std::size_t count);

    // For Windows to make the dialog. Null if empty; good for as long as this object lives.
    const DLGTEMPLATE* Get() const;

    // All of its controls, in their order. Throws std::runtime_error if the template is empty or damaged.
    std::vector<TemplateControl> Controls() const;

private:
    std::vector<std::byte> m_bytes;
};
