#include "apps/studio/window.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

#include "apps/common/text.h"
#include "apps/studio/dialogs.h"
#include "apps/studio/render.h"
#include "apps/studio/wave_file.h"

namespace {

constexpr char Title[] = "Quilmo Studio";
constexpr UINT_PTR Clock = 1;
constexpr UINT ClockMs = 33;
constexpr int DragSlack = 3;                           // pixels that a click may move
constexpr double WheelZoom = 1.25, WheelScroll = 0.1;  // of what is shown
constexpr int WheelRows = 60;                          // pixels
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
    host_.onMessage = ShowMessage;
    host_.onInput = AskInputs;
    host_.scriptRunner = [](const simhost::Script&) {
        ShowMessage("A exportacao roda um script Lua, que este programa nao sabe rodar no Windows.", Title,
                    MB_ICONINFORMATION);
    };
    host_.onAction[50124] = [this] { Choose(); };  // the media explorer
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
    host_.BeginBlock();
    host_.project.tracks.SelectAll(false);
    simhost::Track& track = AddTrack(host_.project, name);
    simhost::Item item = simhost::MakeItem(name, 0, source->Length(), source);
    item.selected = true;
    host_.project.tracks.Add(track, std::move(item));
    SelectTrack(&track, false);
    host_.EndBlock("Abrir " + file);
    RenderBeside(host_.project, path, *source);
    view_.ScrollDownTo(ArrangementHeight(host_.project, view_.Layout()));  // where the new track is
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
    const POINT at = {static_cast<short>(LOWORD(l)), static_cast<short>(HIWORD(l))};
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
        case WM_LBUTTONDOWN:
            Press(at, w & MK_CONTROL);
            return 0;
        case WM_MOUSEMOVE:
            Drag(at);
            return 0;
        case WM_LBUTTONUP:
            Release(at, w & MK_CONTROL);
            return 0;
        case WM_CAPTURECHANGED:
            pressed_ = dragging_ = false;
            return 0;
        case WM_MOUSEWHEEL:
            Wheel(GET_WHEEL_DELTA_WPARAM(w), at, GET_KEYSTATE_WPARAM(w));
            return 0;
        case WM_HSCROLL:
        case WM_VSCROLL:
            ScrollBar(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(w));
            return 0;
        case WM_INITMENUPOPUP:
            menus_.NameUndo();
            return 0;
        case WM_COMMAND:
            menus_.Run(LOWORD(w));
            Stale();
            return 0;
        case WM_DROPFILES:
            Drop(reinterpret_cast<HDROP>(w));
            return 0;
        case WM_DESTROY:
            window_ = nullptr;
            PostQuitMessage(0);
            return 0;
    }
    return DefWindowProcA(window_, message, w, l);
}

// --- mouse

void StudioWindow::Press(POINT at, bool adding) {
    SetFocus(window_);
    if (view_.InHeader(at.x)) {
        SelectTrack(view_.TrackAt(at.y), adding);
        return Stale();
    }
    pressed_ = true;
    pressedAt_ = at;
    SetCapture(window_);
}

void StudioWindow::SelectTrack(simhost::Track* track, bool adding) {
    if (!adding) host_.RunAction(40297);
    if (track) track->selected = !(adding && track->selected);
}

void StudioWindow::ChooseTake(simhost::Item& item, int take) {
    if (take == item.activeTake) return;
    host_.BeginBlock();
    item.activeTake = take;
    host_.EndBlock("Escolher tomada");
}

void StudioWindow::Drag(POINT at) {
    dragging_ = pressed_ && (dragging_ || std::abs(at.x - pressedAt_.x) > DragSlack);
    if (!dragging_) return;
    const auto [start, end] = std::minmax({view_.TimeAt(pressedAt_.x), view_.TimeAt(at.x)});
    host_.project.timeSelection = host_.project.loop = {start, end};
    Stale();
}

void StudioWindow::Release(POINT at, bool adding) {
    const bool clicked = pressed_ && !dragging_;
    ReleaseCapture();  // which ends the press
    if (!clicked) return;
    if (!view_.InRuler(at.y)) {
        simhost::Item* item = view_.ItemAt(at.x, at.y);
        const bool selected = item && !(adding && item->selected);
        if (!adding) {
            host_.project.tracks.SelectAll(false);
            SelectTrack(view_.TrackAt(at.y), false);
        }
        if (item) host_.project.tracks.Select(*item, selected);
        if (item && view_.Layout().takesInLanes) ChooseTake(*item, view_.TakeAt(*item, at.y));
    }
    if (!adding) {
        host_.project.cursor = view_.TimeAt(at.x);
        if (host_.playState & 1) host_.playPosition = host_.project.cursor;
    }
    Stale();
}

