#include "apps/studio/window.h"

#include <algorithm>
#include <stdexcept>

#include "apps/common/text.h"
#include "apps/studio/dialogs.h"
#include "apps/studio/render.h"
#include "apps/studio/wave_file.h"

#include "host/actions.h"
namespace {

constexpr char Title[] = "Quilmo Studio";
constexpr UINT_PTR Clock = 1;
constexpr UINT ClockMs = 33;
constexpr COLORREF PlayColour = RGB(120, 230, 120), RecordColour = RGB(150, 50, 50), HintColour = RGB(154, 163, 173);
constexpr char Hint[] = "Ctrl+O abre uma gravacao WAV; ou arraste o arquivo para ca.";

}  // namespace

StudioWindow::StudioWindow(const std::string& resourceFolder) {
    WNDCLASSA shape{};
    shape.lpfnWndProc = Procedure;
    shape.hInstance = GetModuleHandleA(nullptr);
    shape.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    shape.lpszClassName = "QuilmoStudio";
    RegisterClassA(&shape);
    window_ =
        CreateWindowExA(WS_EX_ACCEPTFILES, shape.lpszClassName, Title, WS_OVERLAPPEDWINDOW | WS_HSCROLL | WS_VSCROLL,
                        40, 40, 1100, 520, nullptr, nullptr, shape.hInstance, this);
    if (!window_) throw std::runtime_error("o sistema nao deu uma janela");
    host_.mainWindow = window_;
    host_.resourcePath = resourceFolder;
    host_.dialogs.onMessage = ShowMessage;
    host_.dialogs.onInput = AskInputs;
    host_.scripts.runner = [](const simhost::Script&) {
        ShowMessage("A exportacao roda um script Lua, que este programa nao sabe rodar no Windows.", Title,
                    MB_ICONINFORMATION);
    };
    host_.actions.outside[acao::AlternarMediaExplorer] = [this] { Choose(); };  // the media explorer
    AnswerRenderActions(host_);
    menus_.Build();
    ShowWindow(window_, SW_SHOW);
    lastTick_ = GetTickCount64();
    SetTimer(window_, Clock, ClockMs, nullptr);
}

StudioWindow::~StudioWindow() {
    if (window_) DestroyWindow(window_);
}

bool StudioWindow::LoadPlugin(std::string* error) {
    const bool loaded = plugin_.emplace().Load(host_, error);
    menus_.Build();
    return loaded;
}

void StudioWindow::Open(const std::string& path) {
    std::string error;
    const simhost::SourceRef source = OpenWaveFile(path, &error);
    if (!source) {
        ShowMessage(error, Title, MB_ICONWARNING);
        return;
    }
    const std::string file = path.substr(path.find_last_of("\\/") + 1), name = file.substr(0, file.find_last_of('.'));
    host_.undo.Begin();
    host_.project.tracks.SelectAll(false);
    simhost::Track& track = AddTrack(host_.project, name);
    simhost::Item item = simhost::MakeItem(name, 0, source->Length(), source);
    item.selected = true;
    host_.project.tracks.Add(track, std::move(item));
    SelectTrack(&track, false);
    host_.undo.End("Abrir " + file);
    RenderBeside(host_.project, path, *source);
    view_.ScrollDownTo(ArrangementHeight(host_.project, view_.Layout()));  // the new track's place
    ShowAll();
}

void StudioWindow::Choose() {
    if (const auto path = AskForRecording()) Open(*path);
}

void StudioWindow::ShowAll() {
    view_.ShowAll();
    Stale();
}

LRESULT CALLBACK StudioWindow::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<CREATESTRUCTA*>(l);
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
        static_cast<StudioWindow*>(creation->lpCreateParams)->window_ = window;
    }
    auto* studio = reinterpret_cast<StudioWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    return studio ? studio->Handle(message, w, l) : DefWindowProcA(window, message, w, l);
}

LRESULT StudioWindow::Handle(UINT message, WPARAM w, LPARAM l) {
    if (HandleMouse(message, w, {static_cast<short>(LOWORD(l)), static_cast<short>(HIWORD(l))})) return 0;
    switch (message) {
        case WM_SIZE:
            view_.Resize(LOWORD(l), HIWORD(l));
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
            menus_.NameUndo();
            return 0;
        case WM_COMMAND:
            menus_.Run(LOWORD(w));
            Stale();
            return 0;
        case WM_DESTROY:
            window_ = nullptr;
            PostQuitMessage(0);
            return 0;
    }
    return DefWindowProcA(window_, message, w, l);
}

void StudioWindow::Tick() {
    const ULONGLONG now = GetTickCount64();
    Transport(static_cast<double>(now - lastTick_) / 1000);
    lastTick_ = now;
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
    picture_.resize(client.right, client.bottom);
    PaintArrangement(host_.project, &picture_, view, layout);
    InvalidateRect(window_, nullptr, FALSE);
}

void StudioWindow::SetBar(int bar, int total, int page, int position) {
    const SCROLLINFO info{
        sizeof info, SIF_ALL | SIF_DISABLENOSCROLL, 0, total - 1, static_cast<UINT>(page), position, 0};
    SetScrollInfo(window_, bar, &info, TRUE);
}

void StudioWindow::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    BitBlt(dc, 0, 0, picture_.getWidth(), picture_.getHeight(), picture_.getDC(), 0, 0, SRCCOPY);
    const int column = view_.ColumnOf(host_.transport.position);
    const auto fill = [dc](RECT place, COLORREF colour) {
        SetDCBrushColor(dc, colour);
        FillRect(dc, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    };
    const RECT lanes{0, view_.Layout().rulerHeight, picture_.getWidth(), picture_.getHeight()};
    if (host_.transport.state & 4)
        for (int i = 0; const simhost::Track* track = host_.project.tracks.At(i); ++i) {
            RECT place = view_.PlaceOf(*track, host_.transport.recordStart, host_.transport.position);
            if (track->armed && IntersectRect(&place, &place, &lanes)) fill(place, RecordColour);
        }
    if (host_.transport.state && !view_.InHeader(column))
        fill({column, 0, column + 1, picture_.getHeight()}, PlayColour);
    if (host_.project.tracks.Count() == 0) {
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, HintColour);
        RECT place{0, 0, picture_.getWidth(), picture_.getHeight()};
        DrawTextA(dc, Hint, -1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    }
    EndPaint(window_, &paint);
}
