#include "apps/studio/dialogs.h"

#include "apps/common/text.h"
// Needs windows.h first.
#include <commdlg.h>

void PaintAll() {
    MSG message;
    while (PeekMessageA(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE)) DispatchMessageA(&message);
}

namespace {

constexpr int FirstField = 100;
constexpr int SettleMs = 100;
// In dialog units.
constexpr short Margin = 7, Width = 230, CaptionWidth = 90, RowHeight = 18, FieldHeight = 14, ButtonWidth = 50;

std::vector<std::string> AtCommas(const std::string& text) {
    std::vector<std::string> parts;
    for (size_t start = 0;;) {
        const size_t comma = text.find(',', start);
        parts.push_back(text.substr(start, comma - start));
        if (comma == std::string::npos) return parts;
        start = comma + 1;
    }
}

// A dialog's template, as the system reads it: 16-bit words, texts with their zero, each control on a 32-bit boundary.
class Template {
  public:
    Template(const std::string& title, int controls, short height) {
        Long(DS_MODALFRAME | DS_CENTER | DS_SETFONT | WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU);
        Long(0);
        for (const int word : {controls, 0, 0, static_cast<int>(Width), static_cast<int>(height), 0, 0}) Word(word);
        Text(title);
        Word(9);
        Text("Segoe UI");
    }
    void Control(WORD kind, DWORD style, short x, short y, short w, short h, int id, const std::string& text) {
        if (words_.size() % 2) Word(0);
        Long(style | WS_CHILD | WS_VISIBLE);
        Long(0);
        for (const int word : {static_cast<int>(x), static_cast<int>(y), static_cast<int>(w), static_cast<int>(h), id})
            Word(word);
        Word(0xFFFF);
        Word(kind);
        Text(text);
        Word(0);
    }
    const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

  private:
    void Word(int word) { words_.push_back(static_cast<WORD>(word)); }
    void Long(DWORD value) {
        Word(LOWORD(value));
        Word(HIWORD(value));
    }
    void Text(const std::string& text) {
        for (const wchar_t c : Wide(text)) Word(c);
        Word(0);
    }
    std::vector<WORD> words_;
};

constexpr WORD Button = 0x80, Edit = 0x81, Static = 0x82;

std::string FieldText(HWND dialog, int id) {
    const HWND field = GetDlgItem(dialog, id);
    std::wstring text(GetWindowTextLengthW(field) + 1, L'\0');
    text.resize(GetWindowTextW(field, text.data(), static_cast<int>(text.size())));
    return Utf8(text);
}

INT_PTR CALLBACK FormProc(HWND dialog, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(dialog, DWLP_USER, l);
        SendDlgItemMessageA(dialog, FirstField, EM_SETSEL, 0, -1);
        SetFocus(GetDlgItem(dialog, FirstField));
        return FALSE;  // the focus is set
    }
    if (message != WM_COMMAND || (LOWORD(w) != IDOK && LOWORD(w) != IDCANCEL)) return FALSE;
    int id = FirstField;
    if (LOWORD(w) == IDOK)
        for (Field& field : *reinterpret_cast<std::vector<Field>*>(GetWindowLongPtrA(dialog, DWLP_USER)))
            field.value = FieldText(dialog, id++);
    EndDialog(dialog, LOWORD(w));
    return TRUE;
}

// The window in front before a dialog gets the front back after it, as the panel's slicer mode needs. The window
// manager may move it once more, so its messages are taken first. What the dialog covered is painted before a command
// goes on to work. A dialog belongs to the main window: that one takes
// no input meanwhile, but the panel hears of the release of the button that opened the dialog.
class Front {
  public:
    Front() = default;
    ~Front() {
        MSG message;
        for (int i = 0; i < SettleMs; i += 5, Sleep(5)) PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);
        SetForegroundWindow(before_);
        PaintAll();
    }
    Front(const Front&) = delete;
    Front& operator=(const Front&) = delete;

    HWND Owner() const {
        const HWND owner = before_ ? GetWindow(before_, GW_OWNER) : nullptr;
        return owner ? owner : before_;
    }

  private:
    const HWND before_ = GetActiveWindow();
};

}  // namespace

int ShowMessage(const std::string& text, const std::string& title, int type) {
    const Front front;
    return MessageBoxW(front.Owner(), Wide(text).c_str(), Wide(title).c_str(), static_cast<UINT>(type));
}

bool AskFields(const std::string& title, std::vector<Field>& fields) {
    const int rows = static_cast<int>(fields.size());
    const auto height = static_cast<short>(2 * Margin + (rows + 1) * RowHeight);
    Template form(title, 2 * rows + 2, height);
    auto y = Margin;
    for (int i = 0; i < rows; ++i, y += RowHeight) {
        form.Control(Static, 0, Margin, static_cast<short>(y + 2), CaptionWidth, FieldHeight, 0, fields[i].caption);
        form.Control(Edit, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, Margin + CaptionWidth, y,
                     Width - CaptionWidth - 2 * Margin, FieldHeight, FirstField + i, fields[i].value);
    }
    form.Control(Button, BS_DEFPUSHBUTTON | WS_TABSTOP, Width - 2 * (ButtonWidth + Margin), y, ButtonWidth, FieldHeight,
                 IDOK, "OK");
    form.Control(Button, WS_TABSTOP, Width - ButtonWidth - Margin, y, ButtonWidth, FieldHeight, IDCANCEL, "Cancelar");

    const Front front;
    return DialogBoxIndirectParamW(GetModuleHandleA(nullptr), form.Get(), front.Owner(), FormProc,
                                   reinterpret_cast<LPARAM>(&fields)) == IDOK;
}

std::optional<std::string> AskInputs(const simhost::ShownInput& shown) {
    std::vector<std::string> captions = AtCommas(shown.captions);
    std::erase_if(captions, [](const std::string& c) { return c.find('=') != std::string::npos; });
    // A single field keeps the commas that its text has.
    std::vector<std::string> values = captions.size() == 1 ? std::vector{shown.before} : AtCommas(shown.before);
    values.resize(captions.size());
    std::vector<Field> fields;
    for (size_t i = 0; i < captions.size(); ++i) fields.push_back({captions[i], values[i]});
    if (!AskFields(shown.title, fields)) return std::nullopt;
    std::string answer;
    for (const Field& field : fields) answer += (&field == &fields[0] ? "" : ",") + field.value;
    return answer;
}

// What both dialogs about files have in common. Null: cancelled.
static std::optional<std::string> AskForFile(decltype(GetOpenFileNameW)* ask, const wchar_t* kinds, DWORD flags,
                                             const std::string& offered) {
    const Front front;
    wchar_t path[32768] = L"";
    Wide(offered).copy(path, std::size(path) - 1);
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = front.Owner();
    question.lpstrFilter = kinds;
    question.lpstrFile = path;
    question.nMaxFile = static_cast<DWORD>(std::size(path));
    question.lpstrDefExt = L"rpp";
    question.Flags = OFN_HIDEREADONLY | OFN_NOCHANGEDIR | flags;
    if (!ask(&question)) return std::nullopt;
    return Utf8(path);
}

std::optional<std::string> AskForRecording() {
    return AskForFile(GetOpenFileNameW, L"Gravações WAV\0*.wav\0Todos os arquivos\0*.*\0", OFN_FILEMUSTEXIST, "");
}

std::optional<std::string> AskWhereToSave(const std::string& path) {
    return AskForFile(GetSaveFileNameW, L"Projetos\0*.rpp\0", OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST, path);
}
