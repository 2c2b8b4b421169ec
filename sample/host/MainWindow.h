#pragma once

#include <windows.h>

#include <commctrl.h>
#include <exdisp.h>

#include <functional>
#include <string>
#include <vector>

#include "framework/Handles.h"
#include "framework/ListView.h"
#include "framework/Window.h"
#include "host/Embedding.h"
#include "host/HostObjects.h"
#include "host/Pane.h"
#include "host/Questions.h"
#include "host/WindowPlace.h"

namespace nux::host {

/// The list of calls between host and component.
class CallList : public ListView {
public:
    explicit CallList(MessageTarget* owner) noexcept : ListView(owner) {}
    /// Appends a call and shows it. @return its row
    int Add(const std::string& from, const std::string& call) const;

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        return Default(message, wParam, lParam);
    }
};

/// The program's window: the page, what the component asked, the component's control, the status bar.
class MainWindow : public Window {
public:
    /// @param folder  the installation, with a closing separator
    explicit MainWindow(std::wstring folder);
    ~MainWindow() override;

    /// Shows the window as the user left it, makes the component and opens its default page. Throws
    /// HResultError if the component can't be started.
    void Open(int show);
    /// Lets keys reach the page or the menu. @return whether the message is done with
    bool TranslateKey(MSG& message) const noexcept;
    // For the end of the program: what has ended it, if it wasn't the user.
    using Window::RethrowFailure;

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnFailure() noexcept override { Destroy(); }

private:
    void CreateParts();
    void Arrange() const;
    void StartComponent();
    void Close();

    void Run(UINT command);
    /// Makes a call of the component, and lists it with its answer.
    HRESULT Ask(const std::string& call, const std::function<HRESULT()>& body);
    /// The same for one that answers a text, which is listed.
    void AskText(const std::string& call, const std::function<HRESULT(BSTR*)>& body);
    void ChooseSize();
    void SetEdited();
    void AskLifterWizard();
    void Navigate(const std::string& url);
    void OnTimer();

    void ListCall(const CallRecord::Line& line) const;
    void ShowStatus() const;
    void ShowState();
    void PaintPage(HDC context, RECT client) const;
    void PaintComponent(HDC context, RECT client) const;

    std::string FolderText() const;

    InuxStdParts* StdParts() const noexcept { return host_.StdParts(); }

    const std::wstring folder_;
    WindowPlace place_ = WindowPlace::Load();
    HostObjects host_;
    ComPtr<IWebBrowser2> webBrowser_;  ///< null on a system without one
    Embedding page_;
    Embedding control_;
    UniqueHandle<DrawingTraits<HFONT>> font_;
    UniqueHandle<DrawingTraits<HFONT>> boldFont_;
    int lineHeight_ = 0;  ///< in pixels, of the font
    HWND addressLabel_ = nullptr;
    HWND address_ = nullptr;
    Pane pagePane_;
    Pane componentPane_;
    Pane controlPane_;
    CallList calls_;
    HWND statusBar_ = nullptr;
    HWND progress_ = nullptr;
    PartDialog part_;
    std::string editedText_;
    long progressDone_ = 0;  ///< of the work that only seems to be done, in percent
};

}  // namespace nux::host
