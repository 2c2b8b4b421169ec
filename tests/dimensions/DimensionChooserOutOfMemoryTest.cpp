// Memory that runs out while the chooser opens and closes: the call returns a code, and the next one works.

#include <atomic>
#include <thread>

#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/support/FailingAllocations.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

using Extent = FailingAllocations::Extent;

/// Answers each chooser of the tested thread at once, with OK.
class QuickUser {
public:
    QuickUser() : thread_([this, tested = GetCurrentThreadId()] { Work(tested); }) {}
    QuickUser(const QuickUser&) = delete;
    QuickUser& operator=(const QuickUser&) = delete;
    ~QuickUser() {
        ended_ = true;
        thread_.join();
    }

private:
    void Work(DWORD tested) const {
        const driver::Application windows = driver::Application::OfThread(tested);
        while (!ended_) {
            for (const HWND window : windows.Windows())
                PostMessageA(window, WM_COMMAND, IDOK, 0);
            Sleep(1);
        }
    }

    std::atomic<bool> ended_ = false;
    std::thread thread_;
};

class DimensionChooserOutOfMemory : public DimensionChooserFixture {
protected:
    void SetUp() override {
        ASSERT_EQ(S_OK, CoCreateInstance(CLSID_nuxStdParts, nullptr, CLSCTX_INPROC_SERVER, IID_InuxStdParts,
                                         parts.ReceiveVoid()))
            << "the component is not registered";
        const SizeTable table{{"A", "B"}, {{"1", "round"}, {"2", "square"}}};
        names = SelectNodes(RootOf(ParseXml(table.Names())), L"*");
        rows = SelectNodes(RootOf(ParseXml(table.Xml())), L"*");
        rows.CopyTo(&standard.pdispVal);
        standard.vt = VT_DISPATCH;
    }

    HRESULT Choose() {
        return parts->ChooseDimensions(catalog.Get(), component.Get(), names.Get(), none, standard, none,
                                       chosen.Receive());
    }

    ComPtr<InuxStdParts> parts;
    ComPtr<IXMLDOMNodeList> names, rows;
    RawVariant none, standard;
    ComPtr<IDispatch> chosen;
    const Bstr catalog{L"A catalogue of some length"}, component{L"A component of some length"};
};

TEST_F(DimensionChooserOutOfMemory, GivesACodeAndTheNextCallWorks) {
    const QuickUser user;
    ASSERT_EQ(S_OK, Choose());
    FailingAllocations failing(GetModuleHandleA("nuxStdPartsAX.dll"));
    ASSERT_GE(failing.Replaced(), 9u);
    for (const Extent extent : {Extent::one, Extent::thatAndAllBehind}) {
        for (long number = 1;; ++number) {
            SCOPED_TRACE(number);
            failing.Arm(number, extent);
            const HRESULT result = Choose();
            if (failing.Disarm() < number) {
                EXPECT_GT(number, 50) << "so many allocations could have failed";
                break;
            }
            EXPECT_EQ(E_OUTOFMEMORY, result);
            EXPECT_EQ(S_OK, Choose());
            ASSERT_TRUE(chosen);
        }
    }
}

}  // namespace
}  // namespace nux
