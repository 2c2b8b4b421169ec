#include "host/MainWindow.h"

#include <algorithm>
#include <string_view>

#include "framework/Icons.h"
#include "framework/Module.h"
#include "framework/Text.h"
#include "host/Catalogs.h"
#include "host/Texts.h"
#include "host/resource.h"

namespace nux::host {
namespace {

constexpr UINT_PTR workTimer = 1;
constexpr UINT_PTR pageTimer = 2;
constexpr int margin = 8;
constexpr int callsHeight = 190;
constexpr int componentWidth = 240;
constexpr int progressWidth = 160;
constexpr int stateWidth = 200;
constexpr int fromWidth = 90;

enum StatusPart { messagePart, progressPart, statePart };

const WindowClass& MainWindowClass() noexcept {
    static const WindowClass windowClass("SampleHost", 0, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    return windowClass;
}

/// A child control of the main window.
HWND MakeControl(const char* windowClass, HWND parent, DWORD style, DWORD extendedStyle, HFONT font) {
    const HWND control = CreateWindowExA(extendedStyle, windowClass, "", WS_CHILD | WS_VISIBLE | style, 0, 0,
                                         0, 0, parent, nullptr, ThisModule(), nullptr);
    if (!control)
        throw HResultError(LastFailure());
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return control;
}

/// Whether the class of the browser control is served by the platform itself, and not by one that has taken
/// its place.
bool IsBrowserThePlatforms() noexcept {
    wchar_t server[MAX_PATH] = L"";
    DWORD size = sizeof server;
    RegGetValueW(HKEY_CLASSES_ROOT, L"CLSID\\{8856F961-340A-11D0-A96B-00C04FD705A2}\\InprocServer32", nullptr,
                 RRF_RT_REG_SZ, nullptr, server, &size);
    std::wstring_view name(server);
    name.remove_prefix(name.find_last_of(L'\\') + 1);
    return _wcsicmp(name.data(), L"ieframe.dll") == 0;
}

/// A web browser control, or null on a system that has none. Wine 8.0 makes the platform's also where the
/// HTML engine is missing that it needs for any page: the engine is asked for first.
ComPtr<IWebBrowser2> MakeWebBrowser() noexcept {
    static constexpr CLSID htmlDocument{
        0x25336920, 0x03f9, 0x11cf, {0x8f, 0xd0, 0x00, 0xaa, 0x00, 0x68, 0x6f, 0x13}};
    ComPtr<IUnknown> engine;
    ComPtr<IWebBrowser2> browser;
    if (!IsBrowserThePlatforms() || SUCCEEDED(CreateObject(htmlDocument, engine)))
        CreateObject(CLSID_WebBrowser, browser);
    return browser;
}

Bstr Wide(const std::string& text) {
    return Bstr(text, CP_ACP);
}

}  // namespace

int CallList::Add(const std::string& from, const std::string& call) const {
    const int row = ListView_GetItemCount(Handle());
    InsertRow(row, 0, -1);
    SetCell(row, 0, from);
    SetCell(row, 1, call);
    ListView_EnsureVisible(Handle(), row, FALSE);
    return row;
}

MainWindow::MainWindow(std::wstring folder)
    : folder_(std::move(folder)),
      pagePane_(this, [this](HDC context, const RECT& client) { PaintPage(context, client); }),
      componentPane_(this, [this](HDC context, const RECT& client) { PaintComponent(context, client); }),
      controlPane_(this),
      calls_(this),
      part_(CatalogsIn(folder_),
            [this](const std::string& catalog) { return PartsOf(StdParts(), catalog); }) {
    host_.Record().whenCalled = [this](const CallRecord::Line& line) { ListCall(line); };
    host_.statusBar->whenChanged = [this] { ShowStatus(); };
    host_.browser->whenNavigated = [this] { ShowState(); };
}

MainWindow::~MainWindow() {
    // Calls that come while all goes find no window.
    host_.Record().whenCalled = nullptr;
    host_.statusBar->whenChanged = nullptr;
    host_.browser->whenNavigated = nullptr;
}

std::string MainWindow::FolderText() const {
    return Narrow(folder_.data(), folder_.size(), CP_ACP);
}

void MainWindow::Open(int show) {
    RECT bounds = place_.bounds;
    if (IsRectEmpty(&bounds)) {
        RECT area{};
        SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
        const int width = std::min<int>(960, area.right - area.left);
        const int height = std::min<int>(700, area.bottom - area.top);
        bounds = {area.left + (area.right - area.left - width) / 2,
                  area.top + (area.bottom - area.top - height) / 2, 0, 0};
        bounds.right = bounds.left + width;
        bounds.bottom = bounds.top + height;
    }
    Create(MainWindowClass(), nullptr, bounds, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN);
    ShowWindow(Handle(), place_.maximised && show == SW_SHOWNORMAL ? SW_SHOWMAXIMIZED : show);
    StartComponent();
}

void MainWindow::CreateParts() {
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    font_ = UniqueHandle<DrawingTraits<HFONT>>(CreateFontIndirectA(&metrics.lfMessageFont));
    lineHeight_ = std::abs(metrics.lfMessageFont.lfHeight) * 3 / 2 + 2;
    metrics.lfMessageFont.lfWeight = FW_BOLD;
    boldFont_ = UniqueHandle<DrawingTraits<HFONT>>(CreateFontIndirectA(&metrics.lfMessageFont));

    SetWindowTextA(Handle(), (Text(IDS_TITLE) + " - " + FolderText()).c_str());
    SetMenu(Handle(), LoadMenuA(ThisModule(), MAKEINTRESOURCEA(IDR_MENU)));
    for (const int size : {ICON_SMALL, ICON_BIG}) {
        SendMessageA(Handle(), WM_SETICON, size,
                     reinterpret_cast<LPARAM>(LoadImageA(
                         ThisModule(), MAKEINTRESOURCEA(IDI_HOST), IMAGE_ICON,
                         GetSystemMetrics(size == ICON_BIG ? SM_CXICON : SM_CXSMICON),
                         GetSystemMetrics(size == ICON_BIG ? SM_CYICON : SM_CYSMICON), LR_SHARED)));
    }

    addressLabel_ = MakeControl("STATIC", Handle(), SS_CENTERIMAGE, 0, font_.Get());
    SetWindowTextA(addressLabel_, Text(IDS_PAGE).c_str());
    address_ = MakeControl("EDIT", Handle(), ES_READONLY | ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE,
                           font_.Get());
    pagePane_.Open(Handle(), WS_EX_CLIENTEDGE);
    componentPane_.Open(Handle(), WS_EX_CLIENTEDGE);
    controlPane_.Open(componentPane_.Handle(), WS_EX_STATICEDGE);

    calls_.Attach(MakeControl(WC_LISTVIEWA, Handle(),
                              LVS_REPORT | LVS_SHOWSELALWAYS | LVS_SINGLESEL | WS_TABSTOP, WS_EX_CLIENTEDGE,
                              font_.Get()));
    calls_.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    calls_.InsertColumn(0, LVCFMT_LEFT, fromWidth, Text(IDS_FROM));
    calls_.InsertColumn(1, LVCFMT_LEFT, 0, Text(IDS_CALL));
    calls_.InsertColumn(2, LVCFMT_LEFT, 0, Text(IDS_ANSWER));

    statusBar_ = MakeControl(STATUSCLASSNAMEA, Handle(), SBARS_SIZEGRIP, 0, font_.Get());
    progress_ = MakeControl(PROGRESS_CLASSA, statusBar_, 0, 0, nullptr);
    ShowWindow(progress_, SW_HIDE);
}

void MainWindow::Arrange() const {
    SendMessageA(statusBar_, WM_SIZE, 0, 0);
    RECT client{};
    GetClientRect(Handle(), &client);
    const RECT status = WindowRectangle(statusBar_);
    client.bottom -= status.bottom - status.top;

    const int ends[]{static_cast<int>(client.right) - stateWidth - progressWidth,
                     static_cast<int>(client.right) - stateWidth, -1};
    SendMessageA(statusBar_, SB_SETPARTS, std::size(ends), reinterpret_cast<LPARAM>(ends));
    RECT bar{};
    SendMessageA(statusBar_, SB_GETRECT, progressPart, reinterpret_cast<LPARAM>(&bar));
    InflateRect(&bar, -3, -3);
    SetWindowPos(progress_, nullptr, bar.left, bar.top, bar.right - bar.left, bar.bottom - bar.top,
                 SWP_NOZORDER);

    const auto place = [](HWND window, int left, int top, int right, int bottom) {
        SetWindowPos(window, nullptr, left, top, right - left, bottom - top, SWP_NOZORDER | SWP_NOCOPYBITS);
    };
    const int right = client.right - margin;
    const int addressHeight = lineHeight_ + 2;
    place(addressLabel_, margin, margin, margin + 48, margin + addressHeight);
    place(address_, margin + 52, margin, right, margin + addressHeight);

    const int lower = place_.showsCalls ? client.bottom - margin - callsHeight : client.bottom;
    place(pagePane_.Handle(), margin, 2 * margin + addressHeight, right, lower - margin);
    const int componentLeft = right - componentWidth;
    place(calls_.Handle(), margin, lower, componentLeft - margin, lower + callsHeight);
    RECT list{};
    GetClientRect(calls_.Handle(), &list);
    const int width = list.right - GetSystemMetrics(SM_CXVSCROLL);
    calls_.SetColumnWidth(1, (width - fromWidth) * 3 / 5);
    calls_.SetColumnWidth(2, (width - fromWidth) * 2 / 5);
    place(componentPane_.Handle(), componentLeft, lower, right, lower + callsHeight);
    for (const HWND window : {calls_.Handle(), componentPane_.Handle()})
        ShowWindow(window, place_.showsCalls ? SW_SHOWNA : SW_HIDE);

    RECT component{};
    GetClientRect(componentPane_.Handle(), &component);
    place(controlPane_.Handle(), margin, component.bottom - margin - 32, component.right - margin,
          component.bottom - margin);
    control_.Resize();
    page_.Resize();
}

void MainWindow::StartComponent() {
    host_.external->SetMainWindow(Handle());
    host_.Create();
    control_.Open(StdParts(), controlPane_.Handle(), Handle(), nullptr);
    webBrowser_ = MakeWebBrowser();
    if (webBrowser_) {
        page_.Open(webBrowser_.Get(), pagePane_.Handle(), Handle(), host_.external.Get());
        SetTimer(Handle(), pageTimer, 500, nullptr);
    } else {
        host_.browser->window = pagePane_.Handle();
    }
    ComPtr<IDispatch> browser(host_.browser);
    if (webBrowser_)
        browser = webBrowser_;
    Ask("Start", [&] {
        host_.Start({folder_ + L"catalogs\\", folder_ + L"data\\", folder_ + L"gui\\", folder_ + L"custom\\"},
                    browser.Get());
        return S_OK;
    });
    Ask("SetStatusMessage", [&] { return StdParts()->SetStatusMessage(Wide(Text(IDS_READY)).Get()); });
    Run(IDM_DEFAULT_PAGE);
}

bool MainWindow::TranslateKey(MSG& message) const noexcept {
    if (page_.TranslateKey(message))
        return true;
    static const HACCEL keys = LoadAcceleratorsA(ThisModule(), MAKEINTRESOURCEA(IDR_KEYS));
    return TranslateAcceleratorA(Handle(), keys, &message) != 0;
}

LRESULT MainWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            CreateParts();
            return 0;
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED)
                Arrange();
            return 0;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {640, 480};
            return 0;
        case WM_INITMENUPOPUP:
            CheckMenuItem(GetMenu(Handle()), IDM_SHOW_CALLS, place_.showsCalls ? MF_CHECKED : MF_UNCHECKED);
            EnableMenuItem(GetMenu(Handle()), IDM_RELEASE_EDITED,
                           editedText_.empty() ? MF_GRAYED : MF_ENABLED);
            return 0;
        case WM_COMMAND:
            if (lParam == 0)
                Run(LOWORD(wParam));
            return 0;
        case WM_TIMER:
            if (wParam == workTimer)
                OnTimer();
            else
                ShowState();
            return 0;
        case WM_CLOSE:
            Close();
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return Default(message, wParam, lParam);
    }
}

