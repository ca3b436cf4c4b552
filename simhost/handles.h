// simhost/handles.h
// The pointers that the host hands out. They are numbers that no memory has, so that nothing can be read through them.
// None is given twice in the life of the process. A thing gets its handle when it is first asked for. The handle dies
// with the thing: a copy, as undo makes them, is another thing and has none yet.
#pragma once
#include <cstdint>
#include <string>

namespace simhost {

enum class Kind : uint8_t { Project = 1, Track, Item, Take, Source, Accessor };

class Identity {
  public:
    Identity() = default;
    Identity(const Identity&) {}
    Identity& operator=(const Identity&) { return *this; }
    ~Identity() { Die(); }

    template <class T>
    T* Handle(Kind kind, void* owner) {  // both the same in each call
        return static_cast<T*>(Numbered(kind, owner));
    }
    void Inherit(Identity& other, void* newOwner);  // newOwner goes on under the other's handle

  private:
    void* Numbered(Kind kind, void* owner);
    void Die();
    uint64_t id_ = 0;  // 0: no handle asked for yet
};

// The living owner of a handle of this kind, or null and, unless `why` is null, what is wrong with the handle:
// "null", "dead", "foreign", "of another kind".
void* OwnerOf(const void* handle, Kind kind, std::string* why);
const char* NameOf(Kind kind);

}  // namespace simhost
