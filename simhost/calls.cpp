#include "simhost/calls.h"

#include <charconv>
#include <type_traits>

namespace simhost {

// --- values as a trace tells them

static std::string NameOf(const Track& track) { return track.name; }
static std::string NameOf(const Item& item) { return item.Name(); }
static std::string NameOf(const Take& take) { return take.name; }

template <class T>
static std::string Named(const void* handle, Kind kind) {
    std::string why;
    const void* owner = OwnerOf(handle, kind, &why);
    return std::string(NameOf(kind)) + ' ' + (owner ? NameOf(*static_cast<const T*>(owner)) : '(' + why + ')');
}

static std::string Spelled(bool value) { return value ? "true" : "false"; }
static std::string Spelled(int value) { return std::to_string(value); }
static std::string Spelled(double value) {  // the shortest that reads back the same
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}
static std::string Spelled(const char* text) { return text ? '"' + std::string(text) + '"' : "null"; }
static std::string Spelled(ReaProject*) { return "0"; }
static std::string Spelled(MediaTrack* t) { return Named<Track>(t, Kind::Track); }
static std::string Spelled(MediaItem* i) { return Named<Item>(i, Kind::Item); }
static std::string Spelled(MediaItem_Take* t) { return Named<Take>(t, Kind::Take); }
static std::string Spelled(PCM_source* s) { return Named<Take>(s, Kind::Source); }
static std::string Spelled(AudioAccessor*) { return "accessor"; }
static std::string Spelled(HWND) { return "window"; }
static std::string Spelled(const void* pointer) { return pointer ? "&" : "null"; }

// --- one call: it is the running function until it returns, also when it calls back into the extension

class Call {
  public:
    explicit Call(int index) : function_(Functions[index]), counter_(calls_.counters_[index]), outer_(calls_.running_) {
        ++counter_.calls;
        calls_.running_ = function_.name;
        fails = counter_.failsFrom && counter_.calls >= counter_.failsFrom;
    }
    ~Call() {
        calls_.running_ = outer_;
        host_.screen.changes += function_.changes;
    }

    bool fails;
    // What it gives when it fails: null, false or the number that was asked for.
    template <class Result>
    Result Failure() const {
        if constexpr (std::is_arithmetic_v<Result> && !std::is_same_v<Result, bool>)
            return static_cast<Result>(counter_.result);
        else
            return Result();
    }
    template <class... Values>
    void TraceCall(const Values&... values) {
        if (!calls_.tracing) return;
        std::string line = std::string(calls_.running_) + '(';
        ((line += (line.back() == '(' ? "" : ", ") + Spelled(values)), ...);
        line_ = calls_.trace.size();
        calls_.trace.push_back(line + ')');
    }
    template <class Value>
    void TraceResult(const Value& value) {
        if (line_ < calls_.trace.size()) calls_.trace[line_] += " -> " + Spelled(value);
    }

  private:
    Host& host_ = Host::Current();
    Calls& calls_ = host_.calls;
    const Function& function_;
    Calls::Counter& counter_;
    const char* const outer_;
    size_t line_ = static_cast<size_t>(-1);  // of the trace, unless nothing is traced
};

template <int index, auto function>
struct Entry;
template <int index, class Result, class... Arguments, Result (*function)(Arguments...)>
struct Entry<index, function> {
    static Result Run(Arguments... arguments) {
        Call call(index);
        call.TraceCall(arguments...);
        if constexpr (std::is_void_v<Result>) {
            if (!call.fails) function(arguments...);
        } else {
            const Result result = call.fails ? call.Failure<Result>() : function(arguments...);
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

// Which of the functions may change what there is to see. Each stands in one of the lists, or it does not compile.
// clang-format off
#define CHANGING(F) \
    F(AddProjectMarker2) F(AddRemoveReaScript) F(DeleteProjectMarker) F(DeleteTrackMediaItem) F(GetSetProjectInfo) \
    F(GetSetProjectInfo_String) F(GetSet_ArrangeView2) F(GetSet_LoopTimeRange) F(InsertTrackAtIndex) F(Main_OnCommand) \
    F(MoveMediaItemToTrack) F(PreventUIRefresh) F(ReorderSelectedTracks) F(SelectAllMediaItems) F(SetActiveTake) \
    F(SetEditCurPos) F(SetMediaItemInfo_Value) F(SetMediaItemPosition) F(SetMediaItemSelected) \
    F(SetMediaItemTakeInfo_Value) F(SetMediaTrackInfo_Value) F(SetOnlyTrackSelected) F(SetProjectMarker3) \
    F(SetTrackSelected) F(SplitMediaItem) F(TrackList_AdjustWindows) F(Undo_BeginBlock2) F(Undo_DoUndo2) \
    F(Undo_EndBlock2) F(UpdateArrange) F(UpdateTimeline)
#define ASKING(F) \
    F(ColorToNative) F(CountMediaItems) F(CountProjectMarkers) F(CountSelectedMediaItems) F(CountSelectedTracks) \
    F(CountTakes) F(CountTrackMediaItems) F(CountTracks) F(CreateTakeAudioAccessor) F(DestroyAudioAccessor) \
    F(EnumProjectMarkers) F(EnumProjectMarkers3) F(EnumProjects) F(GetActiveTake) F(GetAudioAccessorSamples) \
    F(GetAudioAccessorStartTime) F(GetCursorPosition) F(GetLastMarkerAndCurRegion) F(GetMainHwnd) F(GetMediaItem) \
    F(GetMediaItemInfo_Value) F(GetMediaItemTakeInfo_Value) F(GetMediaItemTake_Source) F(GetMediaItem_Track) \
    F(GetMediaSourceLength) F(GetMediaSourceNumChannels) F(GetMediaSourceSampleRate) F(GetMediaTrackInfo_Value) \
    F(GetOS) F(GetPlayState) F(GetResourcePath) F(GetSelectedMediaItem) F(GetSelectedTrack) F(GetTake) \
    F(GetToggleCommandState) F(GetTrack) F(GetTrackMediaItem) F(GetUserInputs) F(IsMediaItemSelected) \
    F(ShowMessageBox) F(Undo_CanUndo2) F(ValidatePtr) F(get_config_var) F(projectconfig_var_addr) \
    F(projectconfig_var_getoffs)
// clang-format on
namespace changes {
#define YES(name) constexpr bool name = true;
#define NO(name) constexpr bool name = false;
CHANGING(YES)
ASKING(NO)
#undef YES
#undef NO
}  // namespace changes

const Function Functions[FunctionCount] = {
#define ROW(result, name, parameters) \
    {#name, reinterpret_cast<void*>(&Entry<Index_##name, &api::name>::Run), changes::name},
    FUNCOES_DO_HOST(ROW)
#undef ROW
};

int FunctionIndex(const std::string& name) {
    for (int i = 0; i < FunctionCount; ++i)
        if (name == Functions[i].name) return i;
    return -1;
}

Calls::Calls() : counters_(FunctionCount) {}

int64_t Calls::Count(const std::string& function) const {
    const int index = FunctionIndex(function);
    return index < 0 ? 0 : counters_[index].calls;
}

void Calls::FailFrom(const std::string& function, int64_t n, int result) {
    const int index = FunctionIndex(function);
    if (index < 0) return Host::Current().Violate("FailFrom: there is no function " + function);
    counters_[index].failsFrom = counters_[index].calls + n;
    counters_[index].result = result;
}

void Calls::StopFailing() {
    for (Counter& counter : counters_) counter.failsFrom = 0;
}

}  // namespace simhost
