#pragma once

#include <windows.h>

#include <msxml2.h>

#include <array>
#include <cstddef>
#include <string_view>

#include "dimensions/DimNumber.h"
#include "framework/Automation.h"
#include "framework/ComPtr.h"

namespace nux {

// How a row of a dimension file is read. A row has each dimension as an attribute for the table, and may have
// it once more as a child element for the lists of values. The nodes that a dimension's name selects are
// looked up by walking the DOM instead of by a selection expression. The result is that of the DOM's own
// selection language, which goes by whole node names (a default namespace makes no difference; it would for a
// document that its page has switched to XPath); the cost is a tenth, and a name that makes no well-formed
// expression, which not every DOM survives, just finds nothing.

/// A value in the thread's ANSI code page, as far as it counts: its first 127 bytes. It allocates nothing.
class CellText {
public:
    void Clear() noexcept { size_ = 0; }
    void Assign(const wchar_t* text, std::size_t length) noexcept;
    /// Takes a value of the DOM. One that is no string reads as an empty text.
    void Assign(const VARIANT& value) noexcept;
    std::string_view View() const noexcept { return {bytes_.data(), size_}; }

private:
    /// Characters that are looked at. One more than can count, so that none of a surrogate pair is missing.
    static constexpr std::size_t longestWideText = longestCellText + 1;

    std::array<char, longestWideText * 3> bytes_;  // no ANSI code page needs more than three bytes each
    std::size_t size_ = 0;
};

/// Reads the value of a row's attribute. @return false if there is none
bool ReadAttribute(IXMLDOMElement* row, const Bstr& name, CellText* text) noexcept;

/// Reads the value of the first child element of this name. @return false if there is none
bool ReadChildElement(IXMLDOMNode* node, const Bstr& name, CellText* text) noexcept;

}  // namespace nux
