// A program that files are opened with: it writes its command line into the file that the environment names
// as NUX_STARTED, which is there only once it is whole.

#include <windows.h>

#include <cstdio>
#include <string>

int main() {
    char path[MAX_PATH];
    if (!GetEnvironmentVariableA("NUX_STARTED", path, sizeof path))
        return 1;
    const std::string unfinished = std::string(path) + ".part";
    std::FILE* file = std::fopen(unfinished.c_str(), "wb");
    if (!file)
        return 1;
    std::fputs(GetCommandLineA(), file);
    std::fclose(file);
    return MoveFileExA(unfinished.c_str(), path, MOVEFILE_REPLACE_EXISTING) ? 0 : 1;
}
