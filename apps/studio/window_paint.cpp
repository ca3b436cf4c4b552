#include "apps/common/text.h"
#include "apps/studio/dialogs.h"
#include "apps/studio/window.h"

namespace {

constexpr ULONGLONG PatienceMs = 300, SignMs = 100;  // until a command is said to be at work; between two paints
constexpr COLORREF PlayColour = RGB(120, 230, 120), RecordColour = RGB(150, 50, 50), HintColour = RGB(154, 163, 173),
                   StatusColour = RGB(36, 38, 44), BusyColour = RGB(240, 160, 64);
constexpr wchar_t Hint[] = L"Ctrl+O abre uma gravação WAV; ou arraste o arquivo para cá.";

std::wstring Counted(int count, const wchar_t* one, const wchar_t* many) {
    return std::to_wstring(count) + (count == 1 ? one : many);
}

void Fill(HDC dc, RECT place, COLORREF colour) {
    SetDCBrushColor(dc, colour);
    FillRect(dc, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace

void StudioWindow::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    RECT status;
    GetClientRect(window_, &status);
    status.top = picture_.getHeight();
    PaintStatus(dc, status);
    BitBlt(dc, 0, 0, picture_.getWidth(), picture_.getHeight(), picture_.getDC(), 0, 0, SRCCOPY);
    const int column = view_.ColumnOf(host_.transport.position);
    const RECT lanes{0, view_.Layout().rulerHeight, picture_.getWidth(), picture_.getHeight()};
    if (host_.transport.state & 4)
        for (int i = 0; const simhost::Track* track = host_.project.tracks.At(i); ++i) {
            RECT place = view_.PlaceOf(*track, host_.transport.recordStart, host_.transport.position);
            if (track->armed && IntersectRect(&place, &place, &lanes)) Fill(dc, place, RecordColour);
        }
    if (host_.transport.state && !view_.InHeader(column))
        Fill(dc, {column, 0, column + 1, picture_.getHeight()}, PlayColour);
    if (host_.project.tracks.Count() == 0) {
        SetTextColor(dc, HintColour);
        RECT place{0, 0, picture_.getWidth(), picture_.getHeight()};
        DrawTextW(dc, Hint, -1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    }
    EndPaint(window_, &paint);
}

void StudioWindow::PaintStatus(HDC dc, RECT place) {
    Fill(dc, place, StatusColour);
    SelectObject(dc, statusFont_);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, working_ ? BusyColour : HintColour);
    const simhost::TrackList& tracks = host_.project.tracks;
    const std::wstring text = working_ ? L"Trabalhando..."
                                       : Counted(tracks.ItemCount(), L" item, ", L" itens, ") +
                                             Counted(tracks.SelectedCount(), L" selecionado", L" selecionados");
    place.left += View::Scaled(12);
    DrawTextW(dc, text.c_str(), -1, &place, DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

// The windows' clocks stand still while a command works; only what has to be painted is.
void StudioWindow::Working() {
    const ULONGLONG now = GetTickCount64();
    if (now - lastTick_ < PatienceMs || now - lastSign_ < SignMs) return;
    lastSign_ = now;
    if (!working_) InvalidateRect(window_, nullptr, FALSE);
    working_ = true;
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    PaintAll();
}

void StudioWindow::Rest() {
    working_ = false;
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
    Stale();
}
