#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "control/nuxStdParts.h"
#include "framework/ComObject.h"
#include "resources/resource.h"
#include "tests/dimensions/DimensionChooser.h"
#include "tests/support/Dom.h"
#include "tests/support/TempFolder.h"

namespace nux {

/// What a page hands over. XML is UTF-8; the rows are the elements below the roots, the names those below
/// theirs.
struct DimensionsCall {
    std::string catalog = "TEST";
    std::string component = "PART";
    std::string names;
    std::optional<std::string> standard;
    std::optional<std::string> users;
    std::optional<std::string> defaults;
    const char* title = "Choose dimensions";  ///< of the window that answers
};

/// What a page gets back.
struct DimensionsResult {
    HRESULT answer = E_UNEXPECTED;
    bool written = false;  ///< whether the out pointer was written
    ComPtr<IXMLDOMNode> row;

    /// An attribute of the chosen row, "(none)" without one.
    std::string Value(const std::string& name) const { return AttributeOf(row, name); }
};

/// One automation object with an installation that brings no translations, and no settings of the chooser in
/// the registry at the start. Windows are opened with ChooseDimensions, as pages do.
class DimensionChooserFixture : public testing::Test {
protected:
    DimensionChooserFixture();
    ~DimensionChooserFixture() override;

    /// A call with the names of the table and its rows as standard source.
    static DimensionsCall Call(const SizeTable& standard);
    static DimensionsCall Call(const SizeTable& standard, const SizeTable& users);

    /// Opens the chooser and lets the user do `deeds`, which must end with the chooser closed.
    DimensionsResult Choose(const DimensionsCall& call, const std::function<void(DimensionChooser&)>& deeds);
    /// The same with nodes of the test's own. The component is that of empty identifiers.
    DimensionsResult ChooseFrom(IDispatch* names, const ComPtr<IDispatch>& standard,
                                const std::function<void(DimensionChooser&)>& deeds);
    /// The same as Choose, closed with Cancel after the deeds.
    void Look(const DimensionsCall& call, const std::function<void(DimensionChooser&)>& deeds);
    /// The rows that the chooser shows at its opening.
    std::vector<std::string> RowsOf(const DimensionsCall& call);

    // The settings of the chooser of a component, and of its columns. `column` is a caption, empty for the
    // values of the window itself.

    /// Key below HKEY_LOCAL_MACHINE.
    static std::string Key(const std::string& column = "", const std::string& catalog = "TEST",
                           const std::string& component = "PART");
    static void StoreNumber(const std::string& column, const char* value, DWORD number);
    static void StoreText(const std::string& column, const char* value, const std::string& text);
    static void StoreBytes(const std::string& column, const char* value, DWORD type,
                           const std::string& bytes);
    static std::optional<DWORD> StoredNumber(const std::string& column, const char* value);
    static std::optional<std::string> StoredText(const std::string& column, const char* value);
    /// Stores a filter by number, in its stored form.
    static void StoreFilter(const std::string& column, DWORD type, const char* lower, const char* upper = "0",
                            DWORD database = 3);
    static bool KeyExists(const std::string& key);

    /// Gives the user's language a message file and makes it the interface language. `pairs` are of an
    /// English text and its translation, in UTF-8.
    void Translate(const std::string& catalog, const std::vector<std::pair<std::string, std::string>>& pairs);

    /// The installation.
    const TempFolder& Folder() const { return folder_; }
    nuxStdParts& Object() { return *object_.Get(); }
    void ReleaseObject() { object_.Reset(); }

private:
    void SetPaths();
    DimensionsResult Run(const std::function<HRESULT(IDispatch**)>& call, const char* title,
                         const std::function<void(DimensionChooser&)>& deeds);

    TempFolder folder_;  ///< of the installation
    ComPtr<ComObject<nuxStdParts>> object_;
};

/// The user's decimal separator is a point: whole numbers are shown with a zero behind it.
bool DecimalPoint();
/// A whole number as the chooser's lists show it: "12.0", or "12." where the user's separator is another.
std::string Whole(const char* digits);
/// The code page has double-byte characters.
bool DoubleByteCodePage();

}  // namespace nux
