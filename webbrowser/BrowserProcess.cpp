#include "webbrowser/BrowserProcess.h"

#include <array>
#include <string_view>
#include <vector>

#include "framework/ErrorInfo.h"
#include "framework/HResult.h"
#include "framework/Module.h"
#include "webbrowser/MessageReader.h"
#include "webbrowser/RandomName.h"
#include "webbrowser/ResourceText.h"
#include "webbrowser/Utf.h"
#include "webbrowser/resource.h"

namespace nux::webbrowser {
namespace {

constexpr DWORD startMilliseconds = 10000;
constexpr DWORD endMilliseconds = 2000;

// The first command, and what its answer has. Its number is nobody else's.
constexpr char greeting[] = R"({"id":0,"method":"Browser.getVersion"})";
constexpr char answerToGreeting[] = "\"protocolVersion\"";

// One a line. The network is closed: names are not found, and what needs none meets a proxy that isn't there.
constexpr char options[] =
    "--headless\n"
    "--no-sandbox\n"
    "--disable-gpu\n"
    "--disable-quic\n"
    "--no-first-run\n"
    "--disable-background-networking\n"
    // A page that is gone back to is loaded, and says so.
    "--disable-features=BackForwardCache\n"
    "--disable-component-update\n"
    "--disable-default-apps\n"
    "--disable-extensions\n"
    "--disable-sync\n"
    "--disable-breakpad\n"
    "--hide-scrollbars=false\n"
    "--no-startup-window\n"
    "--block-new-web-contents\n"
    "--allow-file-access-from-files\n"
    "--force-device-scale-factor=1\n"
    "--host-resolver-rules=MAP * ~NOTFOUND\n"
    "--proxy-server=127.0.0.1:9\n"
    "--proxy-bypass-list=<-loopback>\n"
    "--force-webrtc-ip-handling-policy=disable_non_proxied_udp\n"
    "--remote-debugging-pipe";

[[noreturn]] void Fail(const std::wstring& words) {
    throw HResultError(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND), words);
}

/// The browser that the user wants, as a path of the system below, or empty.
std::string ChosenBrowser() {
    std::array<char, 1024> path{};
    DWORD size = path.size() - 1;
    if (RegGetValueA(HKEY_CURRENT_USER, "Software\\Tarnvale\\nuxWebBrowser", "Browser", RRF_RT_REG_SZ,
                     nullptr, path.data(), &size) != ERROR_SUCCESS)
        return {};
    return path.data();
}

/// An argument as programs take their command line apart.
std::string Quoted(std::string_view argument) {
    std::string quoted = "\"";
    std::size_t backslashes = 0;
    for (const char letter : argument) {
        backslashes = letter == '\\' ? backslashes + 1
                                     : (letter == '"' ? quoted.append(backslashes + 1, '\\') : quoted, 0);
        quoted += letter;
    }
    return quoted.append(backslashes, '\\') + '"';
}

/// Runs a script of the system's shell beside this process.
/// @param arguments  quoted
void StartShell(std::string_view script, const std::string& arguments) {
    std::string command = "sh -c " + Quoted(script) + " nuxWebBrowser " + arguments;
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA("Z:\\bin\\sh", command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process))
        Fail(L"The system has no shell that could start a browser: " + SystemMessage(GetLastError()));
    // Nothing of `process` is closed: of a program that isn't Windows' Wine 8.0 and 10 give no handles, but
    // what lay on the stack, which may be the number of a handle of this program's (BrowserProcessTest).
}

/// One end of a pipe, as soon as the shell has made it.
UniqueFile OpenPipe(const std::string& folder, const char* name, DWORD access, ULONGLONG deadline) {
    std::string path = "Z:" + folder + "\\" + name;
    for (char& letter : path)
        letter = letter == '/' ? '\\' : letter;
    for (;;) {
        UniqueFile pipe(CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
        if (pipe)
            return pipe;
        if (GetTickCount64() > deadline)
            Fail(L"The browser's pipes can't be opened: " + SystemMessage(GetLastError()));
        Sleep(2);
    }
}

}  // namespace

