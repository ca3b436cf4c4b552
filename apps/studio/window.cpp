#include "apps/studio/window.h"

#include <algorithm>
#include <stdexcept>

#include "apps/common/text.h"
#include "apps/studio/dialogs.h"
#include "apps/studio/render.h"
#include "host/actions.h"

namespace {

constexpr wchar_t ProgramTitle[] = L"Quilmo Studio";
constexpr UINT_PTR Clock = 1;
constexpr UINT ClockMs = 33;

HFONT StatusFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfStatusFont);
}

}  // namespace

StudioWindow::StudioWindow(const std::string& resourceFolder) {
    WNDCLASSW shape{};
    shape.lpfnWndProc = Procedure;
    shape.hInstance = GetModuleHandleA(nullptr);
    shape.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    shape.lpszClassName = L"QuilmoStudio";
    RegisterClassW(&shape);
    RECT area{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    const int edge = View::Scaled(40), width = std::min<int>(View::Scaled(1100), area.right - area.left - 2 * edge),
              height = std::min<int>(View::Scaled(520), area.bottom - area.top - 2 * edge);
    window_ = CreateWindowExW(WS_EX_ACCEPTFILES, shape.lpszClassName, ProgramTitle,
                              WS_OVERLAPPEDWINDOW | WS_HSCROLL | WS_VSCROLL, area.left + edge, area.top + edge, width,
                              height, nullptr, nullptr, shape.hInstance, this);
    if (!window_) throw std::runtime_error("o sistema não deu uma janela");
    statusFont_ = StatusFont();
    host_.mainWindow = window_;
    host_.resourcePath = resourceFolder;
    host_.dialogs.onMessage = ShowMessage;
    host_.dialogs.onInput = AskInputs;
    host_.scripts.runner = [](const simhost::Script&) {
        ShowMessage("A exportação roda um script Lua, que este programa não sabe rodar no Windows.", Utf8(ProgramTitle),
                    MB_ICONINFORMATION);
    };
    host_.actions.outside[acao::AlternarMediaExplorer] = [this] { ShowRecordings(); };
    host_.calls.onRead = [this](int64_t) { Working(); };
    AnswerRenderActions(host_, [this] { Working(); });
    CallItSaved();
    BuildMenus();
    ShowWindow(window_, SW_SHOW);
    lastTick_ = GetTickCount64();
    SetTimer(window_, Clock, ClockMs, nullptr);
}

StudioWindow::~StudioWindow() {
    if (window_) DestroyWindow(window_);
    DeleteObject(statusFont_);
    DestroyAcceleratorTable(keys_);
}

void StudioWindow::LoadPlugin() {
    plugin_.emplace().Load(host_);
    BuildMenus();
}

LRESULT CALLBACK StudioWindow::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<CREATESTRUCTW*>(l);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
        static_cast<StudioWindow*>(creation->lpCreateParams)->window_ = window;
    }
    auto* studio = reinterpret_cast<StudioWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return studio ? studio->Handle(message, w, l) : DefWindowProcW(window, message, w, l);
}

LRESULT StudioWindow::Handle(UINT message, WPARAM w, LPARAM l) {
    if (HandleMouse(message, w, {static_cast<short>(LOWORD(l)), static_cast<short>(HIWORD(l))})) return 0;
    switch (message) {
        case WM_SIZE:
            view_.Resize(LOWORD(l), std::max(HIWORD(l) - View::Scaled(StatusHeight), 1));
            Stale();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint();
            return 0;
        case WM_TIMER:
            Tick();
            return 0;
        case WM_INITMENUPOPUP:
            NameUndo();
            return 0;
        case WM_COMMAND:
            RunEntry(LOWORD(w));
            Stale();
            return 0;
        case WM_CLOSE:
            if (Changed() && host_.dialogs.onMessage("Sair sem guardar?", Utf8(ProgramTitle), MB_YESNO) != IDYES)
                return 0;
            break;
        case WM_DESTROY:
            window_ = nullptr;
            PostQuitMessage(0);
            return 0;
    }
    return DefWindowProcW(window_, message, w, l);
}

void StudioWindow::Tick() {
    const ULONGLONG now = GetTickCount64();
    Transport(static_cast<double>(now - lastTick_) / 1000);
    lastTick_ = now;
    if (working_) Rest();
    if (host_.screen.changes != shown_) Refresh();
}

void StudioWindow::Transport(double seconds) {
    if (!(host_.transport.state & 1)) {
        if (heardAt_ >= 0) player_.Stop();
        heardAt_ = -1;
        return;
    }
    if (host_.transport.position != heardAt_)
        player_.Start(host_.transport.position);  // it began, or somebody moved it
    host_.transport.Elapse(heardAt_ < 0 ? 0 : seconds);
    heardAt_ = host_.transport.position;
    player_.Feed(host_.project);
    if (view_.Follow(heardAt_)) Stale();
    if (!(host_.transport.state & 4) && heardAt_ > ProjectEnd(host_.project)) host_.RunAction(acao::Parar);
    InvalidateRect(window_, nullptr, FALSE);
}

void StudioWindow::Refresh() {
    if (!window_) return;
    shown_ = host_.screen.changes;
    view_.ScrollTo(host_.project.view.start);  // holds the view to what can be painted
    const simhost::TimeRange view = host_.project.view;
    const ArrangementLayout layout = view_.Layout();
    const auto milliseconds = [](double time) { return static_cast<int>(std::min(time, 1e6) * 1000); };
    SetBar(SB_HORZ, milliseconds(std::max(ProjectEnd(host_.project) * 1.1, view.end)),
           milliseconds(view.end - view.start), milliseconds(view.start));
    SetBar(SB_VERT, ArrangementHeight(host_.project, layout), view_.Height(), layout.scrolled);
    RECT client;
    GetClientRect(window_, &client);
    picture_.resize(client.right, view_.Height());
    PaintArrangement(host_.project, &picture_, view, layout);
    InvalidateRect(window_, nullptr, FALSE);
}

void StudioWindow::SetBar(int bar, int total, int page, int position) {
    const SCROLLINFO info{
        sizeof info, SIF_ALL | SIF_DISABLENOSCROLL, 0, total - 1, static_cast<UINT>(page), position, 0};
    SetScrollInfo(window_, bar, &info, TRUE);
}
