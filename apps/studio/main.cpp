// studio: the stand-in host with a window, for trying the module's panel by hand.
//     studio [recording.wav ...]
#include <filesystem>

#include "apps/common/text.h"
#include "apps/studio/dialogs.h"
#include "apps/studio/window.h"
// Needs windows.h first.
#include <shellapi.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, char*, int) {
    SetProcessDPIAware();  // else the system enlarges what is painted, and blurs it
    try {
        const std::filesystem::path resources = ProgramFolder() + L"\\studio-recursos";
        std::filesystem::create_directories(resources);
        StudioWindow window(Utf8(resources.wstring()));
        try {
            window.LoadPlugin();
        } catch (const std::exception& why) {  // the studio is of use without it, too
            ShowMessage(why.what(), "Quilmo Studio", MB_ICONERROR);
        }

        int count = 0;
        wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
        for (int i = 1; i < count; ++i) window.Open(Utf8(arguments[i]));
        LocalFree(arguments);

        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (window.TakeKey(message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    } catch (const std::exception& why) {
        ShowMessage(why.what(), "Quilmo Studio", MB_ICONERROR);
        return 1;
    }
    return 0;
}
