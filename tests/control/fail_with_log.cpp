// A program whose component fails while a log file is set, which ends its process:  fail_with_log FILE

#include <windows.h>

#include <cstdio>

#include "framework/ComPtr.h"
#include "framework/Text.h"
#include "nuxStdPartsAX.h"

int main(int count, char** arguments) {
    if (count != 2 || FAILED(OleInitialize(nullptr)))
        return 2;
    CLSID classId{};
    CLSIDFromProgID(L"Tarnvale.nuxStdParts", &classId);
    nux::ComPtr<InuxStdParts> parts;
    if (FAILED(nux::CreateObject(classId, parts)))
        return 3;
    parts->put_DebugSessionStatusAndLogFile(nux::Bstr(arguments[1], CP_ACP).Get());
    parts->GetComponent(nullptr, nullptr);
    std::puts("still here");
    return 0;
}