void MainWindow::Close() {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (GetWindowPlacement(Handle(), &placement)) {
        place_.bounds = placement.rcNormalPosition;
        place_.maximised = placement.showCmd == SW_SHOWMAXIMIZED;
        place_.Save();
    }
    KillTimer(Handle(), workTimer);
    KillTimer(Handle(), pageTimer);
    control_.Close();
    page_.Close();
    host_.Stop();
    Destroy();
}

HRESULT MainWindow::Ask(const std::string& call, const std::function<HRESULT()>& body) {
    // The component's own calls are listed below the one that they come from.
    const int row = calls_.Add(Text(IDS_HOST), call);
    const HRESULT result = body();
    calls_.SetCell(row, 2, TextOfResult(result));
    ShowState();
    return result;
}

void MainWindow::AskText(const std::string& call, const std::function<HRESULT(BSTR*)>& body) {
    Bstr text;
    const int row = calls_.Add(Text(IDS_HOST), call);
    const HRESULT result = body(text.Receive());
    const std::string answer = Narrow(text.Get(), CP_ACP);
    calls_.SetCell(row, 2,
                   FAILED(result)   ? TextOfResult(result)
                   : answer.empty() ? Text(IDS_NO_OBJECT)
                                    : answer);
    ShowState();
}

void MainWindow::Run(UINT command) {
    switch (command) {
        case IDM_EXIT:
            SendMessageA(Handle(), WM_CLOSE, 0, 0);
            return;
        case IDM_NEW_COMPONENT: {
            LONG chosen = 0;
            Ask("NewComponent 1", [&] { return StdParts()->NewComponent(1, &chosen); });
            return;
        }
        case IDM_GET_COMPONENT:
            if (part_.Ask(Handle(), Text(IDS_GET_COMPONENT), false)) {
                Ask("GetComponent " + part_.Catalog() + ' ' + part_.Part(), [&] {
                    return StdParts()->GetComponent(Wide(part_.Catalog()).Get(), Wide(part_.Part()).Get());
                });
            }
            return;
        case IDM_CHOOSE_SIZE:
            ChooseSize();
            return;
        case IDM_SET_EDITED:
            SetEdited();
            return;
        case IDM_RELEASE_EDITED:
            editedText_.clear();
            host_.edited.Reset();
            Ask("SetEditedComponent", [&] { return StdParts()->SetEditedComponent(VARIANT{}, 0); });
            return;
        case IDM_DEFAULT_PAGE:
            Navigate("file://" + FolderText() + "data\\Tarnvale.htm");
            return;
        case IDM_NAVIGATE:
            if (const auto url = TextDialog::Ask(Handle(), Text(IDS_TITLE), Text(IDS_ASK_URL),
                                                 "file://" + FolderText() + "data\\Wizard.htm"))
                Navigate(*url);
            return;
        case IDM_DIE_WIZARD:
            Ask("RunDieWizard 1", [&] { return StdParts()->RunDieWizard(1); });
            return;
        case IDM_DIE_BLOCK:
            Ask("CreateDieBlock", [&] { return StdParts()->CreateDieBlock(); });
            return;
        case IDM_SLIDE_WIZARD:
            Ask("RunSlideWizard", [&] { return StdParts()->RunSlideWizard(); });
            return;
        case IDM_LIFTER_WIZARD:
            AskLifterWizard();
            return;
        case IDM_STATUS_MESSAGE:
            if (const auto text =
                    TextDialog::Ask(Handle(), Text(IDS_TITLE), Text(IDS_ASK_MESSAGE), Text(IDS_READY)))
                Ask("SetStatusMessage", [&] { return StdParts()->SetStatusMessage(Wide(*text).Get()); });
            return;
        case IDM_PROGRESS:
            progressDone_ = 0;
            Ask("SetStatusMessage",
                [&] { return StdParts()->SetStatusMessage(Wide(Text(IDS_WORKING)).Get()); });
            Ask("CreateProgressBar", [&] { return StdParts()->CreateProgressBar(); });
            SetTimer(Handle(), workTimer, 150, nullptr);
            return;
        case IDM_SAVE_NAME:
            AskText("GetSaveFileName", [&](BSTR* name) {
                return StdParts()->GetSaveFileName(Wide(Text(IDS_SAVE_TITLE)).Get(),
                                                   Wide(Text(IDS_SAVE_FILTER)).Get(), Wide("part.igs").Get(),
                                                   Wide("igs").Get(), name);
            });
            return;
        case IDM_OPEN_FILE:
            if (const auto file = TextDialog::Ask(Handle(), Text(IDS_TITLE), Text(IDS_ASK_FILE),
                                                  FolderText() + "catalogs\\Catalogs.xml"))
                Ask("ExecuteFileInShell " + *file,
                    [&] { return StdParts()->ExecuteFileInShell(Wide(*file).Get()); });
            return;
        case IDM_EXPORT_FILE:
        case IDM_EXPORT_FOLDER: {
            const LONG singleFile = command == IDM_EXPORT_FILE;
            AskText("TRNVExportDlg " + std::to_string(singleFile),
                    [&](BSTR* path) { return StdParts()->TRNVExportDlg(singleFile, path); });
            return;
        }
        case IDM_SHOW_CALLS:
            place_.showsCalls = !place_.showsCalls;
            Arrange();
            return;
        case IDM_CLEAR_CALLS:
            calls_.DeleteAllRows();
            host_.Record().ClearLines();
            return;
        case IDM_ABOUT:
            AboutDialog().RunModal(Handle(), IDD_ABOUT);
            return;
        default:
            if (command >= IDM_COMMAND_1 && command <= IDM_COMMAND_4) {
                const WPARAM number = command - IDM_COMMAND_1 + 1;
                Ask("WM_COMMAND " + std::to_string(number), [&] {
                    SendMessageA(control_.Window(), WM_COMMAND, number, 0);
                    return S_OK;
                });
            }
    }
}

