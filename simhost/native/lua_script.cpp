#include <algorithm>
#include <cstring>
#include <lua.hpp>
#include <tuple>

#include "simhost/calls.h"

namespace simhost {

// How a C function's arguments and its result cross over, by their types. Items are opaque pointers.
template <class T>
static T NextArgument(lua_State* l, int* taken) {
    const int i = ++*taken;
    if constexpr (std::is_same_v<T, bool>)
        return lua_toboolean(l, i);
    else if constexpr (std::is_same_v<T, int>)
        return static_cast<int>(luaL_checkinteger(l, i));
    else if constexpr (std::is_same_v<T, double>)
        return luaL_checknumber(l, i);
    else if constexpr (std::is_same_v<T, const char*>)
        return luaL_checkstring(l, i);
    else if constexpr (std::is_same_v<T, ReaProject*>)
        return nullptr;  // whatever scripts write there, it is the current one
    else
        return static_cast<T>(lua_touserdata(l, i));
}

static void Push(lua_State* l, bool value) { lua_pushboolean(l, value); }
static void Push(lua_State* l, int value) { lua_pushinteger(l, value); }
static void Push(lua_State* l, double value) { lua_pushnumber(l, value); }
static void Push(lua_State* l, const char* value) { lua_pushstring(l, value); }
static void Push(lua_State* l, MediaItem* value) { lua_pushlightuserdata(l, value); }

template <class Result, class... Arguments>
static int Pass(lua_State* l, Result (*function)(Arguments...)) {
    [[maybe_unused]] int taken = 0;
    const std::tuple<Arguments...> arguments{NextArgument<Arguments>(l, &taken)...};
    if constexpr (std::is_void_v<Result>) {
        std::apply(function, arguments);
        return 0;
    } else {
        Push(l, std::apply(function, arguments));
        return 1;
    }
}

template <auto function>
static int CallHost(lua_State* l) {
    return Pass(l, function);
}

// A registered function is the one upvalue of what scripts call.
template <class Function>
static int CallRegistered(lua_State* l) {
    return Pass(l, reinterpret_cast<Function*>(lua_touserdata(l, lua_upvalueindex(1))));
}

// Numbers and texts are returned instead of written through pointers.
static int CountProjectMarkers(lua_State* l) {
    int markers = 0, regions = 0;
    Push(l, api::CountProjectMarkers(nullptr, &markers, &regions));
    Push(l, markers);
    Push(l, regions);
    return 3;
}

static int GetSet_LoopTimeRange(lua_State* l) {
    double start = luaL_checknumber(l, 3), end = luaL_checknumber(l, 4);
    api::GetSet_LoopTimeRange(lua_toboolean(l, 1), lua_toboolean(l, 2), &start, &end, lua_toboolean(l, 5));
    Push(l, start);
    Push(l, end);
    return 2;
}

static int GetSetProjectInfo_String(lua_State* l) {
    std::string value = luaL_checkstring(l, 3);
    value.resize(std::max<size_t>(value.size(), 511));  // room for an answer
    Push(l, api::GetSetProjectInfo_String(nullptr, luaL_checkstring(l, 2), value.data(), lua_toboolean(l, 4)));
    Push(l, value.c_str());
    return 2;
}

static int Sleep(lua_State*) { return 0; }  // nothing here waits for a real clock

static const luaL_Reg Calls[] = {
    {"CountProjectMarkers", CountProjectMarkers},
    {"GetSet_LoopTimeRange", GetSet_LoopTimeRange},
    {"GetOS", CallHost<api::GetOS>},
    {"GetSetProjectInfo", CallHost<api::GetSetProjectInfo>},
    {"GetSetProjectInfo_String", GetSetProjectInfo_String},
    {"sleep", Sleep},
    {"CountMediaItems", CallHost<api::CountMediaItems>},
    {"CountSelectedMediaItems", CallHost<api::CountSelectedMediaItems>},
    {"GetMediaItem", CallHost<api::GetMediaItem>},
    {"GetMediaItemInfo_Value", CallHost<api::GetMediaItemInfo_Value>},
    {"Main_OnCommand", CallHost<api::Main_OnCommand>},
    {"ShowMessageBox", CallHost<api::ShowMessageBox>},
    {nullptr, nullptr},
};

// Result and argument types, as a definition begins, of the functions that extensions have registered so far.
static constexpr struct {
    const char *result, *arguments;
    lua_CFunction call;
} Shapes[] = {
    {"void", "", CallRegistered<void()>},
    {"double", "double,double", CallRegistered<double(double, double)>},
    {"bool", "bool,int,double", CallRegistered<bool(bool, int, double)>},
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
