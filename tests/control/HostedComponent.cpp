#include "tests/control/HostedComponent.h"

#include <algorithm>
#include <atomic>

#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Waiting.h"
#include "tests/support/RawVariant.h"
#include "tests/support/WithUser.h"

namespace nux {
namespace {

constexpr int messageControl = 0xffff;

Box Answer(driver::User& user) {
    const HWND box = user.Dialog("Tarnvale");
    Box shown{driver::ControlText(driver::Item(box, messageControl)), GetWindow(box, GW_OWNER)};
    driver::Click(driver::Item(box, IDOK));
    driver::WaitUntilGone(box);
    return shown;
}

}  // namespace

std::vector<Box> BoxesOf(const std::function<void()>& work) {
    std::vector<Box> boxes;
    std::atomic<bool> ended = false;
    WithUser(
        [&] {
            work();
            ended = true;
        },
        [&](driver::User& user) {
            while (driver::WaitFor("a box or the end",
                                   [&] { return ended || user.Shows("#32770", "Tarnvale"); }) &&
                   !ended)
                boxes.push_back(Answer(user));
        });
    return boxes;
}

void HostedTest::SetUp() {
    InstallationTest::SetUp();
    objects.application->SetFolder({}, Widen(catalogs));
    ASSERT_EQ(S_OK, parts->put_nux3D(objects.side3D.Get()));
    ASSERT_EQ(S_OK, UseInstallation());
    folder.Write("data\\Tarnvale.htm", "");
    folder.Write("data\\Wizard.htm", "");
    folder.Write(
        "catalogs\\BOLTS\\Catalog.xml",
        "<Catalog><Folder><Name>Short</Name><Part><ID>M8</ID><Geometry>M8.htm</Geometry></Part></Folder>"
        "<Part><ID>M10</ID><Geometry>missing.htm</Geometry></Part>"
        "<Part><ID>M12</ID></Part><Part><ID>M14</ID><Geometry/></Part></Catalog>");
    folder.Write("catalogs\\BOLTS\\M8.htm", "");
    objects.Record().ClearLines();
}

void HostedTest::TearDown() {
    if (frame_) {
        if (parts)
            parts.As<IOleObject>()->SetClientSite(nullptr);
        DestroyWindow(frame_);
    }
    objects.edited.Reset();
    InstallationTest::TearDown();
    for (const auto& browser : attached_)
        browser->Release();
    attached_.clear();
    EXPECT_EQ(1u, References(static_cast<IWebBrowser2*>(objects.browser.Get())));
    EXPECT_EQ(1u, References(static_cast<Inux3D*>(objects.side3D.Get())));
    EXPECT_EQ(1u, References(static_cast<IDispatch*>(objects.statusBar.Get())));
    EXPECT_EQ(2u, References(static_cast<IDispatch*>(objects.application.Get()))) << "one of the 3D side";
    EXPECT_EQ(2u, References(static_cast<IDispatch*>(objects.external.Get()))) << "one of the application";
}

void HostedTest::UnloadModule() {
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_FALSE(LoadedModule()) << "somebody holds the module";
}

HRESULT HostedTest::Attach(IDispatch* browser) {
    if (browser)
        attached_.emplace_back(browser);
    return parts->AttachBrowser(browser);
}

HWND HostedTest::ShowControl() {
    frame_ = CreateWindowExA(0, "STATIC", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 400, 300,
                             nullptr, nullptr, nullptr, nullptr);
    site_ = MakeObject<ControlSite>(frame_);
    const auto object = parts.As<IOleObject>();
    EXPECT_EQ(S_OK, object->SetClientSite(site_.Get()));
    EXPECT_EQ(S_OK, object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.Get(), 0, frame_, nullptr));
    HWND window = nullptr;
    parts.As<IOleWindow>()->GetWindow(&window);
    EXPECT_TRUE(window);
    return window;
}

std::string HostedTest::Told(const std::function<void()>& work) {
    std::string texts;
    for (const Box& box : BoxesOf(work))
        texts += (texts.empty() ? "" : "|") + box.text;
    return texts;
}

std::vector<std::string> HostedTest::Asked(std::initializer_list<host::Call> calls) {
    Texts texts;
    for (const auto& line : objects.Record().Lines()) {
        if (std::find(calls.begin(), calls.end(), line.call) != calls.end()) {
            const std::wstring text = host::TextOf(line);
            texts.push_back(Narrow(text.data(), text.size()));
        }
    }
    objects.Record().ClearLines();
    return texts;
}

std::vector<std::string> HostedTest::Opened() {
    Texts addresses;
    for (const auto& line : objects.Record().Lines()) {
        if (line.call == host::Call::Navigate)
            addresses.push_back(Narrow(line.arguments.data(), line.arguments.size()));
    }
    objects.Record().ClearLines();
    return addresses;
}

HRESULT HostedTest::Edit(IDispatch* component, long reload) {
    RawVariant value;
    value.vt = VT_DISPATCH;
    value.pdispVal = component;
    if (component)
        component->AddRef();
    return parts->SetEditedComponent(value, reload);
}

ComPtr<IDispatch> HostedTest::Edited() {
    ComPtr<IDispatch> edited;
    const HRESULT result = parts->get_EditedComponent(edited.Receive());
    EXPECT_EQ(edited ? S_OK : S_FALSE, result);
    return edited;
}

ComPtr<InuxEditedComponent> HostedTest::EditOne() {
    const auto component = objects.Edit(L"BOLTS", L"M8");
    EXPECT_EQ(S_OK, Edit(component.Get(), 0));
    EXPECT_TRUE(Edited());
    objects.Record().ClearLines();
    return component;
}

HRESULT HostedTest::GetComponent(const std::string& catalogue, const std::string& component) {
    return parts->GetComponent(Bstr(catalogue, CP_ACP).Get(), Bstr(component, CP_ACP).Get());
}

std::string HostedTest::Ids() {
    const std::wstring ids = ReadText(parts, &InuxStdParts::get_CatalogID) + L" " +
                             ReadText(parts, &InuxStdParts::get_ComponentID);
    return Narrow(ids.data(), ids.size());
}

}  // namespace nux
