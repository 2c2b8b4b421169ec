#include "webbrowser/CursorName.h"

namespace nux::webbrowser {
namespace {

struct Row {
    std::wstring_view shape;
    LPSTR cursor;
};

}  // namespace

LPSTR CursorOf(std::wstring_view shape) noexcept {
    const Row rows[] = {
        {L"pointer", IDC_HAND},       {L"text", IDC_IBEAM},           {L"vertical-text", IDC_IBEAM},
        {L"wait", IDC_WAIT},          {L"progress", IDC_APPSTARTING}, {L"help", IDC_HELP},
        {L"crosshair", IDC_CROSS},    {L"cell", IDC_CROSS},           {L"move", IDC_SIZEALL},
        {L"all-scroll", IDC_SIZEALL}, {L"not-allowed", IDC_NO},       {L"no-drop", IDC_NO},
        {L"e-resize", IDC_SIZEWE},    {L"w-resize", IDC_SIZEWE},      {L"ew-resize", IDC_SIZEWE},
        {L"col-resize", IDC_SIZEWE},  {L"n-resize", IDC_SIZENS},      {L"s-resize", IDC_SIZENS},
        {L"ns-resize", IDC_SIZENS},   {L"row-resize", IDC_SIZENS},    {L"ne-resize", IDC_SIZENESW},
        {L"sw-resize", IDC_SIZENESW}, {L"nesw-resize", IDC_SIZENESW}, {L"nw-resize", IDC_SIZENWSE},
        {L"se-resize", IDC_SIZENWSE}, {L"nwse-resize", IDC_SIZENWSE},
    };
    for (const Row& row : rows) {
        if (row.shape == shape)
            return row.cursor;
    }
    return IDC_ARROW;
}

}  // namespace nux::webbrowser