// Zooms around the mouse; scrolls in time with Shift, from track to track with Ctrl.
void StudioWindow::Wheel(int delta, POINT at, WORD keys) {
    ScreenToClient(window_, &at);
    const double notches = static_cast<double>(delta) / WHEEL_DELTA;
    if (keys & MK_CONTROL)
        view_.ScrollDownTo(view_.Layout().scrolled - static_cast<int>(notches * WheelRows));
    else if (keys & MK_SHIFT)
        view_.ScrollTo(host_.project.view.start - notches * WheelScroll * view_.Seconds());
    else
        view_.Zoom(std::pow(WheelZoom, notches), at.x);
    Stale();
}

void StudioWindow::ScrollBar(int bar, int code) {
    SCROLLINFO now{sizeof now, SIF_ALL, 0, 0, 0, 0, 0};
    GetScrollInfo(window_, bar, &now);
    const int page = static_cast<int>(now.nPage);
    int to = now.nPos;
    switch (code) {  // the codes of the upright bar are the same
        case SB_LINELEFT:
            to -= page / 10;
            break;
        case SB_LINERIGHT:
            to += page / 10;
            break;
        case SB_PAGELEFT:
            to -= page;
            break;
        case SB_PAGERIGHT:
            to += page;
            break;
        case SB_THUMBTRACK:
            to = now.nTrackPos;
            break;
    }
    if (bar == SB_HORZ)
        view_.ScrollTo(to / 1000.0);
    else
        view_.ScrollDownTo(to);
    Stale();
}

void StudioWindow::Drop(HDROP drop) {
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
        path.resize(DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size())));
        Open(Utf8(path));
    }
    DragFinish(drop);
}

// --- clock and picture

void StudioWindow::Tick() {
    const ULONGLONG now = GetTickCount64();
    Transport(static_cast<double>(now - lastTick_) / 1000);
    lastTick_ = now;
    if (host_.changes != shown_) Refresh();
}

void StudioWindow::Transport(double seconds) {
    if (!(host_.playState & 1)) {
        if (heardAt_ >= 0) player_.Stop();
        heardAt_ = -1;
        return;
    }
    if (host_.playPosition != heardAt_) player_.Start(host_.playPosition);  // begun, or somebody moved it
    host_.Elapse(heardAt_ < 0 ? 0 : seconds);
    heardAt_ = host_.playPosition;
    player_.Feed(host_.project);
    if (view_.Follow(heardAt_)) Stale();
    if (!(host_.playState & 4) && heardAt_ > ProjectEnd(host_.project)) host_.RunAction(1016);
    InvalidateRect(window_, nullptr, FALSE);
}

void StudioWindow::Refresh() {
    if (!window_) return;
    shown_ = host_.changes;
    view_.ScrollTo(host_.project.view.start);  // which holds the view to what can be painted
    const simhost::TimeRange view = host_.project.view;
    const simhost::ArrangementLayout layout = view_.Layout();
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
    const int column = view_.ColumnOf(host_.playPosition);
    const auto fill = [dc](RECT place, COLORREF colour) {
        SetDCBrushColor(dc, colour);
        FillRect(dc, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    };
    const RECT lanes{0, view_.Layout().rulerHeight, picture_.getWidth(), picture_.getHeight()};
    if (host_.playState & 4)
        for (int i = 0; const simhost::Track* track = host_.project.tracks.At(i); ++i) {
            RECT place = view_.PlaceOf(*track, host_.recordStart, host_.playPosition);
            if (track->armed && IntersectRect(&place, &place, &lanes)) fill(place, RecordColour);
        }
    if (host_.playState && !view_.InHeader(column)) fill({column, 0, column + 1, picture_.getHeight()}, PlayColour);
    if (host_.project.tracks.Count() == 0) {
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, HintColour);
        RECT place{0, 0, picture_.getWidth(), picture_.getHeight()};
        DrawTextA(dc, Hint, -1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    }
    EndPaint(window_, &paint);
}