void MainWindow::Navigate(const std::string& url) {
    Ask("Navigate " + url, [&] { return StdParts()->Navigate(Wide(url).Get()); });
    editedText_.clear();  // the component has closed it
    ShowState();
}

void MainWindow::SetEdited() {
    if (!part_.Ask(Handle(), Text(IDS_SET_EDITED), true))
        return;
    const std::string text = part_.Catalog() + ' ' + part_.Part();
    host_.edited = host_.Edit(Widen(part_.Catalog(), CP_ACP), Widen(part_.Part(), CP_ACP));
    Variant object;
    object.SetObject(host_.edited);
    const HRESULT result = Ask("SetEditedComponent " + text + (part_.OpensPage() ? " 1" : " 0"), [&] {
        return StdParts()->SetEditedComponent(object.Get(), part_.OpensPage());
    });
    editedText_ = SUCCEEDED(result) ? text : std::string();
    ShowState();
}

void MainWindow::ChooseSize() {
    if (!part_.Ask(Handle(), Text(IDS_CHOOSE_SIZE), false))
        return;
    Ask("ChooseDimensions " + part_.Catalog() + ' ' + part_.Part(),
        [&] { return host::ChooseSize(StdParts(), part_.Catalog(), part_.Part()); });
}

void MainWindow::AskLifterWizard() {
    ComPtr<IDispatch> wizard;
    Ask("LifterWizard", [&] { return StdParts()->get_LifterWizard(wizard.Receive()); });
    if (const ComPtr<ISampleLifterWizard> own = wizard.As<ISampleLifterWizard>())
        own->Run();
}

