#include "apps/studio/window.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

#include "apps/studio/dialogs.h"
#include "apps/studio/render.h"
#include "apps/studio/text.h"
#include "apps/studio/wave_file.h"
#include "simhost/actions.h"
#include "simhost/picture.h"

namespace {

constexpr char Title[] = "Quilmo Studio";
constexpr UINT_PTR Clock = 1;
constexpr UINT ClockMs = 33;
constexpr int DragSlack = 3;  // pixels that a click may move
constexpr double WheelZoom = 1.25, WheelScroll = 0.1;
constexpr int FirstCommand = 100, FirstRegistered = 1000;  // menu numbers: the studio's commands, the extension's
constexpr int SnapOff = 40753;  // the extension's opening asks for it each time; nothing snaps here, so nothing is told
constexpr COLORREF PlayColour = RGB(120, 230, 120);

}  // namespace

// Entries of the menus, with their keys.
struct Commands {
    struct Command {
        const char* menu;
        const char* text;  // with the key's name behind a tab
        WORD key;          // a virtual key
        BYTE keyFlags;
        int action;  // the host's; 0: `run` instead
        void (*run)(StudioWindow&);
    };
    static void Choose(StudioWindow& w) {
        if (const auto path = AskForRecording()) w.Open(*path);
    }
    static void Close(StudioWindow& w) { PostMessageA(w.window_, WM_CLOSE, 0, 0); }
    static void Undo(StudioWindow& w) { w.host_.Undo(); }
    static void Redo(StudioWindow& w) { w.host_.Redo(); }
    static void SelectAll(StudioWindow& w) { w.host_.project.tracks.SelectAll(true); }
    static void ShowAll(StudioWindow& w) { w.view_.ShowAll(); }

    static constexpr Command All[] = {
        {"Arquivo", "Abrir...\tCtrl+O", 'O', FCONTROL, 0, Choose},
        {"Arquivo", "Sair\tAlt+F4", 0, 0, 0, Close},
        {"Editar", "Desfazer", 'Z', FCONTROL, 0, Undo},
        {"Editar", "Refazer", 'Y', FCONTROL, 0, Redo},
        {"Editar", "Selecionar todos os itens\tCtrl+A", 'A', FCONTROL, 0, SelectAll},
        {"Editar", "Remover itens\tDel", VK_DELETE, 0, 40697, nullptr},
        {"Editar", "Remover selecao de tempo\tEsc", VK_ESCAPE, 0, 40020, nullptr},
        {"Transporte", "Tocar/parar\tEspaco", VK_SPACE, 0, 40044, nullptr},
        {"Transporte", "Tocar/pausar\tEnter", VK_RETURN, 0, 40073, nullptr},
        {"Transporte", "Ir para o inicio\tHome", VK_HOME, 0, 40042, nullptr},
        {"Transporte", "Ir para o fim\tEnd", VK_END, 0, 40043, nullptr},
        {"Exibir", "Aproximar\t+", VK_ADD, 0, 1012, nullptr},
        {"Exibir", "Afastar\t-", VK_SUBTRACT, 0, 1011, nullptr},
        {"Exibir", "Trilhas mais altas\tCtrl++", VK_ADD, FCONTROL, 40111, nullptr},
        {"Exibir", "Trilhas mais baixas\tCtrl+-", VK_SUBTRACT, FCONTROL, 40112, nullptr},
        {"Exibir", "Projeto inteiro\tCtrl+0", '0', FCONTROL, 0, ShowAll},
    };
    static int NumberOf(void (*run)(StudioWindow&)) {
        const auto found =
            std::find_if(std::begin(All), std::end(All), [run](const Command& c) { return c.run == run; });
        return FirstCommand + static_cast<int>(found - std::begin(All));
    }
};

StudioWindow::StudioWindow(const std::string& resourceFolder) {
    WNDCLASSA shape{};
    shape.lpfnWndProc = Procedure;
    shape.hInstance = GetModuleHandleA(nullptr);
    shape.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    shape.lpszClassName = "QuilmoStudio";
    RegisterClassA(&shape);
    window_ = CreateWindowExA(WS_EX_ACCEPTFILES, shape.lpszClassName, Title, WS_OVERLAPPEDWINDOW | WS_HSCROLL, 40, 40,
                              1100, 520, nullptr, nullptr, shape.hInstance, this);
    if (!window_) throw std::runtime_error("o sistema nao deu uma janela");
    host_.mainWindow = window_;
    host_.resourcePath = resourceFolder;
    host_.onMessage = ShowMessage;
    host_.onInput = AskInputs;
    host_.scriptRunner = [](const simhost::Script&) {
        ShowMessage("A exportacao roda um script Lua, que este programa nao sabe rodar no Windows.", Title,
                    MB_ICONINFORMATION);
    };
    host_.onAction[50124] = [this] { Commands::Choose(*this); };  // the media explorer
    AnswerRenderActions(host_);
    BuildMenus();
    ShowWindow(window_, SW_SHOW);
    lastTick_ = GetTickCount64();
    SetTimer(window_, Clock, ClockMs, nullptr);
}

