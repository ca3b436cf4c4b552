#include "simhost/calls.h"

#include <charconv>
#include <type_traits>

namespace simhost {

// --- values as a trace tells them

static std::string NameOf(const Track& track) {
    return track.name;
}
static std::string NameOf(const Item& item) {
    return item.Name();
}
static std::string NameOf(const Take& take) {
    return take.name;
}

template <class T>
static std::string Named(const void* handle, Kind kind) {
    std::string why;
    const void* owner = OwnerOf(handle, kind, &why);
    return std::string(NameOf(kind)) + ' ' + (owner ? NameOf(*static_cast<const T*>(owner)) : '(' + why + ')');
}

static std::string Told(bool value) {
    return value ? "true" : "false";
}
static std::string Told(int value) {
    return std::to_string(value);
}
static std::string Told(double value) {  // the shortest that reads back the same
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}
static std::string Told(const char* text) {
    return text ? '"' + std::string(text) + '"' : "null";
}
static std::string Told(ReaProject*) {
    return "0";
}
static std::string Told(MediaTrack* t) {
    return Named<Track>(t, Kind::Track);
}
static std::string Told(MediaItem* i) {
    return Named<Item>(i, Kind::Item);
}
static std::string Told(MediaItem_Take* t) {
    return Named<Take>(t, Kind::Take);
}
static std::string Told(PCM_source* s) {
    return Named<Take>(s, Kind::Source);
}
static std::string Told(AudioAccessor*) {
    return "accessor";
}
static std::string Told(HWND) {
    return "window";
}
static std::string Told(const void* pointer) {
    return pointer ? "&" : "null";
}

// --- one call: it is the running function until it returns, also when it calls back into the extension

class Call {
  public:
    explicit Call(int index)
        : host_(Host::Current()),
          counter_(host_.counters_[index]),
          outer_(host_.running_),
          changes_(Functions[index].changes) {
        ++counter_.calls;
        host_.running_ = Functions[index].name;
        fails_ = counter_.failsFrom && counter_.calls >= counter_.failsFrom;
    }
    ~Call() {
        host_.running_ = outer_;
        host_.changes += changes_;
    }

    bool Fails() const { return fails_; }
    int Result() const { return counter_.result; }
    template <class... Values>
    void TraceCall(const Values&... values) {
        if (!host_.tracing) return;
        std::string line = std::string(host_.running_) + '(';
        ((line += (line.back() == '(' ? "" : ", ") + Told(values)), ...);
        line_ = host_.trace.size();
        host_.trace.push_back(line + ')');
    }
    template <class Value>
    void TraceResult(const Value& value) {
        if (line_ < host_.trace.size()) host_.trace[line_] += " -> " + Told(value);
    }

  private:
    Host& host_;
    Host::Counter& counter_;
    const char* outer_;
    bool changes_, fails_;
    size_t line_ = static_cast<size_t>(-1);  // of the trace, unless nothing is traced
};

template <class Result>
static Result Failure(int value) {
    if constexpr (std::is_pointer_v<Result>)
        return nullptr;
    else if constexpr (std::is_same_v<Result, bool>)
        return false;
    else
        return static_cast<Result>(value);
}

template <int index, auto function>
struct Entry;
template <int index, class Result, class... Arguments, Result (*function)(Arguments...)>
struct Entry<index, function> {
    static Result Run(Arguments... arguments) {
        Call call(index);
        call.TraceCall(arguments...);
        if constexpr (std::is_void_v<Result>) {
            if (!call.Fails()) function(arguments...);
        } else {
            const Result result = call.Fails() ? Failure<Result>(call.Result()) : function(arguments...);
            call.TraceResult(result);
            return result;
        }
    }
};

enum Index {
#define NUMBER(result, name, parameters) Index_##name,
    FUNCOES_DO_HOST(NUMBER)
#undef NUMBER
};

// As the name says it; what can both ask and set counts as changing.
static constexpr bool Changes(std::string_view name) {
    if (name.starts_with("GetSet")) return true;
    for (const std::string_view start :
         {"Color", "Count", "Create", "Destroy", "Enum", "Get", "Is", "Undo_Can", "Validate", "get", "projectconfig"})
        if (name.starts_with(start)) return false;
    return true;
}

const Function Functions[FunctionCount] = {
#define ROW(result, name, parameters) \
    {#name, reinterpret_cast<void*>(&Entry<Index_##name, &api::name>::Run), Changes(#name)},
    FUNCOES_DO_HOST(ROW)
#undef ROW
};

int FunctionIndex(const std::string& name) {
    for (int i = 0; i < FunctionCount; ++i)
        if (name == Functions[i].name) return i;
    return -1;
}

int64_t Host::CallCount(const std::string& function) const {
    const int index = FunctionIndex(function);
    return index < 0 ? 0 : counters_[index].calls;
}

void Host::FailFrom(const std::string& function, int64_t n, int result) {
    const int index = FunctionIndex(function);
    if (index < 0) return Violate("FailFrom: there is no function " + function);
    counters_[index].failsFrom = counters_[index].calls + n;
    counters_[index].result = result;
}

void Host::StopFailing() {
    for (Counter& counter : counters_) counter.failsFrom = 0;
}

}  // namespace simhost
