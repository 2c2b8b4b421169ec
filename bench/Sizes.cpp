#include "bench/Sizes.h"

#include <commctrl.h>

#include "bench/TestFiles.h"
#include "environment/XMLAccess.h"
#include "framework/HResult.h"
#include "framework/Module.h"
#include "framework/Text.h"

namespace nux::bench {
namespace {

constexpr char namesFile[] = "names.xml";
constexpr char rowsFile[] = "sizes.xml";

ComPtr<IXMLDOMDocument> Load(const char* name) {
    ComPtr<IXMLDOMDocument> document;
    if (!LoadXMLDocument(TestUrl(name), document.Receive()))
        throw HResultError(E_FAIL);
    ClearXMLDocumentCache();  // the next file has the same name
    return document;
}

ComPtr<IXMLDOMNodeList> Select(const ComPtr<IXMLDOMDocument>& document, const wchar_t* expression) {
    ComPtr<IXMLDOMNodeList> nodes;
    ThrowIfFailed(document->selectNodes(Bstr(std::wstring_view(expression)).Get(), nodes.Receive()));
    return nodes;
}

const WindowClass& PlainWindowClass() noexcept {
    static const WindowClass windowClass("nuxBench", 0, reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1));
    return windowClass;
}

}  // namespace

Sizes::Sizes()
    : nameDocument(Load(namesFile)),
      rowDocument(Load(rowsFile)),
      names(Select(nameDocument, L"Names/*")),
      rows(Select(rowDocument, L"Dimensions/Size")) {}

std::vector<int> WriteSizes(std::size_t rows) {
    std::string names = "<Names>";
    for (int dimension = 0; dimension < SizeFile::dimensions; ++dimension)
        names += "<" + DimensionCaption(dimension) + "/>";
    WriteFile(namesFile, names + "</Names>");
    SizeFile file(rows);
    WriteFile(rowsFile, file.xml);
    return std::move(file.keys);
}

std::wstring DimensionName(int dimension) {
    return L"D" + std::to_wstring(dimension);
}

std::string DimensionCaption(int dimension) {
    return "D" + std::to_string(dimension);
}

DialogOwner::DialogOwner() {
    Create(PlainWindowClass(), nullptr, {0, 0, 100, 100}, WS_OVERLAPPEDWINDOW);
}

LRESULT DialogOwner::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENTERIDLE && wParam == MSGF_DIALOGBOX && work_) {
        const auto work = std::exchange(work_, nullptr);
        work(reinterpret_cast<HWND>(lParam));
        return 0;
    }
    return Default(message, wParam, lParam);
}

ListWindow::ListWindow() {
    Create(PlainWindowClass(), nullptr, {0, 0, 420, 330}, WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    list_ = CreateWindowA(WC_LISTVIEWA, "",
                          WS_CHILD | WS_VISIBLE | WS_BORDER | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS,
                          0, 0, 400, 280, Handle(), nullptr, ThisModule(), nullptr);
}

LRESULT ListWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    // As in the component: without this answer the list tells of each item that goes.
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == LVN_DELETEALLITEMS)
        return TRUE;
    return Default(message, wParam, lParam);
}

void PaintNow(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

}  // namespace nux::bench