BrowserProcess::BrowserProcess(std::function<void(std::string)> onMessage, std::function<void()> onEnd)
    : onMessage_(std::move(onMessage)), onEnd_(std::move(onEnd)) {
    const ULONGLONG deadline = GetTickCount64() + startMilliseconds;
    // Each user of the machine can write there.
    folder_ = "/tmp/nuxWebBrowser-" + RandomName();
    const std::string chosen = ChosenBrowser();
    started_ = UniqueKernelHandle(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    StartShell(ResourceText(IDR_START_BROWSER),
               Quoted(folder_) + " " + Quoted(chosen) + " " + Quoted(options));
    in_ = OpenPipe(folder_, "in", GENERIC_WRITE, deadline);
    out_ = OpenPipe(folder_, "out", GENERIC_READ, deadline);
    thread_ = UniqueKernelHandle(CreateThread(nullptr, 0, &BrowserProcess::ReaderThread, this, 0, nullptr));
    if (!thread_)
        throw HResultError(LastFailure());
    Write(greeting);
    WaitForSingleObject(started_.Get(), startMilliseconds);
    if (answers_)
        return;
    const bool wasThere = isThere_;
    End();
    if (wasThere)
        Fail(chosen.empty() ? L"The browser doesn't start" : L"This is no browser: " + WideFromUtf8(chosen));
    Fail(chosen.empty() ? L"There is no Chromium on this machine: install the package chromium-headless-shell"
                        : L"The browser that the registry names isn't there: " + WideFromUtf8(chosen));
}

BrowserProcess::~BrowserProcess() {
    End();
}

void BrowserProcess::End() noexcept {
    // It ends when nobody writes to it any more, and with it the reader.
    in_.Reset();
    if (WaitForSingleObject(thread_.Get(), endMilliseconds) == WAIT_OBJECT_0)
        return;
    try {
        StartShell("kill -s KILL -- -$(cat $1/group)", Quoted(folder_));
        WaitForSingleObject(thread_.Get(), INFINITE);
    } catch (...) {
        // Neither memory nor a shell: to go on would take from the thread what it uses.
        std::terminate();
    }
}

bool BrowserProcess::Write(const std::string& message) noexcept {
    const char* at = message.c_str();
    std::size_t left = message.size() + 1;  // with its end
    while (left > 0) {
        DWORD written = 0;
        if (!WriteFile(in_.Get(), at, static_cast<DWORD>(left), &written, nullptr))
            return false;
        at += written;
        left -= written;
    }
    return true;
}

DWORD WINAPI BrowserProcess::ReaderThread(void* self) noexcept {
    static_cast<BrowserProcess*>(self)->Read();
    return 0;
}

void BrowserProcess::Read() noexcept {
    try {
        ReadMessages();
    } catch (...) {
        OutputDebugStringA("nuxWebBrowser: no memory for what the browser says\n");
    }
    try {
        onEnd_();
    } catch (...) {
        OutputDebugStringA("nuxWebBrowser: no memory to tell that the browser has ended\n");
    }
    SetEvent(started_.Get());
}

void BrowserProcess::ReadMessages() {
    MessageReader reader;
    std::vector<char> buffer(std::size_t{1} << 16);
    const ULONGLONG deadline = GetTickCount64() + startMilliseconds;
    for (;;) {
        DWORD count = 0;
        if (!ReadFile(out_.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr))
            return;
        if (count == 0) {
            // The end, or the shell hasn't opened the pipe yet.
            if (isThere_ || GetTickCount64() > deadline)
                return;
            Sleep(1);
            continue;
        }
        if (!reader.Append({buffer.data(), count}))
            return;
        while (std::optional<std::string> message = reader.Next()) {
            if (answers_) {
                onMessage_(*std::move(message));
            } else if (!isThere_ && message->empty()) {
                isThere_ = true;
            } else if (isThere_ && message->find(answerToGreeting) != std::string::npos) {
                answers_ = true;
                SetEvent(started_.Get());
            } else {
                return;
            }
        }
    }
}

}  // namespace nux::webbrowser
