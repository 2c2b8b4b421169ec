#pragma once

#include <windows.h>

#include <msxml2.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "framework/ComPtr.h"
#include "framework/Window.h"

namespace nux::bench {

/// The component's sizes, as a wizard page would hand them over.
struct Sizes {
    /// Loads what WriteSizes wrote last.
    Sizes();

    ComPtr<IXMLDOMDocument> nameDocument;
    ComPtr<IXMLDOMDocument> rowDocument;
    ComPtr<IXMLDOMNodeList> names;
    ComPtr<IXMLDOMNodeList> rows;
};

/// Makes the files of so many sizes. @return their keys, as SizeFile tells
std::vector<int> WriteSizes(std::size_t rows);

/// The references on the rows of a list.
using RowReferences = std::vector<ComPtr<IXMLDOMNode>>;

/// Name of a dimension: of its attribute and its child element, and its caption.
std::wstring DimensionName(int dimension);
std::string DimensionCaption(int dimension);

/// Owner of the dialogs that are measured. It is told when a dialog has nothing left to do.
class DialogOwner : public Window {
public:
    DialogOwner();

    /// Calls `work` with the dialog, once, when its start is done and its window is shown.
    void WhenOpen(std::function<void(HWND dialog)> work) { work_ = std::move(work); }

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::function<void(HWND dialog)> work_;
};

/// A window with a list view as the chooser has it.
class ListWindow : public Window {
public:
    ListWindow();
    HWND List() const { return list_; }

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    HWND list_;
};

/// Paints all that is to be painted, so that it counts too.
void PaintNow(HWND window);

}  // namespace nux::bench
