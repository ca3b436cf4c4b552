// The menu bar and its keys: the studio's commands, and a menu of the actions that extensions registered.
#include <algorithm>

#include "apps/common/text.h"
#include "apps/studio/window.h"
#include "host/actions.h"

namespace {

constexpr int FirstCommand = 100, FirstRegistered = 1000;  // the entries' numbers: the studio's, the extensions'

void Undo(StudioWindow& studio) { studio.Host().undo.Back(); }
void Redo(StudioWindow& studio) { studio.Host().undo.Redo(); }

constexpr struct Command {
    const char* menu;
    const char* text;  // with the key's name behind a tab
    WORD key;          // a virtual key
    BYTE keyFlags;
    int action;  // the host's; 0: `run` instead
    void (*run)(StudioWindow&);
} Commands[] = {
    {"Arquivo", "Abrir...\tCtrl+O", 'O', FCONTROL, 0, [](StudioWindow& s) { s.Choose(); }},
    {"Arquivo", "Guardar projeto...\tCtrl+S", 'S', FCONTROL, 0, [](StudioWindow& s) { s.Save(); }},
    {"Arquivo", "Sair\tAlt+F4", 0, 0, 0, [](StudioWindow& s) { PostMessageA(s.Host().mainWindow, WM_CLOSE, 0, 0); }},
    {"Editar", "Desfazer", 'Z', FCONTROL, 0, Undo},
    {"Editar", "Refazer", 'Y', FCONTROL, 0, Redo},
    {"Editar", "Selecionar todos os itens\tCtrl+A", 'A', FCONTROL, 0,
     [](StudioWindow& s) { s.Host().project.tracks.SelectAll(true); }},
    {"Editar", "Remover itens\tDel", VK_DELETE, 0, acao::RemoverItens, nullptr},
    {"Editar", "Remover seleção de tempo\tEsc", VK_ESCAPE, 0, acao::TirarSelecaoDeTempo, nullptr},
    {"Transporte", "Tocar/parar\tEspaço", VK_SPACE, 0, acao::TocarOuParar, nullptr},
    {"Transporte", "Tocar/pausar\tEnter", VK_RETURN, 0, acao::TocarOuPausar, nullptr},
    {"Transporte", "Ir para o início\tHome", VK_HOME, 0, acao::IrAoInicio, nullptr},
    {"Transporte", "Ir para o fim\tEnd", VK_END, 0, acao::IrAoFim, nullptr},
    {"Exibir", "Aproximar\t+", VK_ADD, 0, acao::AproximarHorizontal, nullptr},
    {"Exibir", "Afastar\t-", VK_SUBTRACT, 0, acao::AfastarHorizontal, nullptr},
    {"Exibir", "Faixas mais altas\tCtrl++", VK_ADD, FCONTROL, acao::AproximarVertical, nullptr},
    {"Exibir", "Faixas mais baixas\tCtrl+-", VK_SUBTRACT, FCONTROL, acao::AfastarVertical, nullptr},
    {"Exibir", "Projeto inteiro\tCtrl+0", '0', FCONTROL, 0, [](StudioWindow& s) { s.ShowAll(); }},
};

UINT NumberOf(void (*run)(StudioWindow&)) {
    const auto found =
        std::find_if(std::begin(Commands), std::end(Commands), [run](const Command& c) { return c.run == run; });
    return FirstCommand + static_cast<UINT>(found - std::begin(Commands));
}

}  // namespace

void StudioWindow::BuildMenus() {
    const HMENU bar = CreateMenu();
    std::vector<ACCEL> keys;
    HMENU menu = nullptr;
    std::string name;
    WORD number = FirstCommand;
    for (const Command& command : Commands) {
        if (name != command.menu) {
            menu = CreatePopupMenu();
            AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), Wide(command.menu).c_str());
            name = command.menu;
        }
        AppendMenuW(menu, MF_STRING, number, Wide(command.text).c_str());
        if (command.key) keys.push_back({static_cast<BYTE>(command.keyFlags | FVIRTKEY), command.key, number});
        ++number;
    }
    menu = CreatePopupMenu();
    number = FirstRegistered;
    for (const simhost::Registration& r : host_.extension.registrations) {
        if (r.name == "gaccel") {
            const auto& [accel, text] = *static_cast<gaccel_register_t*>(r.info);
            const std::string entry = std::string(text) + '\t' + static_cast<char>(accel.key);
            AppendMenuW(menu, MF_STRING, number, Wide(entry).c_str());
            keys.push_back({accel.fVirt, accel.key, number});
        }
        ++number;
    }
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), L"Extensão");

    const HMENU before = GetMenu(window_);
    SetMenu(window_, bar);
    DestroyMenu(before);
    DestroyAcceleratorTable(keys_);
    keys_ = CreateAcceleratorTableA(keys.data(), static_cast<int>(keys.size()));
}

void StudioWindow::NameUndo() {
    const auto name = [this](const char* verb, const char* title, const char* key, UINT number) {
        const std::string text = verb + (title ? std::string(": ") + title : "") + '\t' + key;
        const UINT flags = MF_BYCOMMAND | (title ? MF_ENABLED : MF_GRAYED);
        ModifyMenuW(GetMenu(window_), number, flags, number, Wide(text).c_str());
    };
    name("Desfazer", host_.undo.Title(), "Ctrl+Z", NumberOf(Undo));
    name("Refazer", host_.undo.RedoTitle(), "Ctrl+Y", NumberOf(Redo));
}

bool StudioWindow::TakeKey(MSG& message) { return TranslateAcceleratorA(window_, keys_, &message); }

void StudioWindow::RunEntry(int number) {
    if (number >= FirstRegistered) {
        const auto& accelerator =
            *static_cast<gaccel_register_t*>(host_.extension.registrations[number - FirstRegistered].info);
        for (const simhost::Registration& r : host_.extension.registrations)
            if (r.name == "command_id" && static_cast<WORD>(r.number) == accelerator.accel.cmd)
                return host_.RunAction(r.number);
    } else if (number >= FirstCommand) {
        const Command& command = Commands[number - FirstCommand];
        command.action ? host_.RunAction(command.action) : command.run(*this);
    }
}
