#include "tests/support/Await.h"

#include <windows.h>

namespace nux {

bool Await(const std::function<bool()>& isSo) {
    const ULONGLONG deadline = GetTickCount64() + 20000;
    while (!isSo()) {
        // Looking may itself bring messages, so the queue need never be empty.
        if (GetTickCount64() > deadline)
            return false;
        MSG message;
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        } else {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        }
    }
    return true;
}

}  // namespace nux
