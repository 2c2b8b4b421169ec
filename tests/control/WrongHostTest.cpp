// A host whose objects fail, or answer what they should not: each operation then says a code that it is known
// to say, and the next one works.

#include <windows.h>

#include <commdlg.h>
#include <gtest/gtest.h>
#include <shlobj.h>

#include "tests/control/HostedComponent.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

using host::Call;

int WINAPI PressOk(HWND, const char*, const char*, UINT) {
    return IDOK;
}
BOOL WINAPI CancelFile(OPENFILENAMEA*) {
    return FALSE;
}
PIDLIST_ABSOLUTE WINAPI CancelFolder(BROWSEINFOA*) {
    return nullptr;
}

constexpr HRESULT told = HRESULT_FROM_WIN32(ERROR_GEN_FAILURE);

class WrongHost : public HostedTest {
protected:
    void SetUp() override {
        HostedTest::SetUp();
        for (const ImportPatch* patch : {&boxes_, &files_, &folders_})
            ASSERT_TRUE(*patch);
        window_ = ShowControl();
    }

    /// Calls whatever reaches the host. @return how many operations failed
    int TryEverything() {
        int failures = 0;
        const auto expect = [&](HRESULT result, std::initializer_list<HRESULT> allowed, const char* what) {
            failures += FAILED(result) ? 1 : 0;
            for (const HRESULT one : allowed) {
                if (result == one)
                    return;
            }
            ADD_FAILURE() << what << " gave " << std::hex << result;
        };
        expect(parts->put_nux3D(objects.side3D.Get()), {S_OK}, "nux3D");
        expect(parts->SetExternalDispatch(objects.external.Get()), {S_OK, E_FAIL}, "SetExternalDispatch");
        expect(UseInstallation(), {S_OK}, "SetTRNVPaths");
        expect(Attach(objects.browser.Get()), {S_OK}, "AttachBrowser");
        expect(parts->put_StatusBar(objects.statusBar.Get()), {S_OK, E_FAIL}, "StatusBar");
        const auto component = objects.Edit(L"BOLTS", L"M8");
        expect(Edit(component.Get(), 0), {S_OK}, "SetEditedComponent");
        expect(GetComponent("BOLTS", "M8"), {S_OK}, "GetComponent");
        expect(Edit(component.Get(), 1), {S_OK, E_FAIL}, "SetEditedComponent");
        expect(parts->Navigate(Bstr(defaultPage, CP_ACP).Get()), {S_OK}, "Navigate");
        expect(parts->SetStatusMessage(nullptr), {S_OK, S_FALSE, told}, "SetStatusMessage");
        expect(parts->CreateProgressBar(), {S_OK, S_FALSE, told}, "CreateProgressBar");
        expect(parts->UpdateProgressBar(1), {S_OK, S_FALSE, told}, "UpdateProgressBar");
        expect(parts->DestroyProgressBar(), {S_OK, S_FALSE, told}, "DestroyProgressBar");
        expect(parts->RunDieWizard(1), {S_OK, told}, "RunDieWizard");
        expect(parts->CreateDieBlock(), {S_OK, told}, "CreateDieBlock");
        expect(parts->RunSlideWizard(), {S_OK}, "RunSlideWizard");
        ComPtr<IDispatch> wizard;
        expect(parts->get_LifterWizard(wizard.Receive()), {S_OK, S_FALSE}, "LifterWizard");
        for (const long singleFile : {0L, 1L}) {
            Bstr path;
            expect(parts->TRNVExportDlg(singleFile, path.Receive()), {S_OK, E_FAIL}, "TRNVExportDlg");
        }
        SendCommands();
        objects.Record().Restore();
        objects.Record().ClearLines();
        return failures;
    }

    void SendCommands() {
        for (const WPARAM command : {1, 2, 3, 4})
            SendMessageA(window_, WM_COMMAND, command, 0);
    }

private:
    const ImportPatch boxes_{LoadedModuleOfTests(), "USER32.dll", "MessageBoxA",
                             reinterpret_cast<void*>(PressOk)};
    const ImportPatch files_{LoadedModuleOfTests(), "COMDLG32.dll", "GetSaveFileNameA",
                             reinterpret_cast<void*>(CancelFile)};
    const ImportPatch folders_{LoadedModuleOfTests(), "SHELL32.dll", "SHBrowseForFolderA",
                               reinterpret_cast<void*>(CancelFolder)};

    static HMODULE LoadedModuleOfTests() {
        CreateParts().Reset();
        return LoadedModule();
    }

    HWND window_ = nullptr;
};

constexpr Call asked[] = {
    Call::AttachHost,        Call::SetCommandFlag,     Call::RunDieWizard, Call::CreateDieBlock,
    Call::GetApplication,    Call::RunSlideWizard,     Call::Inux3DReady,  Call::MainObject,
    Call::CatalogFolder,     Call::MainWindowHWND,     Call::SetMessage,   Call::SetProgress,
    Call::CreateProgressBar, Call::DestroyProgressBar, Call::Close,        Call::GetValue,
    Call::Navigate,          Call::Document,           Call::Script,       Call::GetWindow};

TEST_F(WrongHost, OneThatIsRightFailsNowhere) {
    EXPECT_EQ(0, TryEverything());
}

TEST_F(WrongHost, MayFailAtAnyCall) {
    for (const Call call : asked) {
        for (const long nth : {0L, 1L, 2L}) {
            SCOPED_TRACE(Narrow(host::NameOf(call), std::wcslen(host::NameOf(call))) + " " +
                         std::to_string(nth));
            objects.Record().Fail(call, told, nth);
            TryEverything();
        }
    }
    EXPECT_EQ(0, TryEverything()) << "nothing of it stays";
}