StudioWindow::~StudioWindow() {
    if (window_) DestroyWindow(window_);
    DestroyAcceleratorTable(keys_);
}

bool StudioWindow::LoadPlugin(std::string* error) {
    const bool loaded = plugin_.emplace().Load(host_, error);
    BuildMenus();
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
    host_.EndBlock("Abrir " + file);
    RenderBeside(host_.project, path, *source);
    view_.ShowAll();
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
            shown_.clear();
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
            Wheel(GET_WHEEL_DELTA_WPARAM(w), at, GET_KEYSTATE_WPARAM(w) & MK_SHIFT);
            return 0;
        case WM_HSCROLL:
            ScrollBar(LOWORD(w));
            return 0;
        case WM_INITMENUPOPUP:
            NameUndo();
            return 0;
        case WM_COMMAND:
            Run(LOWORD(w));
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

// --- commands

void StudioWindow::BuildMenus() {
    const HMENU bar = CreateMenu();
    std::vector<ACCEL> keys;
    HMENU menu = nullptr;
    const char* name = "";
    for (size_t i = 0; i < std::size(Commands::All); ++i) {
        const Commands::Command& command = Commands::All[i];
        const auto number = static_cast<WORD>(FirstCommand + i);
        if (std::string(name) != command.menu) {
            menu = CreatePopupMenu();
            AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), name = command.menu);
        }
        AppendMenuA(menu, MF_STRING, number, command.text);
        if (command.key) keys.push_back({static_cast<BYTE>(command.keyFlags | FVIRTKEY), command.key, number});
    }
    menu = CreatePopupMenu();
    for (const simhost::Registration& r : host_.registrations) {
        if (r.name != "gaccel") continue;
        const auto& accelerator = *static_cast<gaccel_register_t*>(r.info);
        const auto number = static_cast<WORD>(FirstRegistered + (&r - host_.registrations.data()));
        AppendMenuA(menu, MF_STRING, number,
                    (std::string(accelerator.desc) + '\t' + static_cast<char>(accelerator.accel.key)).c_str());
        keys.push_back({accelerator.accel.fVirt, accelerator.accel.key, number});
    }
    AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), "Extensao");

    const HMENU before = GetMenu(window_);
    SetMenu(window_, bar);
    DestroyMenu(before);
    DestroyAcceleratorTable(keys_);
    keys_ = CreateAcceleratorTableA(keys.data(), static_cast<int>(keys.size()));
}

void StudioWindow::NameUndo() {
    const auto name = [this](const char* verb, const char* title, const char* key, int number) {
        const std::string text = verb + (title ? std::string(": ") + title : "") + '\t' + key;
        const UINT flags = MF_BYCOMMAND | (title ? MF_ENABLED : MF_GRAYED);
        ModifyMenuA(GetMenu(window_), static_cast<UINT>(number), flags, static_cast<UINT_PTR>(number), text.c_str());
    };
    name("Desfazer", host_.UndoTitle(), "Ctrl+Z", Commands::NumberOf(Commands::Undo));
    name("Refazer", host_.RedoTitle(), "Ctrl+Y", Commands::NumberOf(Commands::Redo));
}

void StudioWindow::Run(int number) {
    if (number >= FirstRegistered) {
        const auto& accelerator = *static_cast<gaccel_register_t*>(host_.registrations[number - FirstRegistered].info);
        for (const simhost::Registration& r : host_.registrations)
            if (r.name == "command_id" && static_cast<WORD>(r.number) == accelerator.accel.cmd)
                host_.RunAction(r.number);
    } else if (number >= FirstCommand) {
        const Commands::Command& command = Commands::All[number - FirstCommand];
        if (command.action)
            host_.RunAction(command.action);
        else
            command.run(*this);
    }
    Refresh();
}

// --- mouse

void StudioWindow::Press(POINT at, bool adding) {
    SetFocus(window_);
    if (view_.InHeader(at.x)) {
        simhost::Track* track = view_.TrackAt(at.y);
        if (!adding) host_.RunAction(40297);
        if (track) track->selected = !(adding && track->selected);
        return Refresh();
    }
    pressed_ = true;
    pressedAt_ = at;
    SetCapture(window_);
}

void StudioWindow::Drag(POINT at) {
    dragging_ = pressed_ && (dragging_ || std::abs(at.x - pressedAt_.x) > DragSlack);
    if (!dragging_) return;
    const auto [start, end] = std::minmax({view_.TimeAt(pressedAt_.x), view_.TimeAt(at.x)});
    host_.project.timeSelection = host_.project.loop = {start, end};
    Refresh();
}

