// host/api.h
// This folder is the ground on which the module meets its host: what the host publishes (here), the look-up of its
// functions (imports), its numbered actions (actions), the idiom of edits (editing), the log, and what every door needs
// (door). The host publishes records, opaque types and functions; the 76 that the module looks up are listed once. From
// that list come the slots, the import table and the stand-in host: a signature that differs anywhere does not compile.
// A null ReaProject* is the current project. Texts are UTF-8, paths included.
#pragma once
#include "platform/win32.h"

class ReaProject;
class MediaTrack;
class MediaItem;
class MediaItem_Take;
class PCM_source;
class AudioAccessor;
struct KbdSectionInfo;

struct reaper_plugin_info_t {
    int caller_version;  // VersaoDoHost, or the module does not load
    HWND hwnd_main;      // not read: GetMainHwnd tells
    int (*Register)(const char* name, void* info);
    void* (*GetFunc)(const char* name);  // null for a name that the host does not know
};

inline constexpr int VersaoDoHost = 526;  // 0x20E

struct gaccel_register_t {
    ACCEL accel;
    const char* desc;
};

// F(result, name, parameters), in the order of the names.
// clang-format off
#define FUNCOES_DO_HOST(F) \
    F(int, AddProjectMarker2, (ReaProject*, bool isRegion, double start, double end, const char* name, \
      int wantedNumber, int colour)) \
    F(int, AddRemoveReaScript, (bool add, int section, const char* path, bool commit)) \
    F(int, ColorToNative, (int red, int green, int blue)) \
    F(int, CountMediaItems, (ReaProject*)) \
    F(int, CountProjectMarkers, (ReaProject*, int* markers, int* regions)) \
    F(int, CountSelectedMediaItems, (ReaProject*)) \
    F(int, CountSelectedTracks, (ReaProject*)) \
    F(int, CountTakes, (MediaItem*)) \
    F(int, CountTrackMediaItems, (MediaTrack*)) \
    F(int, CountTracks, (ReaProject*)) \
    F(AudioAccessor*, CreateTakeAudioAccessor, (MediaItem_Take*)) \
    F(bool, DeleteProjectMarker, (ReaProject*, int number, bool isRegion)) \
    F(bool, DeleteTrackMediaItem, (MediaTrack*, MediaItem*)) \
    F(void, DestroyAudioAccessor, (AudioAccessor*)) \
    F(int, EnumProjectMarkers, (int index, bool* isRegion, double* start, double* end, const char** name, \
      int* number)) \
    F(int, EnumProjectMarkers3, (ReaProject*, int index, bool* isRegion, double* start, double* end, \
      const char** name, int* number, int* colour)) \
    F(ReaProject*, EnumProjects, (int index, char* path, int pathSize)) \
    F(MediaItem_Take*, GetActiveTake, (MediaItem*)) \
    F(int, GetAudioAccessorSamples, (AudioAccessor*, int rate, int channels, double startSeconds, \
      int framesPerChannel, double* interleaved)) \
    F(double, GetAudioAccessorStartTime, (AudioAccessor*)) \
    F(double, GetCursorPosition, ()) \
    F(void, GetLastMarkerAndCurRegion, (ReaProject*, double time, int* markerIndex, int* regionIndex)) \
    F(HWND, GetMainHwnd, ()) \
    F(MediaItem*, GetMediaItem, (ReaProject*, int index)) \
    F(double, GetMediaItemInfo_Value, (MediaItem*, const char* key)) \
    F(double, GetMediaItemTakeInfo_Value, (MediaItem_Take*, const char* key)) \
    F(PCM_source*, GetMediaItemTake_Source, (MediaItem_Take*)) \
    F(MediaTrack*, GetMediaItem_Track, (MediaItem*)) \
    F(double, GetMediaSourceLength, (PCM_source*, bool* lengthIsInBeats)) \
    F(int, GetMediaSourceNumChannels, (PCM_source*)) \
    F(int, GetMediaSourceSampleRate, (PCM_source*)) \
    F(double, GetMediaTrackInfo_Value, (MediaTrack*, const char* key)) \
    F(const char*, GetOS, ()) \
    F(int, GetPlayState, ()) \
    F(const char*, GetResourcePath, ()) \
    F(MediaItem*, GetSelectedMediaItem, (ReaProject*, int index)) \
    F(MediaTrack*, GetSelectedTrack, (ReaProject*, int index)) \
    F(double, GetSetProjectInfo, (ReaProject*, const char* key, double value, bool set)) \
    F(bool, GetSetProjectInfo_String, (ReaProject*, const char* key, char* value, bool set)) \
    F(void, GetSet_ArrangeView2, (ReaProject*, bool set, int screenXStart, int screenXEnd, double* start, \
      double* end)) \
    F(void, GetSet_LoopTimeRange, (bool set, bool loop, double* start, double* end, bool allowAutoSeek)) \
    F(MediaItem_Take*, GetTake, (MediaItem*, int index)) \
    F(int, GetToggleCommandState, (int command)) \
    F(MediaTrack*, GetTrack, (ReaProject*, int index)) \
    F(MediaItem*, GetTrackMediaItem, (MediaTrack*, int index)) \
    F(bool, GetUserInputs, (const char* title, int count, const char* captions, char* values, int valuesSize)) \
    F(void, InsertTrackAtIndex, (int index, bool defaults)) \
    F(bool, IsMediaItemSelected, (MediaItem*)) \
    F(void, Main_OnCommand, (int command, int flag)) \
    F(bool, MoveMediaItemToTrack, (MediaItem*, MediaTrack*)) \
    F(void, PreventUIRefresh, (int delta)) \
    F(bool, ReorderSelectedTracks, (int beforeIndex, int makePrevFolder)) \
    F(void, SelectAllMediaItems, (ReaProject*, bool selected)) \
    F(void, SetActiveTake, (MediaItem_Take*)) \
    F(void, SetEditCurPos, (double seconds, bool moveView, bool seekPlay)) \
    F(bool, SetMediaItemInfo_Value, (MediaItem*, const char* key, double value)) \
    F(bool, SetMediaItemPosition, (MediaItem*, double seconds, bool refresh)) \
    F(void, SetMediaItemSelected, (MediaItem*, bool selected)) \
    F(bool, SetMediaItemTakeInfo_Value, (MediaItem_Take*, const char* key, double value)) \
    F(bool, SetMediaTrackInfo_Value, (MediaTrack*, const char* key, double value)) \
    F(void, SetOnlyTrackSelected, (MediaTrack*)) \
    F(bool, SetProjectMarker3, (ReaProject*, int number, bool isRegion, double start, double end, \
      const char* name, int colour)) \
    F(void, SetTrackSelected, (MediaTrack*, bool selected)) \
    F(int, ShowMessageBox, (const char* text, const char* title, int type)) \
    F(MediaItem*, SplitMediaItem, (MediaItem*, double seconds)) \
    F(void, TrackList_AdjustWindows, (bool isMinor)) \
    F(void, Undo_BeginBlock2, (ReaProject*)) \
    F(const char*, Undo_CanUndo2, (ReaProject*)) \
    F(int, Undo_DoUndo2, (ReaProject*)) \
    F(void, Undo_EndBlock2, (ReaProject*, const char* title, int flags)) \
    F(void, UpdateArrange, ()) \
    F(void, UpdateTimeline, ()) \
    F(bool, ValidatePtr, (void* pointer, const char* typeName)) \
    F(void*, get_config_var, (const char* name, int* size)) \
    F(void*, projectconfig_var_addr, (ReaProject*, int offset)) \
    F(int, projectconfig_var_getoffs, (const char* name, int* size))
// clang-format on

namespace host {
// Process-wide, null until ImportarFuncoes has filled them; every call into the host goes through them.
#define SLOT(resultado, nome, parametros) extern resultado(*nome) parametros;
FUNCOES_DO_HOST(SLOT)
#undef SLOT
}  // namespace host