TEST_F(WrongHost, MayAnswerOtherValues) {
    for (const Call call : {Call::MainObject, Call::CatalogFolder, Call::MainWindowHWND}) {
        for (const int type : {+VT_EMPTY, +VT_NULL, +VT_I4, +VT_BSTR, +VT_DISPATCH, +VT_ERROR}) {
            SCOPED_TRACE(Narrow(host::NameOf(call), std::wcslen(host::NameOf(call))) + " " +
                         std::to_string(type));
            Variant value;
            value.Receive()->vt = static_cast<VARTYPE>(type);  // a number of 0, a null text, a null object
            objects.Record().Answer(call, std::move(value));
            TryEverything();
        }
    }
    EXPECT_EQ(0, TryEverything());
}

TEST_F(WrongHost, MayAnswerOtherObjects) {
    for (const Call call : {Call::GetApplication, Call::MainObject, Call::Document, Call::Script}) {
        for (IDispatch* object :
             {static_cast<IDispatch*>(nullptr), static_cast<IDispatch*>(objects.statusBar.Get())}) {
            SCOPED_TRACE(Narrow(host::NameOf(call), std::wcslen(host::NameOf(call))) +
                         (object ? " other" : " null"));
            Variant value;
            value.SetObject(object);
            objects.Record().Answer(call, std::move(value));
            TryEverything();
        }
    }
    for (const Call member :
         {Call::SetMessage, Call::SetProgress, Call::CreateProgressBar, Call::DestroyProgressBar}) {
        objects.Record().Hide(member);
        TryEverything();
    }
    objects.browser->dead = true;
    EXPECT_GT(TryEverything(), 0);
}

class WildSide3D : public host::Side3D {
public:
    using Side3D::Side3D;
    /// Leaves what nobody may use, and nobody may release.
    STDMETHODIMP GetApplication(IDispatch** application) override {
        *application = reinterpret_cast<IDispatch*>(1);
        return told;
    }
};

TEST_F(WrongHost, MayLeaveAnythingWhereAnApplicationIsMissing) {
    const auto side = MakeObject<WildSide3D>(std::make_shared<host::CallRecord>(), objects.application);
    EXPECT_EQ(S_OK, parts->put_nux3D(side.Get()));
    EXPECT_EQ(S_OK, UseInstallation());
    Bstr path;
    EXPECT_EQ(E_FAIL, parts->TRNVExportDlg(1, path.Receive()));
    EXPECT_EQ(S_OK, GetComponent("BOLTS", "M8"));
    EXPECT_EQ(" ", Ids()) << "a catalogue whose folder isn't told lies in the root";
}

TEST_F(WrongHost, MayHandOverNothing) {
    EXPECT_EQ(S_OK, parts->put_nux3D(nullptr));
    EXPECT_EQ(E_INVALIDARG, parts->SetExternalDispatch(nullptr));
    EXPECT_EQ(S_OK, UseInstallation());
    EXPECT_EQ(E_INVALIDARG, Attach(nullptr));
    EXPECT_EQ(S_OK, parts->put_StatusBar(nullptr));
    EXPECT_EQ(S_OK, Edit(nullptr, 1));
    EXPECT_EQ(S_OK, parts->Navigate(nullptr));
    EXPECT_EQ(S_OK, GetComponent("BOLTS", "M8"));
    EXPECT_EQ(S_FALSE, parts->SetStatusMessage(nullptr));
    EXPECT_EQ(S_FALSE, parts->CreateProgressBar());
    EXPECT_EQ(S_FALSE, parts->UpdateProgressBar(1));
    EXPECT_EQ(S_FALSE, parts->DestroyProgressBar());
    EXPECT_EQ(E_FAIL, parts->RunDieWizard(1));
    EXPECT_EQ(E_FAIL, parts->CreateDieBlock());
    EXPECT_EQ(E_FAIL, parts->RunSlideWizard());
    for (const long singleFile : {0L, 1L}) {
        Bstr path;
        EXPECT_EQ(E_FAIL, parts->TRNVExportDlg(singleFile, path.Receive()));
    }
    SendCommands();
    for (const auto get : {&InuxStdParts::get_WebBrowser, &InuxStdParts::get_nux3D,
                           &InuxStdParts::get_EditedComponent, &InuxStdParts::get_LifterWizard}) {
        IDispatch* object = objects.application.Get();
        EXPECT_EQ(S_FALSE, (parts.Get()->*get)(&object));
        EXPECT_EQ(nullptr, object);
        EXPECT_EQ(E_INVALIDARG, (parts.Get()->*get)(nullptr));
    }
    EXPECT_EQ(0, TryEverything());
}

TEST_F(WrongHost, MayHandOverObjectsOfOtherKinds) {
    IDispatch* const other = objects.external.Get();
    EXPECT_EQ(S_OK, parts->put_nux3D(other));
    EXPECT_EQ(E_FAIL, parts->SetExternalDispatch(objects.statusBar.Get()));
    EXPECT_EQ(S_OK, UseInstallation());
    EXPECT_EQ(E_NOINTERFACE, Attach(other));
    EXPECT_EQ(E_FAIL, parts->put_StatusBar(other));
    EXPECT_EQ(E_INVALIDARG, Edit(other, 1));
    EXPECT_EQ(E_FAIL, parts->RunDieWizard(1));
    Bstr path;
    EXPECT_EQ(E_FAIL, parts->TRNVExportDlg(1, path.Receive()));
    EXPECT_EQ(S_OK, GetComponent("BOLTS", "M8"));
    EXPECT_EQ(0, TryEverything());
}

}  // namespace
}  // namespace nux
