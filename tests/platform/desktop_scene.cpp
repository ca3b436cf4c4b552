#include "tests/platform/desktop_scene.h"

DesktopTest* DesktopTest::current_ = nullptr;

void DesktopTest::SetUp() {
    current_ = this;
    driver::Start();
}

void DesktopTest::TearDown() {
    hooks_.clear();
    const auto windows = names_;
    for (const auto& [window, name] : windows) DestroyWindow(window);
    current_ = nullptr;
}

HWND DesktopTest::Make(const std::string& name, int x, HWND owner, UINT classStyle) {
    const std::string className = "Scene" + std::to_string(classStyle);
    WNDCLASSA windowClass{};
    windowClass.style = classStyle;
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(uintptr_t{COLOR_WINDOW + 1});
    windowClass.lpszClassName = className.c_str();
    RegisterClassA(&windowClass);  // the second time it is there
    naming_ = name;
    return CreateWindowExA(0, className.c_str(), name.c_str(), WS_OVERLAPPEDWINDOW, x, 100, 300, 200, owner, nullptr,
                           windowClass.hInstance, nullptr);
}

HWND DesktopTest::Show(const std::string& name, int x, HWND owner, UINT classStyle) {
    const HWND window = Make(name, x, owner, classStyle);
    ShowWindow(window, SW_SHOW);
    driver::Pump();
    Heard();
    return window;
}

std::string DesktopTest::Heard() {
    return std::exchange(heard_, "");
}

void DesktopTest::Write(HWND window, const std::string& what) {
    if (!heard_.empty()) heard_ += ", ";
    heard_ += names_[window] + ": " + what;
}

static std::string Place(LPARAM lParam) {
    const int x = static_cast<int16_t>(LOWORD(lParam)), y = static_cast<int16_t>(HIWORD(lParam));
    return " (" + std::to_string(x) + ", " + std::to_string(y) + ")";
}

LRESULT CALLBACK DesktopTest::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DesktopTest& test = *current_;
    if (test.names_.emplace(window, test.naming_).second) test.naming_.clear();
    if (const auto hook = test.hooks_.find(message); hook != test.hooks_.end()) {
        const auto run = std::move(hook->second);
        test.hooks_.erase(hook);
        run(window);
    }
    static const char* const activations[] = {"-active", "+active", "+active by click"};
    switch (message) {
        case WM_GETMINMAXINFO: {
            auto& info = *reinterpret_cast<MINMAXINFO*>(lParam);
            if (test.fixedSize_.cx)
                info.ptMinTrackSize = info.ptMaxTrackSize = {test.fixedSize_.cx, test.fixedSize_.cy};
            return 0;
        }
        case WM_ACTIVATE:
            test.Write(window, activations[LOWORD(wParam)]);
            break;
        case WM_DESTROY:
            test.Write(window, "destroyed");
            break;
        case WM_NCDESTROY:
            test.names_.erase(window);
            break;
        case WM_LBUTTONDOWN:
            test.Write(window, "left down" + Place(lParam));
            return 0;
        case WM_LBUTTONUP:
            test.Write(window, "left up" + Place(lParam));
            return 0;
        case WM_LBUTTONDBLCLK:
            test.Write(window, "left double");
            return 0;
        case WM_RBUTTONDOWN:
            test.Write(window, "right down" + Place(lParam));
            return 0;
        case WM_RBUTTONUP:
            test.Write(window, "right up" + Place(lParam));
            return 0;
        case WM_MOUSEWHEEL:
            test.Write(window, static_cast<int16_t>(HIWORD(wParam)) > 0 ? "wheel up" : "wheel down");
            return 0;
        case WM_CAPTURECHANGED:
            test.Write(window, "capture lost");
            return 0;
        case WM_TIMER:
            test.Write(window, "timer " + std::to_string(wParam));
            return 0;
        case WM_USER:
            test.Write(window, "message " + std::to_string(wParam));
            return 0;
        case WM_PAINT: {
            PAINTSTRUCT paint;
            const HDC dc = BeginPaint(window, &paint);
            const RECT& area = paint.rcPaint;
            test.Write(window, "paint " + std::to_string(area.right - area.left) + " by " +
                                   std::to_string(area.bottom - area.top));
            BITMAPINFO info{};
            info.bmiHeader.biSize = sizeof info.bmiHeader;
            info.bmiHeader.biWidth = info.bmiHeader.biHeight = 400;
            info.bmiHeader.biPlanes = 1;
            info.bmiHeader.biBitCount = 32;
            void* bits = nullptr;
            const HDC memory = CreateCompatibleDC(nullptr);
            const HBITMAP section = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
            const HGDIOBJ previous = SelectObject(memory, section);
            for (int i = 0; i < 400 * 400; ++i) static_cast<uint32_t*>(bits)[i] = test.colour_;
            BitBlt(dc, 0, 0, 400, 400, memory, 0, 0, SRCCOPY);
            SelectObject(memory, previous);
            DeleteObject(section);
            DeleteDC(memory);
            EndPaint(window, &paint);
            return 0;
        }
    }
    return DefWindowProcA(window, message, wParam, lParam);
}