void MainWindow::OnTimer() {
    progressDone_ += 5;
    if (progressDone_ <= 100) {
        StdParts()->UpdateProgressBar(progressDone_);
        return;
    }
    KillTimer(Handle(), workTimer);
    Ask("DestroyProgressBar", [&] { return StdParts()->DestroyProgressBar(); });
    Ask("SetStatusMessage", [&] { return StdParts()->SetStatusMessage(Wide(Text(IDS_READY)).Get()); });
}

void MainWindow::ListCall(const CallRecord::Line& line) const {
    if (!calls_.Handle())
        return;
    std::string call = "    " + Narrow(NameOf(line.call), std::wcslen(NameOf(line.call)), CP_ACP);
    if (!line.arguments.empty())
        call += ' ' + Narrow(line.arguments.data(), line.arguments.size(), CP_ACP);
    calls_.SetCell(calls_.Add(Text(IDS_COMPONENT), call), 2, TextOfResult(line.result));
}

void MainWindow::ShowStatus() const {
    const StatusBar& bar = *host_.statusBar.Get();
    const std::string text = Narrow(bar.Text().data(), bar.Text().size(), CP_ACP);
    SendMessageA(statusBar_, SB_SETTEXTA, messagePart, reinterpret_cast<LPARAM>(text.c_str()));
    ShowWindow(progress_, bar.HasBar() ? SW_SHOWNA : SW_HIDE);
    SendMessageA(progress_, PBM_SETPOS, static_cast<WPARAM>(bar.Position()), 0);
    // Scripts tell of their progress while they keep the thread.
    UpdateWindow(statusBar_);
    UpdateWindow(progress_);
}