void StudioWindow::Release(POINT at, bool adding) {
    const bool clicked = pressed_ && !dragging_;
    ReleaseCapture();  // which ends the press
    if (!clicked) return;
    if (!view_.InRuler(at.y)) {
        simhost::Item* item = view_.ItemAt(at.x, at.y);
        const bool selected = item && !(adding && item->selected);
        if (!adding) host_.project.tracks.SelectAll(false);
        if (item) host_.project.tracks.Select(*item, selected);
    }
    if (!adding) {
        host_.project.cursor = view_.TimeAt(at.x);
        if (host_.playState & 1) host_.playPosition = host_.project.cursor;
    }
    Refresh();
}

void StudioWindow::Wheel(int delta, POINT at, bool scrolls) {
    ScreenToClient(window_, &at);
    const double notches = static_cast<double>(delta) / WHEEL_DELTA;
    if (scrolls)
        view_.Scroll(-notches * WheelScroll);
    else
        view_.Zoom(std::pow(WheelZoom, notches), at.x);
    Refresh();
}

// The bar counts milliseconds.
void StudioWindow::ScrollBar(int code) {
    SCROLLINFO bar{sizeof bar, SIF_TRACKPOS, 0, 0, 0, 0, 0};
    GetScrollInfo(window_, SB_HORZ, &bar);
    switch (code) {
        case SB_LINELEFT:
            view_.Scroll(-0.1);
            break;
        case SB_LINERIGHT:
            view_.Scroll(0.1);
            break;
        case SB_PAGELEFT:
            view_.Scroll(-0.9);
            break;
        case SB_PAGERIGHT:
            view_.Scroll(0.9);
            break;
        case SB_THUMBTRACK:
            view_.ScrollTo(bar.nTrackPos / 1000.0);
            break;
    }
    Refresh();
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
    TellActions();
    Refresh();
}

void StudioWindow::Transport(double seconds) {
    if (!(host_.playState & 1)) {
        if (heardAt_ >= 0) player_.Stop(), heardAt_ = -1;
        return;
    }
    if (host_.playPosition != heardAt_) player_.Start(host_.playPosition);  // begun, or somebody moved it
    host_.Elapse(heardAt_ < 0 ? 0 : seconds);
    heardAt_ = host_.playPosition;
    player_.Feed(host_.project);
    view_.Follow(heardAt_);
    if (!(host_.playState & 4) && heardAt_ > ProjectEnd(host_.project)) host_.RunAction(1016);
    InvalidateRect(window_, nullptr, FALSE);
}

void StudioWindow::TellActions() {
    for (; actionsTold_ < host_.actionsRun.size(); ++actionsTold_) {
        const simhost::Action* action = simhost::FindAction(host_.actionsRun[actionsTold_]);
        if (!action || action->number == SnapOff || action->run || action->edit || action->toggles) continue;
        if (host_.onAction.count(action->number)) continue;
        const std::string text = std::string(Title) + " - a acao " + std::to_string(action->number) + " (" +
                                 action->name + ") nao tem efeito neste host";
        SetWindowTextA(window_, text.c_str());
    }
}

void StudioWindow::Refresh() {
    std::string now = Picture(host_, simhost::Show::Everything) + ' ' + std::to_string(host_.laneHeight);
    if (now == shown_ || !window_) return;
    shown_ = std::move(now);
    const double end = std::max(ProjectEnd(host_.project) * 1.1, host_.project.view.end);
    const auto milliseconds = [](double time) { return static_cast<int>(std::min(time, 1e6) * 1000); };
    const simhost::TimeRange view = host_.project.view;
    const SCROLLINFO bar{sizeof bar,
                         SIF_RANGE | SIF_PAGE | SIF_POS,
                         0,
                         milliseconds(end),
                         static_cast<UINT>(milliseconds(view.end - view.start)),
                         milliseconds(view.start),
                         0};
    SetScrollInfo(window_, SB_HORZ, &bar, TRUE);
    RECT client;
    GetClientRect(window_, &client);
    picture_.resize(client.right, client.bottom);
    PaintArrangement(host_.project, &picture_, view, view_.Layout());
    InvalidateRect(window_, nullptr, FALSE);
}

void StudioWindow::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    BitBlt(dc, 0, 0, picture_.getWidth(), picture_.getHeight(), picture_.getDC(), 0, 0, SRCCOPY);
    const int column = view_.ColumnOf(host_.playPosition);
    if (host_.playState && !view_.InHeader(column)) {
        SetDCBrushColor(dc, PlayColour);
        const RECT line{column, 0, column + 1, picture_.getHeight()};
        FillRect(dc, &line, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    }
    EndPaint(window_, &paint);
}
