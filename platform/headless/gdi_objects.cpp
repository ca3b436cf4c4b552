#include "platform/headless/gdi_objects.h"

#include <algorithm>
#include <unordered_map>

#include "platform/headless/text_face.h"

namespace {

struct GdiTable {
    std::unordered_map<uintptr_t, std::unique_ptr<GdiObject>> objects;
    decltype(objects)::node_type spare;  // the context given back last: a window that paints again takes no memory
    uintptr_t lastHandle = 0x1000;
    HGDIOBJ stockBitmap = nullptr;
    HGDIOBJ stockFont = nullptr;
    DWORD stockCount = 0;

    HGDIOBJ Add(std::unique_ptr<GdiObject> object) {
        lastHandle += 4;
        objects[lastHandle] = std::move(object);
        return reinterpret_cast<HGDIOBJ>(lastHandle);
    }

    HGDIOBJ AddStock(std::unique_ptr<GdiObject> object) {
        object->stock = true;
        ++stockCount;
        return Add(std::move(object));
    }

    GdiTable() {
        auto bitmap = std::make_unique<GdiBitmap>();
        bitmap->pixels = std::make_unique<uint32_t[]>(1);
        bitmap->surface = {bitmap->pixels.get(), 1, 1, 1};
        stockBitmap = AddStock(std::move(bitmap));
        stockFont = AddStock(std::make_unique<GdiFont>());
    }
};

// Never destroyed, since fonts may be deleted by destructors that run at the very end of the process.
GdiTable& Table() {
    static GdiTable& table = *new GdiTable;
    return table;
}

HDC AddContext(DeviceContext context) {
    GdiTable& table = Table();
    context.font = table.stockFont;
    if (table.spare.empty()) return static_cast<HDC>(AddGdiObject(std::make_unique<DeviceContext>(std::move(context))));
    static_cast<DeviceContext&>(*table.spare.mapped()) = std::move(context);
    table.spare.key() = table.lastHandle += 4;
    return reinterpret_cast<HDC>(table.objects.insert(std::move(table.spare)).position->first);
}

// Puts the object in place of the one in the slot; gives that one.
HGDIOBJ Exchange(HGDIOBJ& slot, HGDIOBJ handle) {
    const HGDIOBJ previous = slot;
    slot = handle;
    ++FindGdiObject(handle)->uses;
    if (GdiObject* object = FindGdiObject(previous)) --object->uses;
    return previous;
}

bool DeleteContext(HDC dc, bool ofWindow) {
    DeviceContext* context = FindGdi<DeviceContext>(dc);
    if (!context || (context->bitmap == nullptr) != ofWindow) return false;
    for (HGDIOBJ selected : {context->bitmap, context->font})
        if (GdiObject* object = FindGdiObject(selected)) --object->uses;
    context->windowPixels = nullptr;
    Table().spare = Table().objects.extract(reinterpret_cast<uintptr_t>(dc));
    return true;
}

}  // namespace

GdiFont::GdiFont() = default;
GdiFont::~GdiFont() = default;

Surface DeviceContext::Target() const {
    const GdiBitmap* selected = FindGdi<GdiBitmap>(bitmap);
    return selected ? selected->surface : window;
}

RECT DeviceContext::Drawable() const {
    const RECT whole = Target().Whole();
    return clip ? Intersection(whole, *clip) : whole;
}

HGDIOBJ AddGdiObject(std::unique_ptr<GdiObject> object) { return Table().Add(std::move(object)); }

GdiObject* FindGdiObject(HGDIOBJ handle) {
    const auto& objects = Table().objects;
    const auto found = objects.find(reinterpret_cast<uintptr_t>(handle));
    return found == objects.end() ? nullptr : found->second.get();
}

HDC OpenWindowDC(const Surface& window, std::shared_ptr<void> pixels) {
    DeviceContext context;
    context.window = window;
    context.windowPixels = std::move(pixels);
    return AddContext(std::move(context));
}

bool CloseWindowDC(HDC dc) { return DeleteContext(dc, true); }

bool IsEmpty(const RECT& r) { return r.left >= r.right || r.top >= r.bottom; }

RECT Intersection(const RECT& a, const RECT& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

BOOL IntersectRect(RECT* out, const RECT* a, const RECT* b) {
    const RECT both = Intersection(*a, *b);
    *out = IsEmpty(both) ? RECT{} : both;
    return !IsEmpty(both);
}

HDC CreateCompatibleDC(HDC like) {
    if (like && !FindGdi<DeviceContext>(like)) return nullptr;
    DeviceContext context;
    context.bitmap = Table().stockBitmap;
    return AddContext(std::move(context));
}

BOOL DeleteDC(HDC dc) { return DeleteContext(dc, false); }

HGDIOBJ SelectObject(HDC dc, HGDIOBJ handle) {
    DeviceContext* context = FindGdi<DeviceContext>(dc);
    if (!context) return nullptr;
    if (FindGdi<GdiFont>(handle)) return Exchange(context->font, handle);
    if (const GdiBitmap* bitmap = FindGdi<GdiBitmap>(handle)) {
        const bool elsewhere = bitmap->uses > 0 && context->bitmap != handle && !bitmap->stock;
        return context->bitmap && !elsewhere ? Exchange(context->bitmap, handle) : nullptr;
    }
    return nullptr;  // a region is selected with SelectClipRgn
}

BOOL DeleteObject(HGDIOBJ handle) {
    const GdiObject* object = FindGdiObject(handle);
    if (!object || dynamic_cast<const DeviceContext*>(object)) return FALSE;
    if (object->stock) return TRUE;  // harmless, as documented
    if (object->uses > 0) return FALSE;
    Table().objects.erase(reinterpret_cast<uintptr_t>(handle));
    return TRUE;
}

HANDLE GetCurrentProcess() { return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)); }

DWORD GetGuiResources(HANDLE process, DWORD which) {
    if (process != GetCurrentProcess() || which != GR_GDIOBJECTS) return 0;
    return static_cast<DWORD>(Table().objects.size()) - Table().stockCount;
}

BOOL GdiFlush() { return TRUE; }