void MainWindow::ShowState() {
    Bstr url;
    if (webBrowser_)
        webBrowser_->get_LocationURL(url.Receive());
    else
        url = Bstr(host_.browser->Address());
    const std::string address = Narrow(url.Get(), CP_ACP);
    char shown[1024] = "";
    GetWindowTextA(address_, shown, sizeof shown);
    if (address != shown)
        SetWindowTextA(address_, address.c_str());
    Bstr catalog;
    Bstr part;
    if (StdParts()) {
        StdParts()->get_CatalogID(catalog.Receive());
        StdParts()->get_ComponentID(part.Receive());
    }
    const std::string state = Narrow(catalog.Get(), CP_ACP) + "  " + Narrow(part.Get(), CP_ACP);
    SendMessageA(statusBar_, SB_SETTEXTA, statePart, reinterpret_cast<LPARAM>(state.c_str()));
    componentPane_.Redraw();
}

void MainWindow::PaintPage(HDC context, RECT client) const {
    if (webBrowser_)
        return;
    const std::string text = Text(IDS_NO_BROWSER);
    const HGDIOBJ old = SelectObject(context, font_.Get());
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
    RECT needed = client;
    DrawTextA(context, text.c_str(), -1, &needed, DT_CENTER | DT_WORDBREAK | DT_CALCRECT | DT_NOPREFIX);
    client.top += std::max<LONG>(0, (client.bottom - client.top - (needed.bottom - needed.top)) / 2);
    DrawTextA(context, text.c_str(), -1, &client, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(context, old);
}

void MainWindow::PaintComponent(HDC context, RECT client) const {
    Bstr catalog;
    Bstr part;
    if (StdParts()) {
        StdParts()->get_CatalogID(catalog.Receive());
        StdParts()->get_ComponentID(part.Receive());
    }
    const std::pair<UINT, std::string> lines[]{{IDS_CATALOG, Narrow(catalog.Get(), CP_ACP)},
                                               {IDS_PART, Narrow(part.Get(), CP_ACP)},
                                               {IDS_EDITED, editedText_}};
    const HGDIOBJ old = SelectObject(context, font_.Get());
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    RECT line{margin, margin, client.right - margin, margin + lineHeight_};
    const auto draw = [&](const std::string& text, int left, HFONT font) {
        RECT cell = line;
        cell.left = left;
        SelectObject(context, font);
        DrawTextA(context, text.c_str(), -1, &cell,
                  DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    };
    for (const auto& [label, value] : lines) {
        draw(Text(label) + ':', margin, font_.Get());
        draw(value.empty() ? Text(IDS_NONE) : value, margin + 96,
             value.empty() ? font_.Get() : boldFont_.Get());
        OffsetRect(&line, 0, lineHeight_);
    }
    line = {margin, client.bottom - margin - 32 - 4 - lineHeight_, client.right - margin,
            client.bottom - margin - 32 - 4};
    draw(Text(IDS_CONTROL) + ':', margin, font_.Get());
    SelectObject(context, old);
}

}  // namespace nux::host
