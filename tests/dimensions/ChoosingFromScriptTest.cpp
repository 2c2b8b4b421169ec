// The registered component in a script engine and in a client written in C++.

#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Waiting.h"
#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/RawVariant.h"
#include "tests/support/WithUser.h"

namespace nux {
namespace {

class Registered : public DimensionChooserFixture {};

TEST_F(Registered, AScriptGetsTheRowThatItsUserChooses) {
    ChildProcess script("cscript.exe /nologo \"" NUX_SCRIPTS "/choose.js\"");
    const HWND first = script.Windows().Dialog("Choose dimensions");
    const driver::ListView list(driver::Item(first, IDC_SIZES));
    EXPECT_EQ((std::vector<std::string>{"1", "2", "3"}), list.Column(1));
    EXPECT_EQ("Length", list.Caption(1));
    EXPECT_EQ((std::vector<int>{1}), list.Selected()) << "the default values tell the row";
    list.ClickRow(2);
    driver::WaitFor("a selected row", [&] { return list.Selected() == std::vector<int>{2}; });
    driver::Click(driver::Item(first, IDOK));
    driver::WaitUntilGone(first);
    const HWND second = script.Windows().Dialog("Choose dimensions");
    EXPECT_EQ(1, driver::ListView(driver::Item(second, IDC_SIZES)).RowCount());
    driver::Click(driver::Item(second, IDCANCEL));
    EXPECT_EQ(
        "no names: 80020005\r\n"
        "names of another kind: 80070057\r\n"
        "rows of another kind: 80070057\r\n"
        "default values of another kind: 80070057\r\n"
        "chosen: 3\r\n"
        "cancelled: null\r\n"
        "still there: s z\r\n",
        script.Wait().output);
}

TEST_F(Registered, AClientGetsTheRowAndKeepsItBeyondTheObject) {
    ComPtr<InuxStdParts> parts;
    ASSERT_EQ(S_OK, CoCreateInstance(CLSID_nuxStdParts, nullptr, CLSCTX_INPROC_SERVER, IID_InuxStdParts,
                                     parts.ReceiveVoid()))
        << "the component is not registered";
    const HMODULE module = GetModuleHandleA("nuxStdPartsAX.dll");
    ASSERT_NE(nullptr, module);
    const auto canUnload = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
        reinterpret_cast<void*>(GetProcAddress(module, "DllCanUnloadNow")));
    const SizeTable table{{"A", "B"}, {{"1", "x"}, {"2", "y"}}};
    ComPtr<IDispatch> chosen;
    {
        const auto names = SelectNodes(RootOf(ParseXml(table.Names())), L"*");
        const auto rows = SelectNodes(RootOf(ParseXml(table.Xml())), L"*");
        RawVariant none, standard;
        standard.vt = VT_DISPATCH;
        rows.CopyTo(&standard.pdispVal);
        WithUser(
            [&] {
                EXPECT_EQ(S_OK, parts->ChooseDimensions(nullptr, nullptr, names.Get(), none, standard, none,
                                                        chosen.Receive()));
            },
            [&](driver::User& user) {
                const DimensionChooser chooser(user);
                EXPECT_EQ(S_FALSE, canUnload());
                chooser.Menu(1, MenuItem::SortDescending);
                chooser.Take(0);
            });
    }
    parts.Reset();
    EXPECT_EQ(S_OK, canUnload()) << "objects of the module are left";
    EXPECT_EQ("y", AttributeOf(chosen.As<IXMLDOMNode>(), "B"));
}

}  // namespace
}  // namespace nux
