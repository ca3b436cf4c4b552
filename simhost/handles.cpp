#include "simhost/handles.h"

#include <vector>

namespace simhost {

// A handle is this mark, then the number, then the kind in the low four bits. No address of a process carries the mark.
static constexpr uint64_t Mark = 0x00EC000000000000;
static constexpr uint64_t MarkMask = 0xFFFF000000000000;

// Owners by number; null once dead. Never freed, because things may die after everything else at the end of the
// process.
static std::vector<void*>& Owners() {
    static auto* owners = new std::vector<void*>(1);
    return *owners;
}

void* Identity::Numbered(Kind kind, void* owner) {
    if (!id_) {
        id_ = Owners().size();
        Owners().push_back(owner);
    }
    return reinterpret_cast<void*>(Mark | id_ << 4 | static_cast<uint64_t>(kind));
}

void Identity::Inherit(Identity& other, void* newOwner) {
    Die();
    id_ = other.id_;
    other.id_ = 0;
    if (id_) Owners()[id_] = newOwner;
}

void Identity::Die() {
    if (id_) Owners()[id_] = nullptr;
    id_ = 0;
}

void* OwnerOf(const void* handle, Kind kind, std::string* why) {
    const uint64_t bits = reinterpret_cast<uint64_t>(handle);
    const uint64_t id = (bits & ~MarkMask) >> 4;
    const char* wrong = "dead";
    if (!handle)
        wrong = "null";
    else if ((bits & MarkMask) != Mark || id == 0 || id >= Owners().size())
        wrong = "foreign";
    else if (static_cast<Kind>(bits & 15) != kind)
        wrong = "of another kind";
    else if (void* owner = Owners()[id])
        return owner;
    if (why) *why = wrong;
    return nullptr;
}

const char* NameOf(Kind kind) {
    static const char* const names[] = {"", "project", "track", "item", "take", "source", "accessor"};
    return names[static_cast<int>(kind)];
}

}  // namespace simhost
