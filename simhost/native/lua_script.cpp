#include "simhost/native/lua_script.h"

#include <algorithm>
#include <cstring>
#include <lua.hpp>

#include "simhost/calls.h"

namespace simhost {

// The calls as scripts see them. A project argument comes first where the C function has one. Numbers and texts are
// returned instead of written through pointers; items are opaque pointers.
static int CountProjectMarkers(lua_State* l) {
    int markers = 0, regions = 0;
    lua_pushinteger(l, api::CountProjectMarkers(nullptr, &markers, &regions));
    lua_pushinteger(l, markers);
    lua_pushinteger(l, regions);
    return 3;
}

static int GetSet_LoopTimeRange(lua_State* l) {
    double start = luaL_checknumber(l, 3), end = luaL_checknumber(l, 4);
    api::GetSet_LoopTimeRange(lua_toboolean(l, 1), lua_toboolean(l, 2), &start, &end, lua_toboolean(l, 5));
    lua_pushnumber(l, start);
    lua_pushnumber(l, end);
    return 2;
}

static int GetOS(lua_State* l) {
    lua_pushstring(l, api::GetOS());
    return 1;
}

static int GetSetProjectInfo(lua_State* l) {
    lua_pushnumber(
        l, api::GetSetProjectInfo(nullptr, luaL_checkstring(l, 2), luaL_checknumber(l, 3), lua_toboolean(l, 4)));
    return 1;
}

static int GetSetProjectInfo_String(lua_State* l) {
    std::string value = luaL_checkstring(l, 3);
    value.resize(std::max<size_t>(value.size(), 511));  // room for an answer
    lua_pushboolean(l,
                    api::GetSetProjectInfo_String(nullptr, luaL_checkstring(l, 2), value.data(), lua_toboolean(l, 4)));
    lua_pushstring(l, value.c_str());
    return 2;
}

static int Sleep(lua_State*) {
    return 0;  // nothing here waits for a real clock
}

static int CountMediaItems(lua_State* l) {
    lua_pushinteger(l, api::CountMediaItems(nullptr));
    return 1;
}

static int CountSelectedMediaItems(lua_State* l) {
    lua_pushinteger(l, api::CountSelectedMediaItems(nullptr));
    return 1;
}

static int GetMediaItem(lua_State* l) {
    lua_pushlightuserdata(l, api::GetMediaItem(nullptr, static_cast<int>(luaL_checkinteger(l, 2))));
    return 1;
}

static int GetMediaItemInfo_Value(lua_State* l) {
    auto* item = static_cast<MediaItem*>(lua_touserdata(l, 1));
    lua_pushnumber(l, api::GetMediaItemInfo_Value(item, luaL_checkstring(l, 2)));
    return 1;
}

static int Main_OnCommand(lua_State* l) {
    api::Main_OnCommand(static_cast<int>(luaL_checkinteger(l, 1)), static_cast<int>(luaL_checkinteger(l, 2)));
    return 0;
}

static int ShowMessageBox(lua_State* l) {
    const int type = static_cast<int>(luaL_checkinteger(l, 3));
    lua_pushinteger(l, api::ShowMessageBox(luaL_checkstring(l, 1), luaL_checkstring(l, 2), type));
    return 1;
}

static const luaL_Reg Calls[] = {
    {"CountProjectMarkers", CountProjectMarkers},
    {"GetSet_LoopTimeRange", GetSet_LoopTimeRange},
    {"GetOS", GetOS},
    {"GetSetProjectInfo", GetSetProjectInfo},
    {"GetSetProjectInfo_String", GetSetProjectInfo_String},
    {"sleep", Sleep},
    {"CountMediaItems", CountMediaItems},
    {"CountSelectedMediaItems", CountSelectedMediaItems},
    {"GetMediaItem", GetMediaItem},
    {"GetMediaItemInfo_Value", GetMediaItemInfo_Value},
    {"Main_OnCommand", Main_OnCommand},
    {"ShowMessageBox", ShowMessageBox},
    {nullptr, nullptr},
};

// A registered function is the one upvalue of what scripts call.
template <class Function>
static Function* Registered(lua_State* l) {
    return reinterpret_cast<Function*>(lua_touserdata(l, lua_upvalueindex(1)));
}

static int CallWithNothing(lua_State* l) {
    Registered<void()>(l)();
    return 0;
}

static int CallWithNumbers(lua_State* l) {
    const double a = luaL_checknumber(l, 1), b = luaL_checknumber(l, 2);
    lua_pushnumber(l, Registered<double(double, double)>(l)(a, b));
    return 1;
}

static int CallWithSettings(lua_State* l) {
    const int number = static_cast<int>(luaL_checkinteger(l, 2));
    lua_pushboolean(l, Registered<bool(bool, int, double)>(l)(lua_toboolean(l, 1), number, luaL_checknumber(l, 3)));
    return 1;
}

// Result and argument types, as a definition begins, of the functions that extensions have registered so far.
static constexpr struct {
    const char *result, *arguments;
    lua_CFunction call;
} Shapes[] = {
    {"void", "", CallWithNothing},
    {"double", "double,double", CallWithNumbers},
    {"bool", "bool,int,double", CallWithSettings},
};

// What extensions registered stands beside the host's own calls.
static void OfferRegistered(Host& host, lua_State* l) {
    const std::string prefix = "APIdef_";
    for (const Registration& r : host.extension.registrations) {
        if (!r.name.starts_with(prefix)) continue;
        const std::string name = r.name.substr(prefix.size());
        const auto* result = static_cast<const char*>(r.info);
        const char* arguments = result + std::strlen(result) + 1;
        const auto shape = std::find_if(std::begin(Shapes), std::end(Shapes), [&](const auto& s) {
            return !std::strcmp(s.result, result) && !std::strcmp(s.arguments, arguments);
        });
        if (shape == std::end(Shapes) || !host.extension.Function(name)) {
            host.Violate(name + ": scripts cannot call it by its definition");
            continue;
        }
        lua_pushlightuserdata(l, host.extension.Function(name));
        lua_pushcclosure(l, shape->call, 1);
        lua_setfield(l, -2, name.c_str());
    }
}

void RunScriptsWithLua(Host& host) {
    host.scripts.runner = [&host](const Script& script) {
        lua_State* l = luaL_newstate();
        luaL_openlibs(l);
        luaL_newlib(l, Calls);
        OfferRegistered(host, l);
        lua_setglobal(l, "reaper");
        const bool failed =
            luaL_loadbuffer(l, script.text.data(), script.text.size(), "script") || lua_pcall(l, 0, 0, 0);
        if (failed) host.Violate(std::string("the script failed: ") + lua_tostring(l, -1));
        lua_close(l);
    };
}

}  // namespace simhost
